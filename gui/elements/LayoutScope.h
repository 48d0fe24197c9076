#pragma once

namespace GUI {

class GUIElement;

/// A layout on its way down the tree. An element whose content changes meanwhile asks for another layout,
/// which would be overwritten by the rest of this one: its window lets the outermost scope ask again.
///
/// GUI thread only; scopes end in the reverse order of their beginning.
class LayoutScope {
public:
    LayoutScope();
    LayoutScope(LayoutScope const&) = delete;
    LayoutScope& operator=(LayoutScope const&) = delete;
    /// At the end of the outermost scope each window that asked gets its `RecalculateSize`. Elements that
    /// ask at every layout are given up after a few rounds.
    ~LayoutScope();

    static bool IsRunning();
    static void AskAgain(GUIElement& window);
    /// A window that goes away.
    static void Forget(GUIElement const& window);
};

} // namespace GUI
