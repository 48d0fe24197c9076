// The component "FileDialog": real names, clicks and answers on the offscreen platform.
#include "Utilities/Preferences.h"
#include "gui/files/CNorvelianFileDialog.h"
#include "gui/files/FileDialog_PC.h"
#include "tests/gui/controls/ControlFixture.h"
#include "tests/support/TemporaryDirectory.h"

#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <filesystem>
#include <fstream>

namespace {

using namespace Tests;
using GUI::SamplePreview;

class FileDialogs : public Controls {
protected:
    FileDialogs() {
        for (char const* name : {"a.txt", "b.txt", "c.dat"}) std::ofstream(Path(name)) << "text";
        for (char const* event : {"OnFileChosen", "OnCancelled"}) {
            source_.SetCallback("files", event, MakeCallback([this, event](Anything const& file) {
                                    told += std::string(event) + " ";
                                    chosen = file;
                                    return 0L;
                                }));
        }
    }
    ~FileDialogs() override { dialog_ = nullptr; }

    std::string Path(std::string const& name) const { return directory_ / name; }
    GUI::CNorvelianFileDialog& Open(Attributes attributes) {
        dialog_ = SmartPointer<GUI::FileDialog>(Utilities::ResolveComponent<GUI::GUIElement>("FileDialog"));
        auto const node =
            Node({{"GUIElementType", "FileDialog"}, {"ElementName", "files"}, {"Directory", path_.c_str()}});
        for (auto const& [key, value] : attributes) (*node)[key] = value;
        dialog_->Initialize(none_, *node, &source_);
        dialog_->Open();
        QApplication::processEvents();
        return *dynamic_cast<GUI::FileDialog_PC&>(*dialog_).GetDialog();
    }
    static void Enter(GUI::CNorvelianFileDialog& dialog, std::string const& name) {
        auto* const field = dialog.findChild<QLineEdit*>("fileNameEdit");
        field->setText(QString::fromStdString(name));
        QTest::keyClick(field, Qt::Key_Return);
        QApplication::processEvents();
    }

    TemporaryDirectory directory_;
    std::string path_ = directory_.GetPath();
    SmartPointer<GUI::FileDialog> dialog_;
    std::string told;
    Anything chosen;
};

} // namespace

TEST_F(FileDialogs, OpenFilesAndKeepTheDirectory) {
    auto& dialog = Open({{"Filters", "Text|*.txt *.text;All|*"}, {"Settings", "Mine"}});
    EXPECT_EQ(dialog.nameFilters(), QStringList({"Text (*.txt *.text)", "All (*)"}));
    dialog_->Open();
    EXPECT_TRUE(dialog_->IsOpen());
    Enter(dialog, Path("missing.txt"));
    EXPECT_EQ(told, "");
    ASSERT_TRUE(dialog.findChild<QMessageBox*>());
    dialog.findChild<QMessageBox*>()->close();
    std::filesystem::create_directory(Path("inner"));
    std::ofstream(Path("inner/d.txt")) << "text";
    Enter(dialog, Path("inner/d.txt"));
    EXPECT_EQ(told, "OnFileChosen ");
    EXPECT_EQ(chosen.GetString(), Path("inner/d.txt").c_str());
    EXPECT_EQ(source_.told.back().name, "File");
    EXPECT_FALSE(dialog_->IsOpen());
    source_.values.clear();
    EXPECT_EQ(Open({{"Settings", "Mine"}}).directory().absolutePath().toStdString(), Path("inner"));
    dialog_->Cancel();
    EXPECT_EQ(told, "OnFileChosen OnCancelled ");
    EXPECT_EQ(Open({{"Settings", "None"}}).directory().absolutePath().toStdString(), directory_.GetPath());
    // A host that lets the dialog go while it is open.
    dialog_ = nullptr;
    QApplication::processEvents();
}

TEST_F(FileDialogs, AskBeforeAFileIsReplaced) {
    source_.values[{"files", "File"}] = Path("new").c_str();
    auto& dialog = Open({{"Mode", "Save"}, {"Suffix", "txt"}, {"Settings", "None"}});
    auto const question = [&]() { return dialog.findChild<QMessageBox*>(); };
    auto const answer = [&](int button) {
        question()->buttons()[button]->click();
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    EXPECT_EQ(dialog.selectedFiles().value(0).toStdString(), Path("new.txt")) << "the name that was proposed";
    Enter(dialog, Path("a.txt"));
    ASSERT_TRUE(question());
    EXPECT_TRUE(question()->text().startsWith("a.txt ")) << question()->text().toStdString();
    answer(1);
    EXPECT_EQ(told, "");
    ASSERT_TRUE(dialog_->IsOpen());
    Enter(dialog, Path("a.txt"));
    answer(0);
    EXPECT_EQ(told, "OnFileChosen ");
    EXPECT_EQ(chosen.GetString(), Path("a.txt").c_str());
    source_.values.clear();
    Enter(Open({{"Mode", "Save"}, {"Suffix", "txt"}, {"Settings", "None"}}), Path("other"));
    EXPECT_EQ(chosen.GetString(), Path("other.txt").c_str()) << "without a question";
    Enter(Open({{"Mode", "Directory"}, {"Settings", "None"}}), directory_.GetPath());
    EXPECT_EQ(chosen.GetString(), directory_.GetPath().c_str());
}

TEST_F(FileDialogs, ShowTheFirstSamplesOfAFile) {
    auto& dialog = Open({{"Preview", "Yes"}, {"Settings", "None"}});
    ASSERT_TRUE(dialog.GetPreview());
    emit dialog.currentChanged(BUNDLED_FILE);
    EXPECT_EQ(dialog.GetPreview()->count, 34U);
    ASSERT_EQ(dialog.GetPreview()->samples.size(), SamplePreview::most);
    EXPECT_EQ(dialog.GetPreview()->samples[0].name, "TCS01");
    EXPECT_TRUE(dialog.GetPreview()->samples[0].color);
    dialog.grab();
    emit dialog.currentChanged(QString::fromStdString(Path("c.dat")));
    EXPECT_EQ(dialog.GetPreview()->count, 0U);
    EXPECT_EQ(SamplePreview::Of("/dev/zero").count, 0U);
    std::filesystem::resize_file(Path("a.txt"), 20'000'000);
    EXPECT_TRUE(SamplePreview::Of(Path("a.txt")).isTooLarge);
}
