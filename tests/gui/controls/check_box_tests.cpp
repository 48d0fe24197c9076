// Check boxes in a real window on the offscreen platform.
#include "tests/gui/controls/ControlFixture.h"

#include <QCheckBox>
#include <stdexcept>

namespace {

using namespace Tests;

class CheckBoxTest : public Controls {};

} // namespace

TEST_F(CheckBoxTest, ShowsWhatItsDataSourceSays) {
    QCheckBox& box = Show<QCheckBox>("CheckBox", {{"Caption", "R & D"}, {"TriState", "Yes"}});
    EXPECT_EQ(box.text(), "R && D") << "an ampersand is one";
    EXPECT_EQ(box.geometry(), QRect(0, 0, 300, 200)) << "where its box puts it";
    EXPECT_TRUE(box.isVisible());
    EXPECT_TRUE(box.isTristate());
    source_.values = {{{"it", "State"}, Anything(2L)},
                      {{"it", "Caption"}, Anything("now")},
                      {{"it", "Enabled"}, Anything(false)},
                      {{"it", "ToolTipText"}, Anything("<img src='x'>")}};
    source_.Fire("it", "OnUpdate");
    EXPECT_EQ(box.checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(box.text(), "now");
    EXPECT_FALSE(box.isEnabled());
    EXPECT_FALSE(box.toolTip().contains("<img")) << "shown as text";
    EXPECT_TRUE(source_.told.empty()) << "only the user's clicks are told";
}

TEST_F(CheckBoxTest, TellsOfClicksAndThenRunsTheCallback) {
    QCheckBox& box = Show<QCheckBox>("CheckBox");
    std::string clicked;
    source_.SetCallback("it", "OnClick", Tests::MakeCallback([&](Anything const& name) {
                            EXPECT_EQ(source_.told.size(), 1U) << "the state comes first";
                            clicked = name.GetString().GetStdString();
                            return 0L;
                        }));
    box.click();
    EXPECT_EQ(clicked, "it");
    ASSERT_EQ(source_.told.size(), 1U);
    EXPECT_EQ(source_.told[0].name, "State");
    EXPECT_EQ(source_.told[0].value.GetLong(), 1L);

    source_.SetCallback("it", "OnClick", Tests::MakeCallback([](Anything const&) -> long {
                            throw std::runtime_error("why");
                        }));
    box.click();
    EXPECT_EQ(environment->app->errors.back(), "An unexpected error occured. Error text:why");
}

TEST_F(CheckBoxTest, MayVanishInItsOwnClick) {
    QCheckBox& box = Show<QCheckBox>("CheckBox");
    QPointer<QCheckBox> const gone(&box);
    source_.SetCallback("it", "OnClick", Tests::MakeCallback([&](Anything const&) {
                            element_ = nullptr;
                            EXPECT_FALSE(gone && gone->isVisible()) << "gone at once";
                            return 0L;
                        }));
    box.click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}
