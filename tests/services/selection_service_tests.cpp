#include "core/base/Exceptions.h"
#include "gui/elements/SupportsPropertyInspector.h"
#include "services/SelectionService.h"
#include "tests/support/FunctionCallback.h"

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace Norvelian::ColorExchangeFormat {
class Sample {
public:
    int number = 0;
};
} // namespace Norvelian::ColorExchangeFormat

namespace {

using GUI::SelectionService;
using Norvelian::ColorExchangeFormat::Sample;
using Utilities::Anything;
using Utilities::Callback;
using Utilities::String;

struct Plain : GUI::SelectableObject {
    Diagnostics::String GetValueString() override { return "Plain"; }
};

struct Samples : GUI::CXFAccess {
    Utilities::SmartPointer<Sample> GetSample(Anything const& key) override {
        auto sample = Utilities::MakeSmart<Sample>();
        sample->number = static_cast<int>(key.GetLong());
        return sample;
    }
    void DataChanged(Anything const&, Anything const&) override {}
    bool IsLocked(Anything const&, Anything const&) override { return false; }
};

struct Inspected : GUI::SelectableObject, GUI::SupportsPropertyInspector {
    Diagnostics::String GetValueString() override { return "Inspected"; }
    void Invariant() const override {}
    Anything GetProperties() override { return {}; }
    GUI::DataAccess* GetPropertyInspectorHandler() override { return handler; }
    Anything GetPropertyInspectorData() override { return number; }

    GUI::DataAccess* handler = nullptr;
    long number = 0;
};

class SelectionServiceTest : public testing::Test {
protected:
    /// A subscriber that notes its name, and does more if it is told to.
    Callback Noting(std::string const& name, std::function<void()> const& more = {}) {
        return Tests::MakeCallback([this, name, more](Anything const& topic) {
            calls_.push_back(name + ":" + topic.GetString().GetStdString());
            if (more) more();
            return 0L;
        });
    }
    std::vector<std::string> Calls() { return std::exchange(calls_, {}); }

    SelectionService service_;
    Plain object_;
    std::vector<std::string> calls_;
};

using Names = std::vector<std::string>;

TEST_F(SelectionServiceTest, NotifiesInTheOrderOfTheCookiesAsText) {
    for (int i = 0; i < 11; ++i)
        EXPECT_EQ(service_.Advise("T", Noting(std::to_string(i))), std::to_string(i).c_str());
    EXPECT_EQ(service_.Advise("Other", Noting("other")), "11");
    service_.SetSelection("T", nullptr);
    EXPECT_EQ(Calls(), (Names{"0:T", "1:T", "10:T", "2:T", "3:T", "4:T", "5:T", "6:T", "7:T", "8:T", "9:T"}));
    service_.SetSelection("nobody", &object_);
    EXPECT_EQ(Calls(), Names{});
}

TEST_F(SelectionServiceTest, SubscribersSeeTheNewSelection) {
    EXPECT_EQ(service_.GetSelection("T"), nullptr);
    GUI::SelectableObject* seen = nullptr;
    service_.Advise("T", Noting("a", [&] { seen = service_.GetSelection("T"); }));
    service_.SetSelection("T", &object_);
    EXPECT_EQ(seen, &object_);
    EXPECT_TRUE(service_.PrepareForUnload());
    service_.Notify("T");
    EXPECT_EQ(Calls(), Names{"a:T"}) << "subscribers are release, selections stay";
    EXPECT_EQ(service_.GetSelection("T"), &object_);
}

TEST_F(SelectionServiceTest, UnadvisingDuringANotificationSkipsAtOnceAndRemovesAfterwards) {
    service_.Advise("T", Noting("0", [&] {
                        service_.Unadvise("0");
                        service_.Unadvise("2");
                    }));
    service_.Advise("T", Noting("1"));
    service_.Advise("T", Noting("2"));
    service_.SetSelection("T", nullptr);
    service_.SetSelection("T", nullptr);
    EXPECT_EQ(Calls(), (Names{"0:T", "1:T", "1:T"}));
    for (char const* const gone : {"0", "2", "77", ""})
        EXPECT_THROW(service_.Unadvise(gone), Norvelian::Utilities::Exceptions::OutOfRangeException) << gone;
    service_.Unadvise("1");
    EXPECT_THROW(service_.Unadvise("1"), Norvelian::Utilities::Exceptions::OutOfRangeException);
}

TEST_F(SelectionServiceTest, ARemovalStaysPendingUntilTheSelectionOfItsOwnTopic) {
    service_.Advise("T", Noting("0", [&] { service_.Unadvise("0"); }));
    service_.Advise("Other", Noting("1"));
    service_.Notify("T");
    EXPECT_EQ(Calls(), Names{"0:T"});
    service_.SetSelection("Other", nullptr);
    service_.Notify("T");
    EXPECT_EQ(Calls(), Names{"1:Other"}) << "skipped though still there";
    EXPECT_NO_THROW(service_.Unadvise("0")) << "it is still in the table, and goes at once now";
    EXPECT_THROW(service_.Unadvise("0"), Norvelian::Utilities::Exceptions::OutOfRangeException);
}

TEST_F(SelectionServiceTest, BearsSubscribersThatChangeEverything) {
    service_.Advise("T", Noting("0", [&] { service_.Advise("T", Noting("new")); }));
    service_.Advise("T", Noting("1", [&] { service_.Clear(); }));
    service_.SetSelection("T", nullptr);
    EXPECT_EQ(Calls(), (Names{"0:T", "1:T"}));

    int depth = 0;
    service_.Advise("T", Noting("3", [&] {
                        if (++depth == 1) service_.SetSelection("T", &object_);
                    }));
    service_.Advise("T", Noting("4"));
    service_.SetSelection("T", nullptr);
    EXPECT_EQ(Calls(), (Names{"3:T", "3:T", "4:T", "4:T"}));
    EXPECT_EQ(service_.GetSelection("T"), &object_);
}

TEST_F(SelectionServiceTest, AnExceptionLeavesTheServiceNotifying) {
    service_.Advise("T", Noting("0", [] { throw std::runtime_error("x"); }));
    service_.Advise("T", Noting("1"));
    EXPECT_THROW(service_.SetSelection("T", nullptr), std::runtime_error);
    EXPECT_EQ(Calls(), Names{"0:T"});
    service_.Unadvise("0");
    service_.SetSelection("T", nullptr);
    EXPECT_EQ(Calls(), Names{"1:T"});
    EXPECT_THROW(service_.Unadvise("0"), Norvelian::Utilities::Exceptions::OutOfRangeException);
}

TEST_F(SelectionServiceTest, GivesDataAccessAndSampleOfWhatIsSelected) {
    Samples samples;
    GUI::DataAccess noSamples;
    Inspected inspected;
    inspected.number = 5;
    EXPECT_EQ(service_.GetDataAccess("T"), nullptr);
    service_.SetSelection("T", &object_);
    EXPECT_EQ(service_.GetDataAccess("T"), nullptr);

    service_.SetSelection("T", &inspected);
    inspected.handler = &samples;
    EXPECT_EQ(service_.GetDataAccess("T"), &samples);
    EXPECT_TRUE(service_.GetSelectedSample("T").IsNull()) << "nothing is selected for the inspector";
    service_.SetSelection("PropertyInspector", &inspected);
    EXPECT_EQ(service_.GetSelectedSample("T")->number, 5);
    inspected.handler = &noSamples;
    EXPECT_TRUE(service_.GetSelectedSample("T").IsNull());
}

} // namespace
