#pragma once

#include "gui/elements/DataAccess.h"
#include "inspection/PropertyPages.h"

namespace GUI {

/// The page for a measured sample: its name and description, which can be changed unless the host's set is
/// locked, its colour, and its spectrum with the conditions that it holds under. The component
/// "PropertyInspectorSample"; its description is the file of that name, whose elements are "SampleName" and
/// "SampleDescription" (asked for "Text" or "Caption", and "Enabled", and telling "Text"), "ColorPatch", the
/// tree view "PropertyInspectorTree" and the buttons "ChangeName" and "ChangeDescription".
///
/// Further texts, for elements that a description may have: "SampleCondition" ("Caption": under what the
/// spectrum was measured, what was assumed, and what was done to it).
class PropertyInspectorSample : public PropertyInspectorImpl {
public:
    static constexpr char const* componentName = "PropertyInspectorSample";

    Diagnostics::String GetValueString() override { return componentName; }
    Utilities::String GetName() const override { return componentName; }
    DescriptionTree GetGUIDescription() override;
    void Update(SupportsPropertyInspector* element) override;

    /// The sample gets the text that was entered as its name, or the one that its set makes of it.
    virtual long ChangeName(Utilities::Anything const& argument);
    virtual long ChangeDescription(Utilities::Anything const& argument);

    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override;
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;

private:
    using SamplePointer = Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample>;

    void ReadSample(SupportsPropertyInspector& element);
    void ShowNothing();
    void UpdateElements();
    bool IsEditable() const;
    Utilities::Anything GetColor() const;
    bool IsAmbient() const;
    Utilities::String GetConditionText() const;

    Utilities::String description_;
    Utilities::String name_;
    Utilities::Anything sampleKey_;
    bool updating_ = false;
    SamplePointer sample_;
    CXFAccess* access_ = nullptr;
};

} // namespace GUI
