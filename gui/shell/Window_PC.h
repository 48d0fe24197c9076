#pragma once

#include "gui/elements/DecoratedWindow.h"
#include "gui/elements/GUIElement.h"
#include "gui/shell/CNorvelianWnd.h"
#include "gui/shell/TopLevel_PC.h"

namespace GUI {

/// A main window: the root of a description.
///
/// Attributes: "ElementName" (mandatory), "Caption" ("No caption in the window description"), "Width" and
/// "Height" of the inside (mandatory), "X" and "Y", "Resizeable" (Yes), "Closeable" (Yes), "TopMost" (No).
/// Of the data source: "Visible" (bool) and "Caption" (string), when it is made and at each update.
///
/// The first child fills the window, and its size range is the window's. The place where the user left
/// the window is kept in the preferences under its name and wins over "X" and "Y".
class Window_PC : public GUIElement, public DecoratedWindow {
public:
    ~Window_PC() override;

    Diagnostics::String GetValueString() override { return "Window_PC"; }
    /// Throws `RuntimeException` "Couldn't create Window".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// Moves the window and remembers the place; a negative coordinate counts as 0.
    void SetPosition(unsigned long x, unsigned long y) override;
    /// The window of a resizeable one takes the nearest size within its limits.
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;
    void RecalculateSize() override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override;
    void RepaintDecorations() const override { top_.RepaintAll(); }

    void OnLanguageChanged() override;

    bool IsCloseable() const { return closeable_; }
    /// The user has moved the window; coordinates may be negative.
    void OnMoved(int x, int y);
    void OnResized();
    /// For those that add bars.
    TopLevel& GetTopLevel() { return top_; }

protected:
    void OnDetach() override;

private:
    void CreatePlatformWindow(PlatformIndependentWindowID const& parent, DescriptionTree const& description);
    void ApplyPlace(DescriptionTree const& description);
    void ApplyLimits();
    void ShowCaption();
    void LayOut();

    TopLevel top_{*this};
    Utilities::String caption_;
    bool resizeable_ = true;
    bool closeable_ = true;
};

} // namespace GUI
