// Services against floors (the same job done directly) and peers (a component that others use), measured
// in the same run: case/ours, case/floor:what, case/peer:what. Each checks its own result.

#include "Utilities/Mutex.h"
#include "Utilities/NamingService.h"
#include "gui/shell/MessageService_PC.h"
#include "services/Preferences_PC.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/TemporaryDirectory.h"

#include <QCoreApplication>
#include <QEvent>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <pthread.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Utilities::Anything;
using Utilities::String;

// ------------------------------------------------------------------ preferences

bool WriteAll(std::string const& path, std::string const& text, bool sync) {
    int const file = ::open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0644);
    if (file < 0) return false;
    bool good = ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (sync) good = good && ::fsync(file) == 0;
    return ::close(file) == 0 && good;
}

std::string ReadAll(std::string const& path) {
    std::string text;
    int const file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return text;
    char buffer[16384];
    for (ssize_t count = 0; (count = ::read(file, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    ::close(file);
    return text;
}

/// 10 sections of 10 keys in a directory of its own.
class Settings {
public:
    Settings() {
        ::setenv("XDG_CONFIG_HOME", directory_.GetPath().c_str(), 1);
        path = Utilities::Preferences_PC::GetPathToWrite().GetStdString();
        for (int section = 0; section < 10; ++section) {
            text += "[group" + std::to_string(section) + "]\n";
            for (int key = 0; key < 10; ++key)
                text += "key" + std::to_string(key) + "=value " + std::to_string(section * 10 + key) + "\n";
        }
        WriteAll(path, text, false);
    }

    std::string path;
    std::string text;

private:
    Tests::TemporaryDirectory directory_;
};

void PreferencesRead(benchmark::State& state) {
    Settings const settings;
    String const section("group7");
    String const key("key5");
    for (auto _ : state) {
        auto const preferences = Utilities::ResolveComponent<Utilities::Preferences>("Preferences");
        if (!(preferences->GetValue(section, key, "") == "value 75")) state.SkipWithError("wrong value");
    }
}

void ReadAndScan(benchmark::State& state) {
    Settings const settings;
    for (auto _ : state) {
        std::string const text = ReadAll(settings.path);
        auto const key = text.find("\nkey5=", text.find("[group7]\n"));
        if (text.substr(key + 6, text.find('\n', key + 6) - key - 6) != "value 75")
            state.SkipWithError("wrong value");
    }
}

void PreferencesWrite(benchmark::State& state) {
    Settings const settings;
    long number = 1000000;
    for (auto _ : state) {
        auto const preferences = Utilities::ResolveComponent<Utilities::Preferences>("Preferences");
        preferences->SetValue("group7", "key5", "v" + std::to_string(++number));
    }
    if (ReadAll(settings.path).find("\nkey5=v" + std::to_string(number) + "\n") == std::string::npos)
        state.SkipWithError("not written");
}

void TempAndRename(benchmark::State& state, bool sync) {
    Settings const settings;
    std::string const temporary = settings.path + ".tmp";
    long number = 1000000;
    for (auto _ : state) {
        std::string text = settings.text;
        text.replace(text.find("value 75"), 8, "v" + std::to_string(++number));
        if (!WriteAll(temporary, text, sync) || ::rename(temporary.c_str(), settings.path.c_str()) != 0)
            state.SkipWithError("not written");
    }
}

// ------------------------------------------------------------------ messages

constexpr long messages = 200000;

/// Posts all numbers from so many threads, each its share, and waits for the application's loop.
void PostFrom(int threads, std::function<void(long)> const& post) {
    std::vector<std::thread> posting;
    long const each = messages / threads;
    for (int t = 0; t < threads; ++t)
        posting.emplace_back([&post, t, each] {
            for (long i = t * each; i < (t + 1) * each; ++i) post(i);
        });
    QCoreApplication::exec();
    for (std::thread& thread : posting) thread.join();
}

/// Counts what arrives and ends the loop with the last message.
struct Arrivals {
    void Take(long number) {
        sum += number;
        if (++count == messages) QCoreApplication::quit();
    }
    bool Complete() const { return count == messages && sum == messages * (messages - 1) / 2; }

    long count = 0;
    long sum = 0;
};

class WakeUpFilter : public QObject {
public:
    explicit WakeUpFilter(GUI::MessageService_PC& service) : service_(service) {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (!service_.IsWakeUp(event)) return false;
        service_.DeliverPosted();
        return true;
    }

private:
    GUI::MessageService_PC& service_;
};

void MessagesPost(benchmark::State& state, int threads) {
    GUI::MessageService_PC service;
    WakeUpFilter const filter(service);
    for (auto _ : state) {
        Arrivals arrivals;
        service.SetCallback("Measured", Tests::MakeCallback([&](Anything const& value) {
                                arrivals.Take(value.GetLong());
                                return 0L;
                            }));
        String const name("Measured");
        PostFrom(threads, [&](long number) { service.PostMessage(name, number); });
        if (!arrivals.Complete()) state.SkipWithError("messages lost");
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * messages);
}

class NumberEvent : public QEvent {
public:
    static constexpr Type type = static_cast<Type>(User + 1);
    explicit NumberEvent(long value) : QEvent(type), number(value) {}
    long number;
};

class Receiver : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() != NumberEvent::type) return QObject::event(event);
        arrivals.Take(static_cast<NumberEvent const*>(event)->number);
        return true;
    }
    Arrivals arrivals;
};

