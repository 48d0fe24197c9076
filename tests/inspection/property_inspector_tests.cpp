// The inspector with real windows, patches and pages.
#include "cxf/samples/SampleSet.h"
#include "gui/elements/DataAccess.h"
#include "gui/elements/Topics.h"
#include "gui/elements/TreeHolder.h"
#include "gui/elements/colour/ScreenRGB.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "inspection/PropertyInspector.h"
#include "inspection/PropertyInspectorSample.h"
#include "tests/gui/shell/WindowFixture.h"

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <gmock/gmock.h>

using namespace Tests;

namespace {

namespace Cxf = Norvelian::ColorExchangeFormat;
using GUI::PropertyInspector;
using Utilities::SmartPointer;

/// A host whose patch shows a sample.
class SampleHost : public DialogHandler, public GUI::CXFAccess {
public:
    Anything GetValue(String const& /*element*/, String const& name) override {
        return name == "PropertyContent" ? content : Anything();
    }
    SmartPointer<Cxf::Sample> GetSample(Anything const& key) override {
        keys.push_back(key.GetMapOfAnythings()["ElementName"].GetString().GetStdString());
        return sample;
    }
    void DataChanged(Anything const& /*key*/, Anything const& what) override {
        changes.push_back(what.GetString().GetStdString());
        if (onChange) onChange();
    }
    bool IsLocked(Anything const& /*key*/, Anything const& /*what*/) override { return locked; }

    Anything content;
    SmartPointer<Cxf::Sample> sample;
    std::vector<std::string> keys;
    std::vector<std::string> changes;
    std::function<void()> onChange;
    bool locked = false;
};

/// The host's model, with the screen.
class TestModel : public Tintorium::Model {
public:
    SmartPointer<Utilities::Component> GetComponent(String const& name) override {
        if (name == "ScreenRGB")
            return SmartPointer<Utilities::Component>(Utilities::MakeSmart<Tintorium::ScreenRGB>());
        return {};
    }
};

class Inspection : public Windows {
protected:
    void SetUp() override {
        GUI::GUIDescriptionReader::SetDirectory(NORVELIAN_DESCRIPTIONS);
        set_ = Utilities::MakeSmart<Cxf::SampleSet>();
        for (char const* const name : {"Red", "Blue"}) {
            auto const sample = Utilities::MakeSmart<Cxf::Sample>(name, "measured");
            Cxf::Conditions conditions;
            conditions.SetAttribute("Physical.SpectrumType", "Remission");
            sample->AddSampleAttribute(SmartPointer<Cxf::SampleAttribute>(
                Utilities::MakeSmart<Cxf::Spectrum>(380, 10, std::vector<double>(36, 0.25), conditions)));
            set_->AddSample(sample);
        }
        host_.sample = set_->GetSamples().front();
        auto const tree =
            Top("VBox", "Box", {},
                {Top("SmallPatch", "Plain", {{"MinimalWidth", "20"}}), Top("SmallPatch", "Sample")});
        MakeWindow(tree);
    }
    void TearDown() override {
        if (Inspector().IsVisible()) Inspector().Toggle();
        // What was selected here by force is nobody's to give up.
        Select(nullptr);
        element_ = nullptr;
        QApplication::processEvents();
    }
    void MakeWindow(NodePointer const& tree) {
        Make<GUI::Window_PC>(Top("Window", "Main", {}, {tree}));
        box_ = Utilities::ResolveComponent<GUI::GUIElement>("SmallPatch");
        patchNode_ = Top("SmallPatch", "Patch");
        box_->Initialize(*element_->GetWindowID(), *patchNode_, &host_);
    }
    static PropertyInspector& Inspector() {
        return *Utilities::ResolveComponent<PropertyInspector>("PropertyInspector");
    }
    static void Select(GUI::GUIElement* element) {
        Utilities::ResolveComponent<GUI::SelectionServiceInterface>("SelectionService")
            ->SetSelection(GUI::Topics::propertyInspector, dynamic_cast<GUI::SelectableObject*>(element));
        QApplication::processEvents();
    }
    static QDialog* Dialog() {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (auto* const dialog = qobject_cast<QDialog*>(window); dialog && dialog->isVisible())
                return dialog;
        return nullptr;
    }
    static QLineEdit* Field(int place) {
        auto const fields = Dialog() ? Dialog()->findChildren<QLineEdit*>() : QList<QLineEdit*>();
        return fields.size() > place ? fields[place] : nullptr;
    }
    static std::string Tree() {
        auto* const holder =
            dynamic_cast<GUI::TreeHolder*>(environment->app->GetRegisteredComponent("PropertyInspectorTree"));
        if (!holder || holder->GetRoot().IsNull()) return "none";
        auto const root = holder->GetRoot();
        return root->GetText().GetStdString() + " " + std::to_string(root->GetChildCount());
    }

