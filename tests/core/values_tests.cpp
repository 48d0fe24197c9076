#include "Utilities/NamingService.h"
#include "core/base/TraceGuard.h"
#include "core/creators/ComponentCreator.h"
#include "core/values/Callback.h"

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <stdexcept>

namespace {

using namespace Norvelian::Utilities::Exceptions;
using testing::ElementsAre;
using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

// ------------------------------------------------------------------ exceptions

template <class E> std::function<void()> Throw(E const& failure) {
    return [failure] { throw failure; };
}

/// Whether `body` throws exactly that class through a guard, with that text.
template <class Expected>
testing::AssertionResult Becomes(std::function<void()> const& body, char const* text) {
    try {
        Traced({"C", "f", "file", 7}, body);
    } catch (Expected const& failure) {
        if (typeid(failure) == typeid(Expected) && failure.Expected::what() == std::string(text))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << typeid(failure).name() << ": " << failure.what();
    } catch (std::exception const& failure) {
        return testing::AssertionFailure() << typeid(failure).name();
    }
    return testing::AssertionFailure() << "nothing thrown";
}

TEST(TraceGuard, ConvertsByTheMostDerivedMatch) {
    EXPECT_TRUE(Becomes<OverflowException>(Throw(std::overflow_error("x")), "x"));
    EXPECT_TRUE(Becomes<UnderflowException>(Throw(std::underflow_error("x")), "x"));
    EXPECT_TRUE(Becomes<RangeException>(Throw(std::range_error("x")), "x"));
    EXPECT_TRUE(Becomes<RuntimeException>(Throw(std::runtime_error("x")), "x"));
    EXPECT_TRUE(Becomes<OutOfRangeException>(Throw(std::out_of_range("x")), "x"));
    EXPECT_TRUE(Becomes<LengthException>(Throw(std::length_error("x")), "x"));
    EXPECT_TRUE(Becomes<InvalidArgumentException>(Throw(std::invalid_argument("x")), "x"));
    EXPECT_TRUE(Becomes<DomainException>(Throw(std::domain_error("x")), "x"));
    EXPECT_TRUE(Becomes<LogicException>(Throw(std::logic_error("x")), "x"));
    EXPECT_TRUE(Becomes<BadAllocException>(Throw(std::bad_alloc()), "std::bad_alloc"));
    EXPECT_TRUE(Becomes<BadCastException>(Throw(std::bad_cast()), "std::bad_cast"));
    EXPECT_TRUE(Becomes<BadTypeidException>(Throw(std::bad_typeid()), "std::bad_typeid"));
    EXPECT_TRUE(Becomes<RuntimeException>(Throw(std::exception()), "std::exception std::exception"));
    EXPECT_TRUE(Becomes<RuntimeException>(Throw(42), "unkown exception caught"));
}

TEST(TraceGuard, CollectsPlacesOnOneObject) {
    try {
        Traced({"Outer", "g", "o.cpp", 2}, [] {
            Traced({"Inner", "f", "i.cpp", 1}, [] { throw ResourceNotAvailableException("gone", "start"); });
        });
    } catch (TraceableException const& failure) {
        EXPECT_THAT(failure.GetTrace(), ElementsAre("start", "Inner::f(): i.cpp:1", "Outer::g(): o.cpp:2"));
        EXPECT_STREQ(failure.what(), "gone");
        TraceableException::use_implicite_stack_trace(true);
        EXPECT_STREQ(failure.what(), "gone\nstart\nInner::f(): i.cpp:1\nOuter::g(): o.cpp:2\n");
        TraceableException::use_implicite_stack_trace(false);
    }
}

// ------------------------------------------------------------------ text

TEST(String, WritesAndReadsNumbers) {
    EXPECT_EQ(String(-1234.5678, 2, '.').GetStdString(), "-1234.57");
    EXPECT_EQ(String(0.5, 0, '.').GetStdString(), "0");
    EXPECT_EQ(String(1e300, 0, ',').Length(), 301);
    struct Row {
        char const* text;
        long number;
        bool throws;
    } const rows[] = {{"12", 12, false},
                      {"  -12xyz", -12, false},
                      {"+7", 7, false},
                      {"", 0, false},
                      {"   ", 0, false},
                      {"x", 0, true},
                      {"2147483647", 2147483647, false},
                      {"2147483648", 0, true},
                      {"-", 0, true}};
    for (Row const& row : rows) {
        if (row.throws)
            EXPECT_THROW(String(row.text).GetLong(), OutOfRangeException) << row.text;
        else
            EXPECT_EQ(String(row.text).GetLong(), row.number) << row.text;
    }
    EXPECT_THROW(String("-1").GetUnsignedLong(), OutOfRangeException);
    EXPECT_THROW(String("70000").GetUnsignedShort(), OutOfRangeException);
    EXPECT_EQ(String(" 1.5e2;").GetDouble(), 150);
}

TEST(String, CutsAndSearches) {
    String const text("one;two;;four");
    EXPECT_EQ(text.GetTokenCount(';'), 4);
    EXPECT_EQ(String().GetTokenCount(';'), 0);
    std::string tokens;
    for (long i = 0; i < 6; ++i) tokens += "[" + text.GetToken(i, ';').GetStdString() + "]";
    EXPECT_EQ(tokens, "[one][two][][four][][]");
    EXPECT_EQ(text.FindSubstring("two", 4), 4);
    EXPECT_EQ(text.FindSubstring("two", 5), -1);
    EXPECT_EQ(text.Mid(-1, 4).GetStdString() + text.Mid(9, 99).GetStdString() +
                  text.Mid(50, 1).GetStdString(),
              "onefour");
    String replaced("aXaXa");
    replaced.Replace("X", "XX");
    replaced.Replace("", "y");
    EXPECT_EQ(replaced.GetStdString(), "aXXaXXa");
    EXPECT_EQ(String("\xC4pfel").GetAsLower().GetStdString(), "\xC4pfel") << "other bytes stay";
}

// ------------------------------------------------------------------ values

TEST(Anything, ConvertsBetweenNumbersAndText) {
    struct Row {
        Anything value;
        bool asBool;
        short asShort;
        long asLong;
        double asDouble;
    } const rows[] = {{true, true, 1, 1, 1},
                      {short{-3}, true, -3, -3, -3},
                      {40000L, true, static_cast<short>(40000), 40000, 40000},
                      {-2.9, true, -2, -2, -2.9},
                      {1e300, true, 32767, std::numeric_limits<long>::max(), 1e300},
                      {std::nan(""), true, 0, 0, std::nan("")},
                      {0.0, false, 0, 0, 0},
                      {"17", false, 17, 17, 17},
                      {"1", true, 1, 1, 1}};
    for (Row const& row : rows) {
        SCOPED_TRACE(row.asDouble);
        EXPECT_EQ(row.value.GetBool(), row.asBool);
        EXPECT_EQ(row.value.GetShort(), row.asShort);
        EXPECT_EQ(row.value.GetLong(), row.asLong);
        EXPECT_TRUE(row.value.GetDouble() == row.asDouble || std::isnan(row.asDouble));
    }
    EXPECT_TRUE(Anything("YES").GetBool());
    EXPECT_FALSE(Anything("No").GetBool());
    for (Anything const& nothing : {Anything(), Anything(Anything::MapOfAnythings())}) {
        EXPECT_THROW(static_cast<void>(nothing.GetLong()), BadCastException);
        EXPECT_THROW(static_cast<void>(nothing.GetString()), BadCastException);
        EXPECT_THROW(static_cast<void>(nothing.GetBool()), BadCastException);
    }
    EXPECT_FALSE(Anything().IsValid());
    EXPECT_FALSE(Anything(1L) == Anything(short{1})) << "the kind counts";
}

TEST(Anything, SharesItsContentsUntilDetached) {
    Anything::MapOfAnythings inner, outer;
    inner["x"] = 1L;
    outer["inner"] = inner;
    Anything const value(outer);
    inner["x"] = 2L;
    Anything const copy(value);
    EXPECT_EQ(&copy.GetMapOfAnythings(), &value.GetMapOfAnythings()) << "copies in constant time";
    Anything const detached = value.Detached();
    EXPECT_TRUE(detached == value);
    EXPECT_NE(&detached.GetMapOfAnythings()["inner"].GetMapOfAnythings(),
              &value.GetMapOfAnythings()["inner"].GetMapOfAnythings());
    EXPECT_EQ(value.GetMapOfAnythings()["inner"].GetMapOfAnythings()["x"].GetLong(), 1);
}

TEST(Anything, MayBeAssignedFromWithinItself) {
    Anything::VectorOfAnythings three(1);
    three[0] = "a text that is too long to be stored in place";
    Anything::MapOfAnythings two;
    two["Value"] = three;
    Anything::MapOfAnythings one;
    one["Value"] = two;
    Anything value(one);
    value = value.GetMapOfAnythings()["Value"];
    value = value.GetMapOfAnythings()["Value"];
    value = value.GetVectorOfAnythings()[0];
    EXPECT_EQ(value.GetString(), "a text that is too long to be stored in place");
}

TEST(Callback, MayReplaceItselfWhileItRuns) {
    struct Owner {
        long Run(Anything const& argument) {
            callback = Callback();
            return argument.GetLong() + offset;
        }
        Callback callback;
        long offset = 40;
    } owner;
    EXPECT_EQ(Callback().Execute({}), 0);
    owner.callback = Utilities::MakeCallback(&owner, &Owner::Run);
    EXPECT_EQ(owner.callback.Execute(2L), 42);
    EXPECT_FALSE(owner.callback.IsValid());
}

// ------------------------------------------------------------------ the directory

template <int number> struct Numbered : Utilities::Component {
    bool PrepareForUnload() override { return number == 1; }
};

TEST(NamingService, ResolvesTheEarliestLivingRegistration) {
    using namespace Utilities;
    auto& directory = *NamingService::Instance();
    auto const resolves = [&]<class T>(T const*) { return !ResolveComponent<T>("Double").IsNull(); };
    auto const before = directory.GetCreators().size();
    SmartPointer<Component> kept = MakeSmart<Numbered<0>>();
    Component* const object = kept.Get();
    EXPECT_THROW(directory.Resolve("Double", kept), ResourceNotAvailableException);
    EXPECT_EQ(kept.Get(), object) << "the result stays";

    auto first =
        std::make_unique<ComponentCreatorNormal<Numbered<1>>>(ComponentDescription{"Double", "v", "c"});
    ComponentCreatorSingleton<Numbered<2>> second({"Double", "v", "c"});
    EXPECT_EQ(directory.GetCreators().back(), &second);
    EXPECT_TRUE(resolves(static_cast<Numbered<1>*>(nullptr)));
    EXPECT_NE(ResolveComponent<Component>("Double").Get(), ResolveComponent<Component>("Double").Get());
    first.reset();
    EXPECT_TRUE(second.PrepareForUnload()) << "no instance yet";
    EXPECT_TRUE(resolves(static_cast<Numbered<2>*>(nullptr)));
    EXPECT_EQ(ResolveComponent<Component>("Double").Get(), ResolveComponent<Component>("Double").Get());
    EXPECT_FALSE(second.PrepareForUnload()) << "asks the instance";
    EXPECT_EQ(second.GetDescriptor().size(), 3U);
    EXPECT_EQ(directory.GetCreators().size(), before + 1);
}

} // namespace
