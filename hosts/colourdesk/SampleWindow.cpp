#include "hosts/colourdesk/SampleWindow.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "Utilities/TranslationService.h"
#include "cxf/samples/Sample.h"
#include "gui/elements/DropDataObject.h"
#include "gui/elements/Topics.h"
#include "hosts/colourdesk/ElementKeys.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ColourDesk {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

constexpr char const* windowName = "ColourDesk";
constexpr char const* viewTabs = "ViewTabs";
constexpr char const* chartsTab = "ChartsTab";
constexpr char const* tableTab = "TableTab";
constexpr char const* curves = "XYGraph";
constexpr char const* labChart = "LabChart";
constexpr char const* patch = "Patch";
constexpr char const* patchRow = "PatchRow";
constexpr char const* droppedFiles = "text/uri-list";
constexpr char const* languageService = "LanguageService";
constexpr char const* firstPage = "FirstPage";
constexpr char const* previousPage = "PreviousPage";
constexpr char const* nextPage = "NextPage";
constexpr char const* lastPage = "LastPage";
constexpr int bands = 36;

/// Few samples are in few rows of large patches, many in as many columns as stay legible.
long ColumnsFor(long samples) {
    auto const columns = [samples](double shape) {
        return static_cast<long>(std::ceil(std::sqrt(shape * static_cast<double>(samples))));
    };
    constexpr long most = 70;
    return std::clamp(std::max(std::min(columns(8.0), most), columns(3.5)), 1L, std::max(samples, 1L));
}

/// The end of the scale of reflectance factors; fluorescent samples go beyond 1.
double ReflectanceEnd(SampleDocument const& document) {
    float largest = 1;
    for (ShownSample const& shown : document.GetSamples())
        largest = std::max(largest, *std::max_element(shown.spectrum.begin(), shown.spectrum.end()));
    return std::min(std::ceil(largest * 5.0 - 0.05) / 5.0, 10.0);
}

} // namespace

SampleWindow::SampleWindow(SampleDocument document)
    : document_(std::move(document)), view_(chartsView), pages_(Count()),
      columns_(ColumnsFor(pages_.GetPlaces())), rows_((pages_.GetPlaces() + columns_ - 1) / columns_),
      labRange_(RangeOf(document_)), reflectanceEnd_(ReflectanceEnd(document_)) {}

void SampleWindow::Start() {
    UpdateCharts();
    Select(0);
}

void SampleWindow::UpdateCharts() {
    // All bands of the columns from the page's first sample to its last.
    ExecuteCallback("Spectra", "OnUpdate",
                    ("1;1-" + std::to_string(bands) + ";" + std::to_string(pages_.GetSize())).c_str());
    ExecuteCallback(labChart, "OnUpdate", {});
}

void SampleWindow::TurnPages(long pages) {
    if (pages_.AreMany()) Select(std::clamp(selected_ + pages * SamplePages::capacity, 0L, Count() - 1));
}

Anything SampleWindow::GetValue(String const& element, String const& key) {
    if (key == "DragData") return GetDragData(element);
    if (key == "PropertyContent") return GetProperties(element);
    // A chart is called by the title above it.
    if (element == "Spectra" && key == GUI::Values::accessibleName)
        return LanguageServiceInterface::GetTranslation("Reflectance factor over wavelength in nm");
    if (element == labChart && key == GUI::Values::accessibleName)
        return LanguageServiceInterface::GetTranslation("a* to the right, b* upward");
    if (element == curves) return GetCurveValue(key);
    if (element == views)
        return key == "CurrentView" ? Anything(view_ == gridView ? "TableView" : "ChartsView") : Anything();
    if (element == sampleGrid) return grid_.GetValue(key);
    if (element == sampleTree)
        return key == "Selected" ? Anything(tree_.GetPath(selected_)) : tree_.GetValue(key);
    if (element == labChart) {
        if (key == "SelectedSample" && firstPaint_) std::exchange(firstPaint_, nullptr)();
        return GetLabChartValue(key);
    }
    if (element == "PatchRows") return key == "Repetitions" ? Anything(rows_) : Anything();
    if (StartsWith(element, patchRow)) return key == "Repetitions" ? Anything(columns_) : Anything();
    if (StartsWith(element, patch) && key == "Data")
        return GetSpot(pages_.GetFirst() + NumberBehind(element, patch));
    if (StartsWith(element, patch)) return GetPatchValue(element, key);
    if (element == viewTabs && key == "CurrentTab") return view_ == gridView ? tableTab : chartsTab;
    if (key == "ItemEnabled" || key == "State") return GetMenuValue(element, key);
    return GetDetail(element, key);
}

