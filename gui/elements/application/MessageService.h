#pragma once

#include "Utilities/Tools/Map.h"
#include "core/base/String.h"
#include "core/component/Component.h"
#include "core/values/Callback.h"

#include <atomic>
#include <cstdint>

namespace GUI {

/// How many messages of one name may wait for the GUI thread, and what becomes of one that is too many.
struct PostBound {
    enum class WhenFull : std::uint8_t {
        /// The sender waits for `waitMilliseconds` until there is room, then it is refused. Refused at once
        /// on
        /// the GUI thread, which nobody else could make room.
        Wait,
        /// The oldest one that waits under this name is dropped; those behind it move up.
        DropOldest,
        Refuse
    };

    std::uint32_t messages;
    WhenFull whenFull;
    long waitMilliseconds = 1000;
};

/// The process's switchboard of events: the component "MessageService", one callback for each name.
///
/// `PostMessage` is the one operation for other threads and their one way to the GUI. Everything else
/// belongs to the GUI thread.
class MessageService : public Utilities::Component {
public:
    MessageService() = default;
    MessageService(MessageService const&) = delete;
    MessageService& operator=(MessageService const&) = delete;
    ~MessageService() override;

    /// Has the message delivered by the GUI thread's message loop. The messages of one thread arrive in
    /// the order in which it posted them. While the service is suspended the message is dropped. Any number
    /// may wait; when they are very many, the diagnostics sink is told.
    virtual void PostMessage(Utilities::String const& name, Utilities::Anything const& value) = 0;
    /// The same within a bound on the messages of this name that were posted so; false if this one was
    /// dropped. Any number of them is right for a sender that makes sure of it itself; one that sends
    /// measurements as they come names a bound, since the GUI thread may be busy for long.
    virtual bool PostMessageWithin(PostBound const& bound, Utilities::String const& name,
                                   Utilities::Anything const& value) = 0;
    /// Replaces what stood under that name.
    virtual void SetCallback(Utilities::String const& name, Utilities::Callback const& callback);
    /// An unknown name is no fault.
    virtual void RemoveCallback(Utilities::String const& name);
    /// Executes the callback at once and returns its result; 0 for an unknown name.
    virtual long SendMessage(Utilities::String const& name, Utilities::Anything const& value);
    /// Holds back posting only: what was posted is delivered, and sending goes on. Counted.
    virtual void Suspend();
    virtual void Resume();

    bool IsSuspended() const { return suspendCount_ != 0; }

private:
    Utilities::Map<Utilities::String, Utilities::Callback> callbacks_;
    /// Changed by the GUI thread, read by those that post.
    std::atomic<std::uint32_t> suspendCount_ = 0;
};

} // namespace GUI
