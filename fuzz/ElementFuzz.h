#pragma once

#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "Utilities/NamingService.h"
#include "gui/elements/CallScope.h"
#include "gui/elements/CallbackTable.h"
#include "gui/elements/DialogDataSource.h"
#include "gui/elements/Pane.h"
#include "gui/elements/description/Attributes.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/RecordingDeviceContext.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

/// What the fuzz targets of elements share.
namespace Fuzz {

/// Takes an input apart; behind its end all choices are 0.
class Choices {
public:
    Choices(std::uint8_t const* data, std::size_t size) : rest_(reinterpret_cast<char const*>(data), size) {}

    bool AtEnd() const { return rest_.empty(); }
    std::uint8_t Byte() {
        if (rest_.empty()) return 0;
        auto const byte = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    std::size_t Below(std::size_t count) { return count == 0 ? 0 : Byte() % count; }
    std::string Text() {
        std::string const text(rest_.substr(0, Byte() % 24U));
        rest_.remove_prefix(std::min(text.size(), rest_.size()));
        return text;
    }
    std::string Rest() { return std::string(std::exchange(rest_, {})); }

    /// A number as attributes, sizes and answers have it, mostly an odd one.
    double Number() {
        constexpr double numbers[] = {0,
                                      1,
                                      2,
                                      5,
                                      10,
                                      100,
                                      255,
                                      32767,
                                      65535,
                                      65536,
                                      -1,
                                      0.5,
                                      -0.0,
                                      1e9,
                                      2147483647,
                                      -2147483648,
                                      4294967295,
                                      1e300,
                                      std::numeric_limits<double>::quiet_NaN(),
                                      std::numeric_limits<double>::infinity()};
        auto const byte = Byte();
        return byte < 128 ? byte : numbers[byte % std::size(numbers)];
    }
    Utilities::Anything Answer(int depth = 0) {
        using Utilities::Anything;
        switch (Byte() % (depth < 2 ? 9U : 7U)) {
        case 0:
            return {};
        case 1:
            return Anything(Byte() % 2 == 0);
        case 2:
            return Anything(static_cast<long>(static_cast<std::int8_t>(Byte())));
        case 3:
            return Anything(Number());
        case 4:
            return Text().c_str();
        case 5:
            return GUI::RGBVector(Byte(), Byte(), Byte()).GetAnything();
        case 6:
            return Anything(static_cast<short>(Byte()));
        case 7: {
            Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(Below(20)));
            for (std::uint32_t i = 0; i < vector.GetSize(); ++i) vector[i] = Answer(depth + 1);
            return {vector};
        }
        default: {
            GUI::AttributeMap map;
            for (auto i = Below(5); i > 0; --i) map[Text()] = Answer(depth + 1);
            return {map};
        }
        }
    }

private:
    std::string_view rest_;
};

/// Answers as the input says, and now and then does what a host may do inside a question.
class RandomSource : public GUI::DialogDataSource {
public:
    explicit RandomSource(Choices& choices) : choices_(choices) {}

    std::function<void(std::size_t)> strike;

    void SetValue(Utilities::String const&, Utilities::String const&, Utilities::Anything const&) override {
        Called();
    }
    Utilities::Anything GetValue(Utilities::String const&, Utilities::String const&) override {
        Called();
        return choices_.AtEnd() ? Utilities::Anything() : choices_.Answer();
    }
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override {
        callbacks_.Set(element, name, callback);
    }
    Utilities::Callback GetCallback(Utilities::String const& element,
                                    Utilities::String const& name) override {
        auto const registered = callbacks_.Find(element, name);
        if (registered.IsValid() || choices_.AtEnd()) return registered;
        return Tests::MakeCallback([this](Utilities::Anything const&) { return Called(), 1L; });
    }
    void RemoveAllCallbacks(Utilities::String const& element) override { callbacks_.Remove(element); }

private:
    void Called() {
        constexpr std::uint8_t rarely = 16;
        if (strike && !choices_.AtEnd() && choices_.Byte() < rarely) strike(choices_.Below(5));
    }

    Choices& choices_;
    GUI::CallbackTable callbacks_;
};

/// Small bounds, so that no input takes long for an honest reason.
inline void SetLimits() {
    Utilities::Limits limits;
    limits.elements = 3000;
    limits.unrolledBytes = 200'000;
    limits.textLength = 20'000;
    Utilities::Limits::Set(limits);
    Diagnostics::SetSink([](auto const&, auto const&) {});
}

/// What the contracts let escape reaches the caller, and nothing else may happen.
template <class Call> void Try(Call call) {
    GUI::EventScope const event;
    try {
        call();
    } catch (std::exception const&) {
    }
}

inline void Require(bool held, char const* what) {
    if (held) return;
    std::fprintf(stderr, "violated: %s\n", what);
    std::abort();
}

/// After an input nothing of it may be left.
inline void RequireNothingLeft() {
    GUI::ReleasedElements::DestroyIdle();
    Require(GUI::ReleasedElements::GetCount() == 0, "nothing waits to be destroyed");
    Require(GUI::GUIElement::GetLivingCount() == 0, "no element stays behind");
}

} // namespace Fuzz
