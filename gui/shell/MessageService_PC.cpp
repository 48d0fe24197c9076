#include "gui/shell/MessageService_PC.h"

#include "Diagnostics/Sink.h"
#include "Diagnostics/Unstoppable.h"
#include "core/creators/ComponentCreator.h"

#include <QCoreApplication>
#include <QEvent>

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

void MessageService_PC::PostMessage(String const& name, Anything const& value) {
    if (IsSuspended()) return;
    Posted message{String(name), value.Detached()};
    Utilities::MutexLock const inSequence(sequence_, lockTimeoutMilliseconds);
    if (!inSequence.IsHeld()) {
        Diagnostics::Report("MessageService::PostMessage", "message dropped: the lock is not to be had");
        return;
    }
    // Neither the queue's lock nor the platform's is freed with a thread that is stopped by force.
    Utilities::Unstoppable const whole;
    std::lock_guard const lock(queueGuard_);
    queue_.push_back(std::move(message));
    WakeUp();
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
        }
        // Should the first callback throw or run a loop of its own, the rest must not wait for it.
        if (batch_.size() - next_ + queue_.size() > 1) WakeUp();
    }
    while (next_ < batch_.size()) {
        Posted const message = std::move(batch_[next_++]);
        SendMessage(message.name, message.value);
    }
}

} // namespace GUI
