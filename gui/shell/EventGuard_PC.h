#pragma once

#include "gui/elements/Application.h"

#include <exception>

namespace GUI {

/// The edge that no exception crosses into the platform's dispatch: what escapes `handler` goes to
/// `Application::OnException`. Gives the handler's answer, false if it threw.
template <class Handler> bool RunGuarded(Handler handler) noexcept {
    try {
        return handler();
    } catch (...) {
        Application::Instance().OnException(std::current_exception());
        return false;
    }
}

} // namespace GUI
