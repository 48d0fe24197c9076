#include "Diagnostics/Sink.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

TEST(Sink, MayReportThrowAndReplaceItself) {
    std::vector<std::string> seen;
    auto const former = Diagnostics::SetSink([&](auto const& where, auto const& what) {
        seen.push_back(std::string(where.GetCharPointer()) + "|" + what.GetCharPointer());
        Diagnostics::Report("sink", "of its own");
        if (seen.size() == 2) Diagnostics::SetSink({});
        throw std::runtime_error("from the sink");
    });
    Diagnostics::Report("here", "text");
    try {
        throw std::runtime_error("dropped");
    } catch (...) {
        Diagnostics::DropException("there");
    }
    Diagnostics::Report("here", "nobody listens any more");
    EXPECT_EQ(seen, (std::vector<std::string>{"here|text", "there|dropped"}));
    Diagnostics::SetSink(former);
}

TEST(Sink, StandardErrorGetsALineForEachReport) {
    testing::internal::CaptureStderr();
    auto const former = Diagnostics::SetSink(Diagnostics::StandardErrorSink());
    Diagnostics::Report("here", "text");
    Diagnostics::Report("there", "another");
    Diagnostics::SetSink(former);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "here: text\nthere: another\n");
#ifdef NDEBUG
    EXPECT_FALSE(former) << "a release says nothing unless it is asked to";
#else
    EXPECT_TRUE(former);
#endif
}

} // namespace
