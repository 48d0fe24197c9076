#pragma once

#include "gui/elements/DataAccess.h"
#include "gui/elements/DialogHandler.h"
#include "hosts/colourdesk/SampleDocument.h"
#include "hosts/colourdesk/SampleEdits.h"
#include "hosts/colourdesk/SampleGrid.h"
#include "hosts/colourdesk/SamplePages.h"
#include "hosts/colourdesk/SampleTree.h"

#include <functional>

namespace ColourDesk {

/// The logic behind the window: answers what the elements of `descriptions/ColourDesk.xml` ask, and
/// keeps one sample selected in all of them.
///
/// Patches are in rows and are named "Patch<row>_<column>"; the loops that make them ask how often. Charts
/// and patches show one page of the samples (see `SamplePages`); their elements count from the page's first
/// sample, everything here counts from the document's.
class SampleWindow : public GUI::DialogHandler, public GUI::CXFAccess {
public:
    explicit SampleWindow(SampleDocument document);

    Diagnostics::String GetValueString() override { return "SampleWindow"; }
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& key) override;
    void SetValue(Utilities::String const& element, Utilities::String const& key,
                  Utilities::Anything const& value) override;
    Utilities::Callback GetCallback(Utilities::String const& element,
                                    Utilities::String const& event) override;

    Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample>
    GetSample(Utilities::Anything const& sampleKey) override;
    void DataChanged(Utilities::Anything const& sampleKey, Utilities::Anything const& what) override;
    bool IsLocked(Utilities::Anything const& sampleKey, Utilities::Anything const& what) override;

    /// Whatever is selected can be copied, as a picture and as numbers; changes of samples can be undone.
    bool CanCopy(Utilities::String const& element) override;
    void Copy(Utilities::String const& element) override;
    bool CanUndo(Utilities::String const& element) override;
    void Undo(Utilities::String const& element) override;
    /// Whether closing the window would lose changes.
    bool HasUnsavedChanges() const { return edits_.AreUnsaved(); }
    void OnSaved() { edits_.OnSaved(); }
    /// The inspector reads anew what it shows: its element stands for another sample, or the language is
    /// another.
    static void UpdateInspector();

    /// A file may be dropped anywhere on the panes.
    GUI::DropEffect OnDragOver(GUI::PlatformIndependentWindowID const& window,
                               GUI::DropDataObject const& data, GUI::KeyState const& keyState, long x,
                               long y) override;
    bool OnDrop(GUI::PlatformIndependentWindowID const& window, GUI::DropDataObject const& data,
                GUI::DropEffect effect, long x, long y) override;

    /// To be called once the elements exist: gives the charts their data.
    void Start();
    /// -1 for none. Shows the page that the sample is on.
    void Select(long sample);
    /// Selects the sample so many pages further or back, at most the last or the first one.
    void TurnPages(long pages);
    void SelectFirst() { Select(0); }
    void SelectLast() { Select(Count() - 1); }
    /// The element name of a language's item in the menu begins with this; the language follows.
    static constexpr char const* languageItem = "Language";
    static constexpr char const* nextLanguageItem = "NextLanguage";
    static constexpr char const* openItem = "OpenFile";
    static constexpr char const* aboutItem = "About";
    static constexpr char const* saveItem = "SaveFileAs";
    static constexpr char const* quitItem = "Quit";
    static constexpr char const* reportItem = "Report";
    /// Tools; their names are those of their icons.
    static constexpr char const* previousTool = "previous";
    static constexpr char const* nextTool = "next";
    static constexpr char const* surroundTool = "surrounds";
    static constexpr char const* themeTool = "theme";
    /// So do those of themes and surrounds.
    static constexpr char const* themeItem = "Theme";
    static constexpr char const* surroundItem = "Surround";

    /// "Charts" or "Table".
    static bool IsView(std::string const& name);
    void ShowNamedView(std::string const& name);
    /// What the window takes at its next update.
    void SetTheme(Utilities::String const& theme) { theme_ = theme; }
    void SetSurround(Utilities::String const& surround) { surround_ = surround; }
    Utilities::String const& GetTheme() const { return theme_; }
    Utilities::String const& GetSurround() const { return surround_; }

