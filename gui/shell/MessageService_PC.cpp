#include "gui/shell/MessageService_PC.h"

#include "Diagnostics/Sink.h"
#include "Diagnostics/Unstoppable.h"
#include "core/creators/ComponentCreator.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <chrono>
#include <thread>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

Utilities::ComponentCreatorSingleton<MessageService_PC> creator({"MessageService", "$Revision: 1.9 $",
                                                                 "GUI"});

constexpr long lockTimeoutMilliseconds = 250000;
/// A burst's memory is kept for the next one up to this size.
constexpr std::size_t largestKeptBatch = 4096;

class WakeUpEvent : public QEvent {
public:
    WakeUpEvent(Type type, std::shared_ptr<std::atomic<QEvent const*>> underWay)
        : QEvent(type), underWay_(std::move(underWay)) {}
    ~WakeUpEvent() override {
        QEvent const* self = this;
        underWay_->compare_exchange_strong(self, nullptr);
    }
    WakeUpEvent(WakeUpEvent const&) = delete;
    WakeUpEvent& operator=(WakeUpEvent const&) = delete;

private:
    std::shared_ptr<std::atomic<QEvent const*>> underWay_;
};

} // namespace

MessageService_PC::MessageService_PC()
    : sequence_("Local\\NVBMessageService"),
      underWay_(std::make_shared<std::atomic<QEvent const*>>(nullptr)) {
    GetMessageID();
}

MessageService_PC::~MessageService_PC() {
    // Their class goes with the plug-in.
    if (auto* const application = QCoreApplication::instance(); application && messageID_ != 0)
        QCoreApplication::removePostedEvents(application, messageID_);
}

long MessageService_PC::GetMessageID() {
    if (messageID_ == 0 && QCoreApplication::instance()) {
        std::lock_guard const lock(registering_);
        if (messageID_ == 0) messageID_ = QEvent::registerEventType();
    }
    return messageID_;
}

/// Runs `add` with the queue locked; false if that can't be. Nobody is told anything under a lock.
template <class Add> bool MessageService_PC::PostInSequence(Add add) {
    std::size_t waiting = 0;
    {
        Utilities::MutexLock const inSequence(sequence_, lockTimeoutMilliseconds);
        if (!inSequence.IsHeld()) {
            Diagnostics::Report("MessageService::PostMessage",
                                "message dropped: timed out waiting for the lock");
            return false;
        }
        // Neither the queue's lock nor the platform's is freed with a thread that is stopped by force.
        Utilities::Unstoppable const whole;
        std::lock_guard const lock(queueGuard_);
        add();
        if (queue_.size() >= tellAt_) {
            waiting = tellAt_;
            tellAt_ *= 2;
        }
    }
    if (waiting != 0)
        Diagnostics::Report("MessageService::PostMessage",
                            (std::to_string(waiting) + " messages wait for the message loop").c_str());
    return true;
}

void MessageService_PC::Enqueue(Posted message) {
    queue_.push_back(std::move(message));
    WakeUp();
}

void MessageService_PC::PostMessage(String const& name, Anything const& value) {
    if (IsSuspended()) return;
    Posted message{String(name), value.Detached()};
    PostInSequence([&] { Enqueue(std::move(message)); });
}

MessageService_PC::Taken MessageService_PC::AddWithin(PostBound const& bound, String const& name,
                                                      Anything& value) {
    auto& values = bounded_[name.GetStdString()];
    bool const isFull = values.size() >= std::max<std::size_t>(bound.messages, 1);
    if (isFull && bound.whenFull != PostBound::WhenFull::DropOldest) return Taken::Full;
    values.push_back(std::move(value));
    if (isFull) {
        values.pop_front();
        return Taken::Replaced;
    }
    Enqueue({String(name), {}, true});
    return Taken::Queued;
}

bool MessageService_PC::PostMessageWithin(PostBound const& bound, String const& name, Anything const& value) {
    using Clock = std::chrono::steady_clock;
    bool const mayWait =
        bound.whenFull == PostBound::WhenFull::Wait && std::this_thread::get_id() != guiThread_;
    auto const end = Clock::now() + std::chrono::milliseconds(mayWait ? bound.waitMilliseconds : 0);
    Anything own = value.Detached();
    for (;;) {
        if (IsSuspended()) return false;
        Taken taken = Taken::Dropped;
        PostInSequence([&] { taken = AddWithin(bound, name, own); });
        if (taken != Taken::Full) return taken != Taken::Dropped;
        if (Clock::now() >= end) return false;
        // A thread that is stopped by force while it waits leaves nothing behind, as it would in a condition.
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

/// False if it has been taken back.
bool MessageService_PC::TakeBoundedValue(Posted& message) {
    std::lock_guard const lock(queueGuard_);
    auto const found = bounded_.find(message.name.GetStdString());
    if (found == bounded_.end() || found->second.empty()) return false;
    message.value = std::move(found->second.front());
    found->second.pop_front();
    if (found->second.empty()) bounded_.erase(found);
    return true;
}

void MessageService_PC::ScheduleDelivery() {
    std::lock_guard const lock(queueGuard_);
    if (!queue_.empty()) WakeUp();
}

void MessageService_PC::WakeUp() {
    if (underWay_->load()) return;
    auto* const application = QCoreApplication::instance();
    if (!application) return;
    auto event = std::make_unique<WakeUpEvent>(static_cast<QEvent::Type>(GetMessageID()), underWay_);
    underWay_->store(event.get());
    QCoreApplication::postEvent(application, event.release());
}

void MessageService_PC::DeliverPosted() {
    {
        std::lock_guard const lock(queueGuard_);
        underWay_->store(nullptr);
        if (next_ == batch_.size()) {
            batch_.clear();
            if (batch_.capacity() > largestKeptBatch) batch_ = {};
            next_ = 0;
            batch_.swap(queue_);
            tellAt_ = firstTold;
        }
        // Should the first callback throw or run a loop of its own, the rest must not wait for it.
        if (batch_.size() - next_ + queue_.size() > 1) WakeUp();
    }
    while (next_ < batch_.size()) {
        Posted message = std::move(batch_[next_++]);
        if (message.isBounded && !TakeBoundedValue(message)) continue;
        SendMessage(message.name, message.value);
    }
}

} // namespace GUI
