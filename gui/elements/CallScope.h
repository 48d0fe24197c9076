#pragma once

namespace GUI {

class GUIElement;

/// Keeps an element alive during a call into it or out of it, for as long as the scope lives.
///
/// The rule for all elements: whatever an element calls may release it (a callback that rebuilds the
/// view, an answer of a data source that closes the window, a modal dialog that it opens). A released
/// element leaves the tree at once: it has no parent, no data source, no registered callbacks and no
/// window of the platform any more, and `GUIElement::IsAttached` is false. It is destroyed when the last
/// call into or out of it, or into or out of an element below it, has returned.
///
/// Calls that come from outside open a scope: events of the platform, registered callbacks. Calls to the
/// data source open one in `GUIElement::GetValue` and `GUIElement::Fire`. After any call out, a body asks
/// `IsAttached` before it uses what the release has taken away.
///
/// GUI thread only; scopes end in the reverse order of their beginning.
class CallScope {
public:
    explicit CallScope(GUIElement const& element);
    CallScope(CallScope const&) = delete;
    CallScope& operator=(CallScope const&) = delete;
    ~CallScope();

    /// The element is neither released nor destroyed.
    bool IsAttached() const;

private:
    friend class ReleasedElements;

    GUIElement const* element_;
    CallScope* outer_;
};

/// One event of the platform, or one posted message, on its way through the program. At its end the
/// elements that were released meanwhile are destroyed, except those that a call further out is still in.
/// So a modal dialog, whose events come from a loop of their own, lets nothing pile up.
class EventScope {
public:
    /// `loopLevel` is how many event loops run inside each other. An event that the platform sends while
    /// another one of the same loop is being handled destroys nothing: that one isn't over yet.
    explicit EventScope(int loopLevel = 0);
    EventScope(EventScope const&) = delete;
    EventScope& operator=(EventScope const&) = delete;
    ~EventScope();

    static bool IsActive();

private:
    int loopLevel_;
    EventScope const* outer_;
};

/// The elements that were released during a call and wait for its end. GUI thread only.
class ReleasedElements {
public:
    /// Destroys an element that nobody holds any more, or keeps it until no call is in it.
    static void Dispose(GUIElement* element);
    /// Destroys what no call is in. Called at the end of events, and by hosts without an event loop.
    static void DestroyIdle();
    static unsigned long GetCount();

private:
    friend class CallScope;
    friend class EventScope;
    friend class GUIElement;

    static GUIElement const* ParentOf(GUIElement const& element);
    static bool IsInCall(GUIElement const& element);
    /// `child` leaves `parent`'s children while it is in a call, which may have come through `parent`.
    static void KeepParentOf(GUIElement const& child, GUIElement const& parent);
    /// Nobody may find a destroyed element.
    static void Forget(GUIElement const& element);
};

} // namespace GUI
