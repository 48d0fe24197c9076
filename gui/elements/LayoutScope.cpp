#include "gui/elements/LayoutScope.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/GUIElement.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace GUI {

namespace {

int depth = 0;
bool asking = false;

std::vector<GUIElement*>& Asked() {
    static std::vector<GUIElement*> asked;
    return asked;
}

} // namespace

LayoutScope::LayoutScope() { ++depth; }

LayoutScope::~LayoutScope() {
    if (--depth != 0 || asking) return;
    constexpr int rounds = 4;
    asking = true;
    for (int round = 0; round < rounds && !Asked().empty(); ++round)
        for (std::size_t left = Asked().size(); left != 0 && !Asked().empty(); --left) {
            GUIElement& window = *Asked().front();
            Asked().erase(Asked().begin());
            try {
                CallScope const call(window);
                if (call.IsAttached()) window.RecalculateSize();
            } catch (...) {
                Diagnostics::DropException("LayoutScope: another layout");
            }
        }
    Asked().clear();
    asking = false;
}

bool LayoutScope::IsRunning() { return depth != 0; }

void LayoutScope::AskAgain(GUIElement& window) {
    if (std::find(Asked().begin(), Asked().end(), &window) == Asked().end()) Asked().push_back(&window);
}

void LayoutScope::Forget(GUIElement const& window) { std::erase(Asked(), &window); }

} // namespace GUI