    SampleHost host_;
    SmartPointer<Cxf::SampleSet> set_;
    SmartPointer<GUI::GUIElement> box_;
    NodePointer patchNode_;
};

Utilities::ComponentCreatorNormal<TestModel> const modelCreator({"Model", "$Revision: 1.1 $", "Tintorium"});

} // namespace

TEST_F(Inspection, FollowsTheSelectionAndChangesPagesInPlace) {
    Inspector().Toggle();
    ASSERT_TRUE(Dialog());
    QDialog const* const window = Dialog();
    EXPECT_EQ(Tree(), "No Information 0");
    EXPECT_FALSE(Field(0));
    Select(&element_->FindElement("Plain"));
    EXPECT_EQ(Tree(), "No Information from element supporting PI 0");

    Select(box_.Get());
    EXPECT_EQ(Dialog(), window);
    EXPECT_EQ(Tree(), "Spectrum 6");
    ASSERT_TRUE(Field(1));
    EXPECT_EQ(Field(0)->text() + "|" + Field(1)->text(), "Red|measured");
    EXPECT_EQ(host_.keys.back(), "Patch");

    Select(nullptr);
    EXPECT_EQ(Tree(), "No Information 0");
    EXPECT_EQ(Dialog(), window);
    Dialog()->close();
    QApplication::processEvents();
    EXPECT_FALSE(Inspector().IsVisible());
    EXPECT_FALSE(Dialog());
    Select(box_.Get());
    Inspector().Toggle();
    EXPECT_EQ(Tree(), "Spectrum 6") << "what is selected already";
}

TEST_F(Inspection, RenamesASampleUnlessItsSetIsLocked) {
    Select(box_.Get());
    Inspector().Toggle();
    ASSERT_TRUE(Field(1));
    Field(0)->selectAll();
    QTest::keyClicks(Field(0), "Blue");
    EXPECT_EQ(host_.sample->GetName(), "Red");
    QTest::keyClick(Field(0), Qt::Key_Return);
    EXPECT_EQ(host_.sample->GetName(), "Blue (2)") << "the set keeps names apart";
    EXPECT_THAT(host_.changes, testing::ElementsAre("Name"));
    QTest::keyClicks(Field(1), " twice");
    QTest::keyClick(Field(1), Qt::Key_Return);
    EXPECT_EQ(host_.sample->GetDescription(), "measured twice");

    host_.locked = true;
    Select(nullptr);
    Select(box_.Get());
    EXPECT_FALSE(Field(0)->isEnabled() || Field(1)->isEnabled());
    host_.changes.clear();
    Inspector().SetValue("SampleName", "Text", "Green");
    EXPECT_EQ(host_.sample->GetName(), "Blue (2)");
    EXPECT_EQ(Field(0)->text(), "Blue (2)");
    EXPECT_THAT(host_.changes, testing::ElementsAre("Name"));
}

