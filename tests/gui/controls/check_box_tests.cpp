// Check boxes in a real window on the offscreen platform.
#include "Utilities/NamingService.h"
#include "gui/elements/application/Application.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/FunctionCallback.h"
#include "tests/support/QtApplication.h"

#include <QCheckBox>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using TestSupport::Node;
using Utilities::Anything;

testing::Environment* const application = testing::AddGlobalTestEnvironment(new Tests::QtApplication);

class TestApplication : public GUI::Application {
public:
    TestApplication() : Application("controls-tests") {}
    void ReportError(Utilities::String const& text) override { error = text.GetStdString(); }
    std::string error;
};

class CheckBoxTest : public testing::Test {
protected:
    CheckBoxTest() {
        window_.resize(200, 100);
        identity_.SetWindow(&window_);
        window_.show();
    }
    QCheckBox& Make(std::initializer_list<std::pair<char const*, char const*>> attributes = {}) {
        auto const node = Node({{"GUIElementType", "CheckBox"}, {"ElementName", "Check"}});
        for (auto const& [key, value] : attributes) (*node)[key] = value;
        element_ = Utilities::ResolveComponent<GUI::GUIElement>("CheckBox");
        element_->Initialize(identity_, *node, &source_);
        element_->SetPosition(10, 20);
        element_->SetSize(80, 24);
        QApplication::processEvents();
        return *window_.findChild<QCheckBox*>();
    }

    TestApplication app_;
    QWidget window_;
    GUI::PlatformIndependentWindowID_PC identity_;
    TestSupport::FakeDataSource source_;
    Utilities::SmartPointer<GUI::GUIElement> element_;
};

} // namespace

TEST_F(CheckBoxTest, ShowsWhatItsDataSourceSays) {
    QCheckBox& box = Make({{"Caption", "R & D"}, {"TriState", "Yes"}});
    EXPECT_EQ(box.text(), "R && D") << "an ampersand is one";
    EXPECT_EQ(box.geometry(), QRect(10, 20, 80, 24));
    EXPECT_TRUE(box.isVisible());
    EXPECT_TRUE(box.isTristate());
    source_.values = {{{"Check", "State"}, Anything(2L)},
                      {{"Check", "Caption"}, Anything("now")},
                      {{"Check", "Enabled"}, Anything(false)},
                      {{"Check", "ToolTipText"}, Anything("<img src='x'>")}};
    source_.Fire("Check", "OnUpdate");
    EXPECT_EQ(box.checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(box.text(), "now");
    EXPECT_FALSE(box.isEnabled());
    EXPECT_FALSE(box.toolTip().contains("<img")) << "shown as text";
    EXPECT_TRUE(source_.told.empty()) << "only the user's clicks are told";
}

TEST_F(CheckBoxTest, TellsOfClicksAndThenRunsTheCallback) {
    QCheckBox& box = Make();
    std::string clicked;
    source_.SetCallback("Check", "OnClick", Tests::MakeCallback([&](Anything const& name) {
                            EXPECT_EQ(source_.told.size(), 1U) << "the state comes first";
                            clicked = name.GetString().GetStdString();
                            return 0L;
                        }));
    box.click();
    EXPECT_EQ(clicked, "Check");
    ASSERT_EQ(source_.told.size(), 1U);
    EXPECT_EQ(source_.told[0].name, "State");
    EXPECT_EQ(source_.told[0].value.GetLong(), 1L);

    source_.SetCallback("Check", "OnClick", Tests::MakeCallback([](Anything const&) -> long {
                            throw std::runtime_error("why");
                        }));
    box.click();
    EXPECT_EQ(app_.error, "An unexpected error occured. Error text:why");
}

TEST_F(CheckBoxTest, MayVanishInItsOwnClick) {
    QCheckBox& box = Make();
    source_.SetCallback("Check", "OnClick", Tests::MakeCallback([&](Anything const&) {
                            element_ = nullptr;
                            EXPECT_FALSE(box.isVisible()) << "gone at once";
                            return 0L;
                        }));
    box.click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window_.findChild<QCheckBox*>(), nullptr);
}