Anything SampleWindow::GetMenuValue(String const& item, String const& key) const {
    bool const isPage = item.FindSubstring("Page", 0) >= 0;
    if (key == "ItemEnabled" && item == previousTool) return selected_ > 0;
    if (key == "ItemEnabled" && item == nextTool) return selected_ + 1 < Count();
    if (key == "ItemEnabled") return !isPage || pages_.AreMany();
    if (item == chartsView || item == gridView) return item == view_;
    if (StartsWith(item, themeItem)) return item == themeItem + theme_;
    if (StartsWith(item, surroundItem)) return item == surroundItem + surround_;
    if (StartsWith(item, languageItem) && Utilities::NamingService::Instance()->IsRegistered(languageService))
        return item ==
               languageItem +
                   Utilities::ResolveComponent<Utilities::TranslationService>(languageService)->GetLanguage();
    return {};
}

long SampleWindow::OnMenuItem(Anything const& name) {
    String const& item = name.GetString();
    if (item == firstPage)
        SelectFirst();
    else if (item == lastPage)
        SelectLast();
    else if (item == previousPage)
        TurnPages(-1);
    else if (item == nextPage)
        TurnPages(1);
    else if (item == previousTool)
        Select(std::max(selected_ - 1, 0L));
    else if (item == nextTool)
        Select(std::min(selected_ + 1, Count() - 1));
    else if (item == chartsView || item == gridView)
        ShowView(item);
    else if (command_)
        command_(item);
    return 0;
}

Anything SampleWindow::GetPatchValue(String const& element, String const& key) const {
    long const sample = SampleOfPatch(element);
    if (key == "IsSelectable") return sample >= 0;
    // Places behind the last sample stay empty.
    if (key == "BitmapOnly") return sample < 0;
    if (sample < 0) return {};
    if (key == "ColorValue") return At(sample).color.GetAnything();
    if (key == "IsActive") return sample == selected_;
    if (key == "ToolTipText") return ToolTip(sample).c_str();
    return {};
}

Anything SampleWindow::GetDetail(String const& element, String const& key) const {
    if (element == windowName && key == "Theme") return theme_;
    if (element == windowName && key == "Surround") return surround_;
    if (element == windowName && key == "Caption")
        return LanguageServiceInterface::GetTranslation("Colour Desk") + " \u2013 " + document_.GetFileName();
    if (element == "SamplePage")
        return key == "Caption"   ? Anything(PageText().c_str())
               : key == "Visible" ? Anything(pages_.AreMany())
                                  : Anything();
    if (element == "StatusFile" && key == "Caption") return document_.GetFileName().c_str();
    if (selected_ < 0) return {};
    ShownSample const& shown = At(selected_);
    if (element == "SelectedColour") return key == "ColorValue" ? shown.color.GetAnything() : Anything();
    if (element == "SampleCondition" && key == "ToolTipText") return document_.GetReport().GetText().c_str();
    if (!(key == "Caption")) return {};
    if (element == "SampleName") return shown.name.c_str();
    if (element == "SamplePosition") return PositionText().c_str();
    if (StartsWith(element, "Sample"))
        if (Anything number = GetNumber(element, shown.lab); number.IsValid()) return number;
    if (element == "SampleCondition" || element == "TableCondition") return shown.condition.c_str();
    if (element == "SampleGamut") return shown.color.IsInGamut() ? "" : "outside the screen's gamut";
    return {};
}

