#include "inspection/PropertyInspectorSample.h"

#include "Diagnostics/Sink.h"
#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "core/creators/ComponentCreator.h"
#include "cxf/conditions/ConditionText.h"
#include "cxf/samples/Sample.h"
#include "gui/elements/PropertyContentHelper.h"
#include "gui/elements/SelectionServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/elements/colour/ScreenRGB.h"
#include "gui/elements/description/GUIDescriptionReader.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;
namespace Cxf = Norvelian::ColorExchangeFormat;
namespace Key = Norvelian::Tristim::Vocabulary::Key;

namespace {

Utilities::ComponentCreatorNormal<PropertyInspectorSample> const
    creator({PropertyInspectorSample::componentName, "$Revision: 1.18.2.1 $", "Tintorium"});

constexpr char const* nameElement = "SampleName";
constexpr char const* descriptionElement = "SampleDescription";
constexpr char const* patchElement = "ColorPatch";
constexpr char const* conditionElement = "SampleCondition";
constexpr char const* ambientPicture = "PropertyAmbientPatch";
constexpr char const* ambientLight = "AmbientLight";

Cxf::Sample::AttributePointer SpectrumOf(Cxf::Sample const& sample) {
    return sample.GetSampleAttribute("CXFSpectrum", Cxf::Conditions(), false);
}

/// While the page itself changes something.
class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    Flag(Flag const&) = delete;
    Flag& operator=(Flag const&) = delete;
    ~Flag() { flag_ = false; }

private:
    bool& flag_;
};

} // namespace

DescriptionTree PropertyInspectorSample::GetGUIDescription() {
    return GUIDescriptionReader::GetGUIDescriptionTree(componentName);
}

void PropertyInspectorSample::Update(SupportsPropertyInspector* element) {
    if (updating_) return;
    try {
        if (element)
            ReadSample(*element);
        else
            ShowNothing();
    } catch (...) {
        Diagnostics::DropException("PropertyInspectorSample::Update");
        ShowNothing();
    }
}

void PropertyInspectorSample::ReadSample(SupportsPropertyInspector& element) {
    access_ = dynamic_cast<CXFAccess*>(element.GetPropertyInspectorHandler());
    sampleKey_ = element.GetPropertyInspectorData();
    if (!access_) return;
    auto const helper = Utilities::ResolveComponent<PropertyContentHelper>("PropertyContentHelper");
    sample_ = access_->GetSample(sampleKey_);
    Anything content;
    if (!sample_.IsNull()) {
        name_ = sample_->GetName();
        description_ = sample_->GetDescription();
        if (auto const spectrum = SpectrumOf(*sample_); !spectrum.IsNull())
            helper->AddSpectrum("Spectrum", Cxf::Extensions::Cxf2NV(*spectrum));
        content = helper->GetContent();
    }
    ShowInInspectorTree(content);
    UpdateElements();
}

void PropertyInspectorSample::ShowNothing() {
    sample_ = nullptr;
    access_ = nullptr;
    ShowInInspectorTree(MakeNoInformation());
    UpdateElements();
}

void PropertyInspectorSample::UpdateElements() {
    for (char const* const element : {nameElement, descriptionElement, patchElement, conditionElement})
        ExecuteCallback(element, Events::update, {});
}

bool PropertyInspectorSample::IsEditable() const {
    return !sample_.IsNull() && access_ && !access_->IsLocked({}, {});
}

Anything PropertyInspectorSample::GetValue(String const& element, String const& name) {
    bool const isName = element == nameElement;
    if (isName || element == descriptionElement) {
        if (name == Values::enabled) return IsEditable();
        if (!(name == (isName ? "Text" : Values::caption))) return {};
        if (sample_.IsNull()) return Utilities::LanguageServiceInterface::GetTranslation("not defined");
        return String(isName ? sample_->GetName() : sample_->GetDescription());
    }
    if (element == patchElement) {
        if (name == "ColorValue") return GetColor();
        if (name == "BitmapOnly") return IsAmbient();
        if (name == "BackgroundBitmap") return IsAmbient() ? Anything(ambientPicture) : Anything();
    }
    if (element == conditionElement && name == Values::caption) return GetConditionText();
    return {};
}

Anything PropertyInspectorSample::GetColor() const {
    if (sample_.IsNull()) return {};
    try {
        auto const model = Utilities::ResolveComponent<Tintorium::Model>("Model");
        auto const found = model->GetComponent("ScreenRGB");
        auto const* const screen = dynamic_cast<Tintorium::ScreenRGB const*>(found.Get());
        return screen ? screen->GetColorValue(*sample_) : Anything();
    } catch (...) {
        Diagnostics::DropException("PropertyInspectorSample: colour");
        return {};
    }
}

bool PropertyInspectorSample::IsAmbient() const {
    auto const spectrum = sample_.IsNull() ? Cxf::Sample::AttributePointer() : SpectrumOf(*sample_);
    return !spectrum.IsNull() &&
           spectrum->GetConditions().GetAttribute(Key::SpectrumType, ambientLight) == ambientLight;
}

String PropertyInspectorSample::GetConditionText() const {
    auto const spectrum = sample_.IsNull() ? Cxf::Sample::AttributePointer() : SpectrumOf(*sample_);
    if (spectrum.IsNull()) return {};
    auto const conditions = Cxf::Extensions::Cxf2NV(*spectrum).GetMeasureConditions();
    std::string text = MeasurementText(conditions);
    std::string const done = conditions.GetMeasureCondition(Key::Resampling);
    if (!done.empty()) text += (text.empty() ? "" : "; ") + done;
    return text;
}

void PropertyInspectorSample::SetValue(String const& element, String const& name, Anything const& value) {
    if (updating_) return;
    Flag const updating(updating_);
    if (name == "Text" && element == nameElement) {
        name_ = value.GetString();
        ChangeName({});
    } else if (name == "Text" && element == descriptionElement) {
        description_ = value.GetString();
        ChangeDescription({});
    }
    if (Utilities::NamingService::Instance()->IsRegistered("SelectionService"))
        Utilities::ResolveComponent<SelectionServiceInterface>("SelectionService")
            ->Notify(Topics::propertyInspector);
}

Callback PropertyInspectorSample::GetCallback(String const& element, String const& name) {
    if (element == "ChangeName" && name == Events::click)
        return Utilities::MakeCallback(this, &PropertyInspectorSample::ChangeName);
    if (element == "ChangeDescription" && name == Events::click)
        return Utilities::MakeCallback(this, &PropertyInspectorSample::ChangeDescription);
    return DialogHandler::GetCallback(element, name);
}

long PropertyInspectorSample::ChangeName(Anything const& /*argument*/) {
    if (sample_.IsNull()) return 0;
    // Whoever is told may have the page show something else.
    SamplePointer const sample(sample_);
    CXFAccess& access = *access_;
    String const wanted = name_;
    bool const isEditable = IsEditable();
    if (isEditable) name_ = sample->RenameSample(wanted.GetStdString());
    // What was entered isn't the sample's name.
    if (!isEditable || !(name_ == wanted)) ExecuteCallback(nameElement, Events::update, {});
    access.DataChanged(sampleKey_, "Name");
    return 0;
}

long PropertyInspectorSample::ChangeDescription(Anything const& /*argument*/) {
    if (sample_.IsNull()) return 0;
    SamplePointer const sample(sample_);
    CXFAccess& access = *access_;
    if (IsEditable())
        sample->SetDescription(description_.GetStdString());
    else
        ExecuteCallback(descriptionElement, Events::update, {});
    access.DataChanged(sampleKey_, "Description");
    return 0;
}

} // namespace GUI