TEST_F(Inspection, SaysWhatItDoesNotKnow) {
    Select(box_.Get());
    Inspector().Toggle();
    EXPECT_TRUE(Inspector().GetValue("ColorPatch", "ColorValue").IsValid());
    EXPECT_FALSE(Inspector().GetValue("ColorPatch", "BitmapOnly").GetBool());
    host_.sample->RemoveSampleAttribute(0);
    Select(box_.Get());
    EXPECT_EQ(Tree(), "none") << "no spectrum";
    EXPECT_FALSE(Inspector().GetValue("ColorPatch", "BackgroundBitmap").IsValid());
    host_.sample->AddSampleAttribute(SmartPointer<Cxf::SampleAttribute>(
        Utilities::MakeSmart<Cxf::Spectrum>(380, 10, std::vector<double>(36, 0.25), Cxf::Conditions())));
    Select(box_.Get());
    EXPECT_TRUE(Inspector().GetValue("ColorPatch", "BitmapOnly").GetBool()) << "nobody said what it is";
    EXPECT_EQ(Inspector().GetValue("ColorPatch", "BackgroundBitmap").GetString(), "PropertyAmbientPatch");
    host_.sample = nullptr;
    Select(box_.Get());
    EXPECT_EQ(Tree(), "No Information from element supporting PI 0");
    EXPECT_EQ(Inspector().GetValue("SampleName", "Text").GetString(), "not defined");
    EXPECT_FALSE(Inspector().GetValue("SampleName", "Enabled").GetBool());
}

TEST_F(Inspection, SurvivesHostsThatChangeTheSelectionWhileItActs) {
    Select(box_.Get());
    Inspector().Toggle();
    // Another page takes the place of the one whose call this is.
    host_.onChange = [this] { Select(&element_->FindElement("Plain")); };
    Inspector().SetValue("SampleName", "Text", "Other");
    QApplication::processEvents();
    EXPECT_EQ(Tree(), "No Information from element supporting PI 0");
    EXPECT_EQ(host_.sample->GetName(), "Other");
    Select(box_.Get());
    host_.onChange = [] { Inspector().Toggle(); };
    Inspector().SetValue("SampleName", "Text", "Hidden");
    QApplication::processEvents();
    EXPECT_FALSE(Inspector().IsVisible());
    host_.onChange = {};
    Inspector().Toggle();
    dynamic_cast<GUI::Pane&>(*box_).SetFocus();
    QApplication::processEvents();
    EXPECT_EQ(Tree(), "Spectrum 6");
    box_ = nullptr;
    QApplication::processEvents();
    EXPECT_EQ(Tree(), "No Information 0") << "an element that goes gives up the selection";
}

TEST_F(Inspection, ComesBackWithTheNextMainWindow) {
    environment->app->SetMainWindow(element_.Get());
    Select(box_.Get());
    Inspector().Toggle();
    ASSERT_TRUE(Field(0));
    // A click into the inspector is none on what it shows.
    Select(&dynamic_cast<GUI::GUIElement&>(Inspector().GetDialogRootElement()->FindElement("ColorPatch")));
    EXPECT_TRUE(Field(0));
    Select(box_.Get());
    box_ = nullptr;
    MakeWindow(Top("VBox", "Box"));
    environment->app->SetMainWindow(element_.Get());
    QApplication::processEvents();
    Select(box_.Get());
    ASSERT_TRUE(Dialog());
    EXPECT_EQ(Field(0)->text(), "Red");
    Field(0)->selectAll();
    QTest::keyClicks(Field(0), "Blue");
    QTest::keyClick(Field(0), Qt::Key_Return);
    EXPECT_EQ(Field(0)->text(), "Blue (2)") << "the name that the set gave";
    environment->app->SetMainWindow(nullptr);
}

TEST_F(Inspection, TheWindowComesBackWhereItWas) {
    Inspector().Toggle();
    ASSERT_TRUE(Dialog());
    Dialog()->move(130, 90);
    QApplication::processEvents();
    QPoint const place = Dialog()->pos();
    Inspector().Toggle();
    EXPECT_FALSE(Dialog());
    Inspector().Toggle();
    EXPECT_EQ(Dialog()->pos(), place);
}
