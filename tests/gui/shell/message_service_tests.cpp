#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/shell/MessageService_PC.h"
#include "tests/support/FunctionCallback.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <malloc.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using GUI::MessageService_PC;
using Tests::MakeCallback;
using Utilities::Anything;

/// An application whose events are filtered as the system's own application filters them.
class Application : public QObject {
public:
    explicit Application(MessageService_PC& service) : service_(service) {
        application_.installEventFilter(this);
        service_.ScheduleDelivery();
    }

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (receiver != &application_ || !service_.IsWakeUp(event)) return false;
        ++wakeUps;
        try {
            service_.DeliverPosted();
        } catch (std::runtime_error const&) {
            ++exceptions;
        }
        return true;
    }
    /// Runs the loop until it was idle for a moment.
    static void RunUntilIdle() {
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec();
    }

    int wakeUps = 0;
    int exceptions = 0;

private:
    MessageService_PC& service_;
    int argumentCount_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    QCoreApplication application_{argumentCount_, arguments_.data()};
};

/// Notes the numbers that arrive under the name "Number".
struct Recorder {
    explicit Recorder(MessageService_PC& service) {
        service.SetCallback("Number", MakeCallback([this](Anything const& value) {
                                numbers.push_back(value.GetLong());
                                return 0L;
                            }));
    }
    std::vector<long> numbers;
};

void PostFromThread(MessageService_PC& service, long first, long last) {
    std::thread([&] {
        for (long i = first; i <= last; ++i) service.PostMessage("Number", i);
    }).join();
}

using Numbers = std::vector<long>;

TEST(MessageService, SendsToOneCallbackForEachName) {
    MessageService_PC service;
    EXPECT_EQ(service.SendMessage("nobody", {}), 0);
    service.RemoveCallback("nobody at all");
    service.SetCallback("A", MakeCallback([](Anything const&) { return 1L; }));
    service.SetCallback("A", MakeCallback([&](Anything const& value) {
                            service.RemoveCallback("A");
                            return value.GetLong();
                        }));
    EXPECT_EQ(service.SendMessage("A", 7L), 7);
    EXPECT_EQ(service.SendMessage("A", 7L), 0);
}

TEST(MessageService, ASuspendedServiceDropsWhatIsPosted) {
    MessageService_PC service;
    Recorder recorder(service);
    service.Resume();
    service.PostMessage("Number", 1L);
    service.Suspend();
    service.Suspend();
    service.PostMessage("Number", 2L);
    service.SendMessage("Number", 3L);
    service.Resume();
    service.PostMessage("Number", 4L);
    service.DeliverPosted();
    service.Resume();
    service.Resume();
    service.PostMessage("Number", 5L);
    service.DeliverPosted();
    EXPECT_EQ(recorder.numbers, (Numbers{3, 1, 5}));
}

TEST(MessageService, TheLoopDeliversInOrderWithFewWakeUps) {
    MessageService_PC service;
    EXPECT_EQ(service.GetMessageID(), 0) << "there is no application yet";
    Recorder recorder(service);
    Application application(service);
    EXPECT_GE(service.GetMessageID(), QEvent::User);
    PostFromThread(service, 1, 1000);
    EXPECT_TRUE(recorder.numbers.empty());
    Application::RunUntilIdle();
    ASSERT_EQ(recorder.numbers.size(), 1000U);
    EXPECT_TRUE(std::is_sorted(recorder.numbers.begin(), recorder.numbers.end()));
    EXPECT_LE(application.wakeUps, 2);
}

TEST(MessageService, APostedValueSharesNothingWithItsSender) {
    MessageService_PC service;
    Anything::MapOfAnythings record;
    record["text"] = Anything("a text that is too long to be stored in place");
    Anything const sent(record);
    void const* received = nullptr;
    service.SetCallback("Record", MakeCallback([&](Anything const& value) {
                            EXPECT_EQ(value, sent);
                            received = &value.GetMapOfAnythings()["text"].GetString();
                            return 0L;
                        }));
    service.PostMessage("Record", sent);
    service.DeliverPosted();
    EXPECT_NE(received, nullptr);
    EXPECT_NE(received, &sent.GetMapOfAnythings()["text"].GetString());
}

TEST(MessageService, MessagesWaitForAnApplicationAndOutliveOne) {
    MessageService_PC service;
    Recorder recorder(service);
    PostFromThread(service, 1, 2);
    {
        Application const application(service);
        PostFromThread(service, 3, 3);
        // Dies with the wake-up undelivered.
    }
    Application const application(service);
    Application::RunUntilIdle();
    EXPECT_EQ(recorder.numbers, (Numbers{1, 2, 3}));
}

TEST(MessageService, ACallbackThatThrowsLosesNothing) {
    MessageService_PC service;
    Recorder recorder(service);
    service.SetCallback("Throw",
                        MakeCallback([](Anything const&) -> long { throw std::runtime_error("x"); }));
    Application application(service);
    for (long i = 0; i < 3; ++i) {
        service.PostMessage("Number", i);
        service.PostMessage("Throw", {});
    }
    Application::RunUntilIdle();
    EXPECT_EQ(recorder.numbers, (Numbers{0, 1, 2}));
    EXPECT_EQ(application.exceptions, 3);
}