    /// The pane that shows one of two views, and the menu's items for them.
    static constexpr char const* views = "Views";
    static constexpr char const* chartsView = "ShowCharts";
    static constexpr char const* gridView = "ShowTable";
    static constexpr char const* sampleGrid = "SampleGrid";
    static constexpr char const* sampleTree = "SampleTree";

    long GetSelected() const { return selected_; }
    SampleDocument const& GetDocument() const { return document_; }

    /// Called with the path of a file that was dropped; the window must not go while it runs.
    void SetDropHandler(std::function<void(Utilities::String const& file)> handler) {
        dropped_ = std::move(handler);
    }
    /// Called with the element name of what was chosen in the menu, unless it concerns the samples.
    void SetCommandHandler(std::function<void(Utilities::String const& name)> handler) {
        command_ = std::move(handler);
    }
    /// Called when the charts are painted for the first time.
    void SetFirstPaintHandler(std::function<void()> handler) { firstPaint_ = std::move(handler); }

private:
    Utilities::Anything GetMenuValue(Utilities::String const& item, Utilities::String const& key) const;
    long OnMenuItem(Utilities::Anything const& name);
    long OnTabChanged(Utilities::Anything const& tab);
    Utilities::Anything GetPatchValue(Utilities::String const& element, Utilities::String const& key) const;
    Utilities::Anything GetCurveValue(Utilities::String const& key) const;
    Utilities::Anything GetLabChartValue(Utilities::String const& key) const;
    Utilities::Anything GetDetail(Utilities::String const& element, Utilities::String const& key) const;
    Utilities::Anything GetSpot(long sample) const;
    Utilities::Anything GetCurve(long sample) const;
    long OnPatchClicked(Utilities::Anything const& element);
    void SelectNearest(double a, double b);

    /// Index of a patch's sample, -1 for a name of another form or beyond the samples.
    long SampleOfPatch(Utilities::String const& element) const;
    std::string PatchName(long sample) const;
    /// What is dragged out of a patch or a chart.
    Utilities::Anything GetDragData(Utilities::String const& element) const;
    static Utilities::Anything GetNumber(Utilities::String const& element, std::array<double, 3> const& lab);
    /// "Sample 5 of 34".
    std::string PositionText() const;
    /// "1 to 2800 of 100000", empty if all samples are shown.
    std::string PageText() const;
    void UpdateCharts();
    /// Everything that shows the selected sample's texts.
    void UpdateDetails();
    void OnTextsChanged(long sample);
    static GUI::GUIElement* FindCopied(Utilities::String const& element);
    /// What the property inspector shows of an element that is no sample.
    Utilities::Anything GetProperties(Utilities::String const& element) const;
    /// Shows the charts or the table.
    void ShowView(Utilities::String const& view);
    void UpdateGrid();
    void TakeGridValue(Utilities::String const& key, Utilities::Anything const& value);
    std::string ToolTip(long sample) const;
    /// How far out the a*b* plane is shown.
    static short RangeOf(SampleDocument const& document);
    ShownSample const& At(long sample) const {
        return document_.GetSamples()[static_cast<std::size_t>(sample)];
    }
    long Count() const { return static_cast<long>(document_.GetSamples().size()); }

    SampleDocument document_;
    SampleEdits edits_{document_};
    SampleGrid grid_{document_.GetSamples()};
    SampleTree tree_{document_};
    Utilities::String view_;
    SamplePages pages_;
    long columns_;
    long rows_;
    short labRange_;
    /// What the charts show, as they told it; empty for the whole.
    Utilities::Anything curveView_ = "";
    Utilities::Anything labView_ = "";
    double reflectanceEnd_;
    long selected_ = -1;
    Utilities::String theme_ = "Light";
    Utilities::String surround_ = "Theme";
    std::function<void()> firstPaint_;
    std::function<void(Utilities::String const&)> dropped_;
    std::function<void(Utilities::String const&)> command_;
};

} // namespace ColourDesk