Anything SampleWindow::GetNumber(String const& element, std::array<double, 3> const& lab) {
    double const chroma = std::hypot(lab[1], lab[2]);
    double const angle = std::atan2(lab[2], lab[1]) * 180 / std::numbers::pi;
    auto const written = [](double value) { return Anything(String(value, 6, '.')); };
    if (element == "SampleLightness") return written(lab[0]);
    if (element == "SampleA") return written(lab[1]);
    if (element == "SampleB") return written(lab[2]);
    if (element == "SampleChroma") return written(chroma);
    // What has no chroma to speak of has no hue.
    constexpr double neutral = 0.005;
    if (element == "SampleHue")
        return chroma < neutral ? Anything("") : written(angle < 0 ? angle + 360 : angle);
    return {};
}

void SampleWindow::SetValue(String const& element, String const& key, Anything const& value) {
    // F7 has taken the next one.
    if (element == windowName && key == "Surround") {
        surround_ = value.GetString();
        if (command_) command_(String(surroundItem) + surround_);
    }
    if (element == curves && key == "View") curveView_ = value;
    if (element == labChart && key == "View") labView_ = value;
    if (element == sampleGrid) TakeGridValue(key, value);
    if (element == sampleTree && key == "Selected" && value.IsOfTypeString())
        if (long const sample = tree_.GetSample(value.GetString()); sample >= 0) Select(sample);
    if (element == labChart && key == "Click") {
        auto const& place = value.GetMapOfAnythings();
        SelectNearest(place["x"].GetDouble(), place["y"].GetDouble());
    }
}

GUI::DropEffect SampleWindow::OnDragOver(GUI::PlatformIndependentWindowID const& /*window*/,
                                         GUI::DropDataObject const& data, GUI::KeyState const& /*keyState*/,
                                         long /*x*/, long /*y*/) {
    return data.HasFormat(droppedFiles) ? GUI::DropEffect::Copy : GUI::DropEffect::None;
}

bool SampleWindow::OnDrop(GUI::PlatformIndependentWindowID const& /*window*/, GUI::DropDataObject const& data,
                          GUI::DropEffect /*effect*/, long /*x*/, long /*y*/) {
    if (!data.HasFormat(droppedFiles) || !dropped_) return false;
    auto const files = data.GetData(droppedFiles).GetVectorOfAnythings();
    if (files.GetSize() == 0) return false;
    dropped_(files[0].GetString());
    return true;
}

Callback SampleWindow::GetCallback(String const& element, String const& event) {
    if (event == "OnLeftButtonDown" && SampleOfPatch(element) >= 0)
        return Utilities::MakeCallback(this, &SampleWindow::OnPatchClicked);
    bool const isMenuItem = element == aboutItem || element == openItem || element == saveItem ||
                            element == quitItem || element == chartsView || element == gridView ||
                            element == nextLanguageItem || StartsWith(element, languageItem) ||
                            StartsWith(element, themeItem) || StartsWith(element, surroundItem) ||
                            element == firstPage || element == previousPage || element == nextPage ||
                            element == lastPage || element == previousTool || element == nextTool ||
                            element == surroundTool || element == themeTool || element == reportItem;
    if (element == viewTabs && event == "OnTabChanged")
        return Utilities::MakeCallback(this, &SampleWindow::OnTabChanged);
    if (event == "OnClick" && isMenuItem) return Utilities::MakeCallback(this, &SampleWindow::OnMenuItem);
    return DialogHandler::GetCallback(element, event);
}

long SampleWindow::OnTabChanged(Anything const& tab) {
    ShowView(tab.GetString() == tableTab ? gridView : chartsView);
    return 0;
}

long SampleWindow::OnPatchClicked(Anything const& element) {
    Select(SampleOfPatch(element.GetString()));
    return 0;
}

