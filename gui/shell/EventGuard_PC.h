#pragma once

#include "gui/elements/CallScope.h"
#include "gui/elements/application/Application.h"

#include <QThread>
#include <exception>

namespace GUI {

/// The edge that no exception crosses into Qt's dispatch: what escapes `handler` goes to
/// `Application::OnException`. Gives the handler's answer, false if it threw.
template <class Handler> bool RunGuarded(Handler handler) noexcept {
    try {
        return handler();
    } catch (...) {
        Application::Instance().OnException(std::current_exception());
        return false;
    }
}

/// Every event of a window of ours runs in this: elements that it releases are destroyed at its end.
template <class Handler> void RunEvent(Handler handler) {
    EventScope const scope(QThread::currentThread()->loopLevel());
    handler();
}

/// The same for what isn't told by an event, such as a signal of a native control or a posted message. The
/// element lives on while the handler runs.
template <class Handler> bool RunGuardedEvent(GUIElement const& element, Handler handler) noexcept {
    EventScope const scope(QThread::currentThread()->loopLevel());
    CallScope const call(element);
    return RunGuarded(handler);
}

/// Deletes a widget of a released element: at once where none of its events can be on the stack.
inline void DeleteWhenIdle(QObject& widget) {
    if (!EventScope::IsActive() && QThread::currentThread()->loopLevel() == 0)
        delete &widget;
    else
        widget.deleteLater();
}

} // namespace GUI
