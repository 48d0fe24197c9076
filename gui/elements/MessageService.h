#pragma once

#include "Utilities/Tools/Map.h"
#include "core/base/String.h"
#include "core/component/Component.h"
#include "core/values/Callback.h"

#include <atomic>
#include <cstdint>

namespace GUI {

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
    /// the order in which it posted them. While the service is suspended the message is dropped.
    virtual void PostMessage(Utilities::String const& name, Utilities::Anything const& value) = 0;
    /// Replaces what stood under that name.
    virtual void SetCallback(Utilities::String const& name, Utilities::Callback const& callback);
    /// An unknown name is no fault.
    virtual void RemoveCallback(Utilities::String const& name);
    /// Executes the callback at once and returns its result. An unknown name enters an invalid callback,
    /// which gives 0.
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