void SampleWindow::SelectNearest(double a, double b) {
    // A click that is farther from every spot than this changes nothing.
    constexpr double reach = 5;
    long nearest = -1;
    double smallest = reach;
    for (long i = pages_.GetFirst(); pages_.IsShown(i); ++i) {
        auto const& lab = At(i).lab;
        // Later spots are on top, so they win a tie.
        if (double const distance = std::hypot(lab[1] - a, lab[2] - b); distance <= smallest) {
            smallest = distance;
            nearest = i;
        }
    }
    if (nearest >= 0) Select(nearest);
}

void SampleWindow::UpdateDetails() {
    for (char const* const element : {"SamplePage", "SampleName", "SamplePosition", "SampleLightness",
                                      "SampleA", "SampleB", "SampleChroma", "SampleHue", "SampleCondition",
                                      "SampleGamut", "SelectedColour", "TableCondition", "Tools"})
        ExecuteCallback(element, "OnUpdate", {});
}

void SampleWindow::Select(long sample) {
    long const former = std::exchange(selected_, sample);
    if (former == sample) return;
    if (pages_.Show(sample)) {
        for (long place = 0; place < pages_.GetPlaces(); ++place)
            ExecuteCallback(PatchName(pages_.GetFirst() + place).c_str(), "OnUpdate", {});
        UpdateCharts();
    } else {
        for (long const changed : {former, sample})
            if (pages_.IsShown(changed)) ExecuteCallback(PatchName(changed).c_str(), "OnUpdate", {});
    }
    UpdateDetails();
    ExecuteCallback("Spectra", "OnUpdate", "Properties");
    // The tolerance is around the selected one.
    ExecuteCallback(labChart, "OnUpdate", {});
    UpdateGrid();
    UpdateInspector();
}

long SampleWindow::SampleOfPatch(String const& element) const {
    if (!StartsWith(element, patch) || element.FindSubstring("_", 0) < 0) return -1;
    String const place = element.Mid(String(patch).Length(), element.Length());
    try {
        long const column = place.GetToken(1, '_').GetLong();
        long const sample = pages_.GetFirst() + place.GetToken(0, '_').GetLong() * columns_ + column;
        return column < columns_ && pages_.IsShown(sample) ? sample : -1;
    } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
        return -1;
    }
}

std::string SampleWindow::PatchName(long sample) const {
    long const place = sample - pages_.GetFirst();
    return patch + std::to_string(place / columns_) + "_" + std::to_string(place % columns_);
}

std::string SampleWindow::PositionText() const {
    String text = LanguageServiceInterface::GetTranslation("Sample %1 of %2");
    text.Replace("%1", String(selected_ + 1));
    text.Replace("%2", String(Count()));
    return text.GetStdString();
}

std::string SampleWindow::PageText() const {
    if (!pages_.AreMany()) return {};
    String text = LanguageServiceInterface::GetTranslation("Samples %1 to %2 of %3. Page Up, Page Down");
    long const first = pages_.GetFirst() + 1;
    text.Replace("%1", String(first));
    text.Replace("%2", String(first + pages_.GetSize() - 1));
    text.Replace("%3", String(Count()));
    return text.GetStdString();
}

std::string SampleWindow::ToolTip(long sample) const {
    if (sample < 0 || sample >= Count()) return {};
    ShownSample const& shown = At(sample);
    std::string text = shown.name + "\n" + SampleDocument::FormatLab(shown.lab) + "\n" + shown.condition;
    if (!shown.color.IsInGamut())
        text += "\n" + LanguageServiceInterface::GetTranslation("outside the screen's gamut").GetStdString();
    return text;
}

Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample>
SampleWindow::GetSample(Anything const& sampleKey) {
    String const name = sampleKey.GetMapOfAnythings()["ElementName"].GetString();
    long const sample = name == "SelectedColour" ? selected_ : SampleOfPatch(name);
    if (sample < 0) return {};
    return At(sample).sample;
}

} // namespace ColourDesk
