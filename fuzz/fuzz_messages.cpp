// The switchboard of messages: any sequence of its operations, with callbacks that use it again. What is
// delivered under one name comes in the order in which it was posted, and nothing comes that was not posted.
#include "Diagnostics/Sink.h"
#include "gui/shell/MessageService_PC.h"
#include "tests/support/FunctionCallback.h"

#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

namespace {

void Require(bool held) {
    if (!held) std::abort();
}

class Session {
public:
    explicit Session(std::string_view input) : rest_(input) {}

    void Run() {
        while (!rest_.empty()) Step();
        while (service_.IsSuspended()) service_.Resume();
        service_.DeliverPosted();
        service_.DeliverPosted();
    }

private:
    std::uint8_t Byte() {
        if (rest_.empty()) return 0;
        auto const byte = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    std::string Name() {
        char const* const names[] = {
            "", "a", "b", "Key", "NVBMessageService", "a long name that isn't kept in place"};
        auto const choice = Byte();
        if (choice % 8 < std::size(names)) return names[choice % 8];
        std::string const name(rest_.substr(0, choice / 8));
        rest_.remove_prefix(name.size());
        return name;
    }
    long Arrived(std::string const& name, Utilities::Anything const& value) {
        long const number = value.GetLong();
        if (number >= 0) {
            Require(number < posted_);
            auto const [last, first] = last_.try_emplace(name, -1);
            Require(number > last->second);
            last->second = number;
        }
        if (++depth_ < 4 && !rest_.empty()) Step();
        --depth_;
        return 1;
    }
    void Listen(std::string const& name) {
        service_.SetCallback(name, Tests::MakeCallback([this, name](Utilities::Anything const& value) {
                                 return Arrived(name, value);
                             }));
    }
    void Step() {
        auto const operation = Byte() % 9;
        std::string const name = Name();
        switch (operation) {
        case 0:
            Listen("bounded " + name);
            [[fallthrough]];
        case 1:
            return Listen(name);
        case 2:
            return service_.RemoveCallback(name);
        case 3:
            return static_cast<void>(service_.SendMessage(name, -1L));
        case 4:
            return service_.PostMessage(name, posted_++);
        case 5: {
            GUI::PostBound const bound{Byte() % 4U, Byte() % 2 == 0 ? GUI::PostBound::WhenFull::DropOldest
                                                                    : GUI::PostBound::WhenFull::Refuse};
            // A value that moves up takes the place of the dropped one, before messages of the other kind.
            return static_cast<void>(service_.PostMessageWithin(bound, "bounded " + name, posted_++));
        }
        case 6:
            return service_.Suspend();
        case 7:
            if (service_.IsSuspended()) service_.Resume();
            return;
        default:
            return service_.DeliverPosted();
        }
    }

    std::string_view rest_;
    GUI::MessageService_PC service_;
    std::map<std::string, long> last_;
    long posted_ = 0;
    int depth_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Diagnostics::SetSink({});
    Session({reinterpret_cast<char const*>(data), size}).Run();
    return 0;
}
