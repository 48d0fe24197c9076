#pragma once

#include "Utilities/Mutex.h"
#include "gui/elements/application/MessageService.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class QEvent;

namespace GUI {

/// Delivers posted messages through the event loop of the process's `QCoreApplication`.
///
/// Messages wait in a queue of this service; the loop gets one wake-up event, of the type
/// `GetMessageID()` and addressed to the application object, as long as messages wait. Whoever filters
/// the application's events calls `DeliverPosted` for what `IsWakeUp`. Without an application messages
/// wait, until one is there and calls `ScheduleDelivery`.
class MessageService_PC : public MessageService {
public:
    MessageService_PC();
    ~MessageService_PC() override;

    /// Safe on any thread. Serialised by the mutex "NVBMessageService" of this process; dropped if that
    /// isn't free within 250 seconds.
    void PostMessage(Utilities::String const& name, Utilities::Anything const& value) override;
    bool PostMessageWithin(PostBound const& bound, Utilities::String const& name,
                           Utilities::Anything const& value) override;

    /// Type of the wake-up event; registered when there is an application, 0 before.
    long GetMessageID();
    /// Whether this is the wake-up event under way. It tells by the event's identity, so that nothing is
    /// read that another thread wrote.
    bool IsWakeUp(QEvent const* event) const { return event == underWay_->load(); }

    /// With so many messages waiting, and at each doubling, the diagnostics sink is told.
    static constexpr std::size_t firstTold = 100000;

    /// Has the loop deliver what was posted when there was no application.
    void ScheduleDelivery();

    /// Sends what was posted before this call, in order. A callback may throw: the exception passes, and
    /// the rest is delivered by the next wake-up, which is already on its way. It may also run an event
    /// loop of its own, which goes on with the rest. GUI thread only.
    void DeliverPosted();

private:
    struct Posted {
        Utilities::String name;
        Utilities::Anything value;
        /// The value is the first one that waits under this name.
        bool isBounded = false;
    };
    enum class Taken : std::uint8_t { Queued, Replaced, Full, Dropped };

    template <class Add> bool PostInSequence(Add add);
    Taken AddWithin(PostBound const& bound, Utilities::String const& name, Utilities::Anything& value);
    void Enqueue(Posted message);
    bool TakeBoundedValue(Posted& message);
    void WakeUp();

    Utilities::Mutex sequence_;
    /// The service is made on it.
    std::thread::id const guiThread_ = std::this_thread::get_id();
    std::mutex registering_;
    std::atomic<int> messageID_ = 0;

    std::mutex queueGuard_;
    std::vector<Posted> queue_;
    /// The values of bounded messages that wait, by name; the queue has their places.
    std::map<std::string, std::deque<Utilities::Anything>> bounded_;
    /// The number of waiting messages at which the sink is told next.
    std::size_t tellAt_ = firstTold;
    /// The wake-up event that the loop hasn't delivered yet. Events know it too, since the platform may
    /// throw one away with its application.
    std::shared_ptr<std::atomic<QEvent const*>> underWay_;

    /// What is being delivered, from `next_` on. GUI thread only.
    std::vector<Posted> batch_;
    std::size_t next_ = 0;
};

} // namespace GUI
