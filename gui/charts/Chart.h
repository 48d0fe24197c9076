#pragma once

#include "gui/elements/CallbackTable.h"
#include "gui/elements/Pane.h"

namespace GUI {

/// The outer element of a chart: a pane that owns the margins, with their numbers and captions, and is
/// the data source of the private children in it. Base class; a concrete chart fills the children's
/// description and calls `CreateChildren`.
///
/// `GetValue` passes on to the chart's own data source. Callbacks that children register stay here, for
/// `FireCallback`; the other operations of a data source do nothing. The chart's `OnUpdate` is registered
/// with its own data source.
class Chart : public Pane, public DialogDataSource {
public:
    Chart() = default;
    /// Children know the chart as their data source and must not outlive this part of it.
    ~Chart() override { ReleaseChildren(); }

    void Invariant() const override {}
    Diagnostics::String GetValueString() override { return "Chart"; }
    Accessible GetAccessible() override {
        Accessible told = Pane::GetAccessible();
        told.role = Accessible::Role::Graphic;
        return told;
    }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;

    /// Builds the children from the chart's description of them, with the chart as data source.
    virtual void CreateChildren();
    /// Executes what a child registered. Without such a callback throws `RuntimeException` with the
    /// element's name, " - ", the event's name and " - Callback undefined ".
    virtual void FireCallback(Utilities::String const& element, Utilities::String const& event,
                              Utilities::Anything const& argument);

    void SetValue(Utilities::String const& /*element*/, Utilities::String const& /*name*/,
                  Utilities::Anything const& /*value*/) override {}
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override;
    /// Always invalid.
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;
    /// Who copies the chart copies what is in it.
    SupportsCopyPaste& GetCopyPasteHandler(Utilities::String const& element) override {
        DialogDataSource* const outer = GetDataSource();
        return outer ? outer->GetCopyPasteHandler(element) : DialogDataSource::GetCopyPasteHandler(element);
    }
    /// A child that is destroyed takes its callbacks out.
    void RemoveAllCallbacks(Utilities::String const& element) override { callbacks_.Remove(element); }

protected:
    using Pane::GetValue;
    /// A node for a private graph: it can't be found by name from outside and takes the room it is given.
    static Utilities::SmartPointer<DescriptionTree> DescribeGraph(char const* type, char const* name);
    DescriptionTree& GetGraphDescription() { return graphDescription_; }

private:
    DescriptionTree graphDescription_;
    CallbackTable callbacks_;
};

} // namespace GUI