void PostEvent(benchmark::State& state, int threads) {
    for (auto _ : state) {
        Receiver receiver;
        PostFrom(threads, [&](long number) {
            QCoreApplication::postEvent(&receiver, std::make_unique<NumberEvent>(number).release());
        });
        if (!receiver.arrivals.Complete()) state.SkipWithError("messages lost");
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * messages);
}

// ------------------------------------------------------------------ mutexes

void MutexByName(benchmark::State& state) {
    String const name("bench");
    for (auto _ : state) {
        Utilities::Mutex mutex(name);
        if (!mutex.Lock(1000)) state.SkipWithError("not gained");
        mutex.Unlock();
    }
}

void RobustLock(benchmark::State& state) {
    pthread_mutexattr_t attributes;
    ::pthread_mutexattr_init(&attributes);
    ::pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
    pthread_mutex_t mutex;
    ::pthread_mutex_init(&mutex, &attributes);
    for (auto _ : state) {
        if (::pthread_mutex_lock(&mutex) != 0) state.SkipWithError("not gained");
        ::pthread_mutex_unlock(&mutex);
    }
    ::pthread_mutex_destroy(&mutex);
    ::pthread_mutexattr_destroy(&attributes);
}

void RegisterAll() {
    using benchmark::kMicrosecond;
    using benchmark::kMillisecond;
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("preferences.read/ours", PreferencesRead)->Unit(kMicrosecond);
    RegisterBenchmark("preferences.read/floor:read-and-scan", ReadAndScan)->Unit(kMicrosecond);
    RegisterBenchmark("preferences.write/ours", PreferencesWrite)->Unit(kMicrosecond)->UseRealTime();
    RegisterBenchmark("preferences.write/floor:temp-flush-and-rename", TempAndRename, true)
        ->Unit(kMicrosecond)
        ->UseRealTime();
    RegisterBenchmark("preferences.write/alt:temp-and-rename", TempAndRename, false)
        ->Unit(kMicrosecond)
        ->UseRealTime();
    for (int const threads : {1, 4}) {
        std::string const name = "messages.post-" + std::to_string(threads);
        RegisterBenchmark((name + "/ours").c_str(), MessagesPost, threads)->Unit(kMillisecond)->UseRealTime();
        RegisterBenchmark((name + "/peer:postEvent").c_str(), PostEvent, threads)
            ->Unit(kMillisecond)
            ->UseRealTime();
    }
    RegisterBenchmark("mutex.by-name/ours", MutexByName);
    RegisterBenchmark("mutex.by-name/floor:robust-lock", RobustLock);
}

} // namespace

int main(int argumentCount, char** arguments) {
    QCoreApplication const application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    RegisterAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