TEST(MessageService, ALoopInsideACallbackGoesOnDelivering) {
    MessageService_PC service;
    Recorder recorder(service);
    service.SetCallback("Modal", MakeCallback([&](Anything const&) {
                            QEventLoop loop;
                            service.SetCallback("Close", MakeCallback([&](Anything const&) {
                                                    loop.quit();
                                                    return 0L;
                                                }));
                            QTimer::singleShot(5000, &loop, &QEventLoop::quit);
                            PostFromThread(service, 3, 3);
                            service.PostMessage("Close", {});
                            loop.exec();
                            EXPECT_EQ(recorder.numbers, (Numbers{1, 2, 3}));
                            return 0L;
                        }));
    Application const application(service);
    service.PostMessage("Number", 1L);
    service.PostMessage("Modal", {});
    service.PostMessage("Number", 2L);
    Application::RunUntilIdle();
    EXPECT_EQ(recorder.numbers.size(), 3U);
}

TEST(MessageService, ABoundedSenderChoosesWhatBecomesOfTooMany) {
    using WhenFull = GUI::PostBound::WhenFull;
    MessageService_PC service;
    Recorder recorder(service);
    auto const post = [&service](WhenFull whenFull, long first, long last) {
        std::vector<long> refused;
        for (long i = first; i <= last; ++i)
            if (!service.PostMessageWithin({3, whenFull, 50}, "Number", i)) refused.push_back(i);
        return refused;
    };
    EXPECT_EQ(post(WhenFull::Refuse, 1, 5), (Numbers{4, 5}));
    EXPECT_EQ(post(WhenFull::DropOldest, 6, 7), Numbers());
    EXPECT_EQ(post(WhenFull::Wait, 8, 8), Numbers{8}) << "the GUI thread can't wait for itself";
    service.PostMessage("Number", 9L);
    std::vector<long> refused;
    std::thread([&] { refused = post(WhenFull::Wait, 10, 10); }).join();
    EXPECT_EQ(refused, Numbers{10}) << "nobody made room in time";
    service.DeliverPosted();
    EXPECT_EQ(recorder.numbers, (Numbers{3, 6, 7, 9}));

    recorder.numbers.clear();
    std::atomic<bool> done = false;
    std::thread waiting([&] {
        for (long i = 0; i < 1000; ++i)
            if (!service.PostMessageWithin({3, WhenFull::Wait, 10000}, "Number", i)) refused.push_back(i);
        done = true;
    });
    while (!done || recorder.numbers.size() < 1000) service.DeliverPosted();
    waiting.join();
    EXPECT_EQ(refused, Numbers{10});
    EXPECT_TRUE(std::is_sorted(recorder.numbers.begin(), recorder.numbers.end()));

    service.Suspend();
    EXPECT_EQ(post(WhenFull::DropOldest, 1, 1), Numbers{1});
}

TEST(MessageService, ABlockedLoopMakesNoSenderSwellAndIsReported) {
    MessageService_PC service;
    Recorder recorder(service);
    std::vector<std::string> reports;
    auto const former = Diagnostics::SetSink(
        [&](auto const&, auto const& what) { reports.emplace_back(what.GetCharPointer()); });
    Anything::VectorOfAnythings large(1000);
    for (Anything& each : large) each = 1.0;
    auto const before = ::mallinfo2().uordblks;
    for (int i = 0; i < 5000; ++i)
        service.PostMessageWithin({10, GUI::PostBound::WhenFull::DropOldest}, "Curve", large);
    EXPECT_LT(::mallinfo2().uordblks - before, 2U << 20U);
    EXPECT_TRUE(reports.empty());
    for (long i = 0; i < 250000; ++i) service.PostMessage("Number", i);
    Diagnostics::SetSink(former);
    EXPECT_EQ(reports, (std::vector<std::string>{"100000 messages wait for the message loop",
                                                 "200000 messages wait for the message loop"}));
    service.DeliverPosted();
    EXPECT_EQ(recorder.numbers.size(), 250000U);
}

TEST(MessageService, NamesThatNobodyTakesAreNotKept) {
    MessageService_PC service;
    auto const before = ::mallinfo2().uordblks;
    for (int i = 0; i < 20000; ++i)
        EXPECT_EQ(service.SendMessage(("name " + std::to_string(i)).c_str(), {}), 0);
    EXPECT_LT(::mallinfo2().uordblks, before + 100000);
}

TEST(MessageService, EightThreadsLoseNothingAndKeepTheirOrder) {
    constexpr long threads = 8;
    constexpr long each = 125000;
    MessageService_PC service;
    Application const application(service);
    std::array<long, threads> next{};
    long arrived = 0;
    long wrong = 0;
    QEventLoop loop;
    service.SetCallback("Count", MakeCallback([&](Anything const& value) {
                            long const number = value.GetLong();
                            long& expected = next[static_cast<std::size_t>(number / each)];
                            wrong += number % each != expected++;
                            if (++arrived == threads * each) loop.quit();
                            return 0L;
                        }));
    std::vector<std::thread> posting;
    for (long t = 0; t < threads; ++t)
        posting.emplace_back([&service, t] {
            for (long i = 0; i < each; ++i) service.PostMessage("Count", t * each + i);
        });
    loop.exec();
    for (std::thread& thread : posting) thread.join();
    Application::RunUntilIdle();
    EXPECT_EQ(arrived, threads * each);
    EXPECT_EQ(wrong, 0);
}

} // namespace
