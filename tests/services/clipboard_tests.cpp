#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "Utilities/NamingService.h"
#include "core/base/Exceptions.h"
#include "gui/elements/Pane.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"
#include "services/Bitmap_PC.h"
#include "services/clipboard/ClipboardService_PC.h"
#include "services/clipboard/CopyPasteHandler.h"
#include "services/clipboard/DataSource_PC.h"
#include "services/clipboard/GatheredData_PC.h"
#include "tests/support/QtApplication.h"
#include "tests/support/TemporaryDirectory.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace {

using GUI::Bitmap;
using GUI::ClipboardService_PC;
using GUI::DataSource_PC;
using Norvelian::Utilities::Exceptions::ResourceNotAvailableException;
using Utilities::Anything;
using Utilities::MakeSmart;
using Utilities::SmartPointer;
using Utilities::String;

auto* const application =
    testing::AddGlobalTestEnvironment(std::make_unique<Tests::QtApplication>().release());

QMimeData const& OnClipboard() { return *QGuiApplication::clipboard()->mimeData(); }

void Put(char const* type, QByteArray const& bytes) {
    auto data = std::make_unique<QMimeData>();
    data->setData(type, bytes);
    QGuiApplication::clipboard()->setMimeData(data.release());
}

SmartPointer<Bitmap> RedPicture() {
    auto bitmap = MakeSmart<GUI::Bitmap_PC>();
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    bitmap->Attach(image);
    return SmartPointer<Bitmap>(bitmap);
}

TEST(Clipboard, TextsAndPrivateFormatsComeBack) {
    ClipboardService_PC clipboard;
    DataSource_PC source;
    source.SetClipboard();
    EXPECT_FALSE(clipboard.IsFormatAvailable("Text"));
    EXPECT_EQ(clipboard.GetText("Text"), "");
    Tests::TemporaryDirectory const directory;
    Tests::WriteFile(directory / "samples.txt", std::string("CGATS.17\0rest", 13));
    EXPECT_TRUE(source.AddText("Text", "L* 50 \xC2\xB1 1\x85"));
    EXPECT_TRUE(source.AddText("My samples, 1%", "private"));
    EXPECT_TRUE(source.AddText("text/html", "<b>x</b>"));
    EXPECT_TRUE(source.AddFile("File", MakeSmart<Utilities::File>(String(directory / "samples.txt"))));
    EXPECT_FALSE(source.AddFile("File", MakeSmart<Utilities::File>(String(directory / "missing"))));
    EXPECT_FALSE(source.AddText("Bitmap", "x"));
    source.SetClipboard();
    EXPECT_EQ(clipboard.GetText("Text"), "L* 50 \xC2\xB1 1\xE2\x80\xA6");
    EXPECT_EQ(clipboard.GetText("My samples, 1%"), "private");
    EXPECT_EQ(clipboard.GetText("File"), "CGATS.17");
    EXPECT_EQ(OnClipboard().html(), "<b>x</b>");
    EXPECT_FALSE(clipboard.IsFormatAvailable("My samples"));
    EXPECT_FALSE(clipboard.IsFormatAvailable("Bitmap"));
}

TEST(Clipboard, APictureIsEncodedWhenItIsAskedFor) {
    ClipboardService_PC clipboard;
    DataSource_PC source;
    EXPECT_FALSE(source.AddBitmap("Picture", RedPicture()));
    EXPECT_FALSE(source.AddBitmap("Bitmap", SmartPointer<Bitmap>(MakeSmart<GUI::Bitmap_PC>())));
    EXPECT_TRUE(source.AddBitmap("Bitmap", RedPicture()));
    int made = 0;
    EXPECT_TRUE(source.AddLater("Later", [&made] { return std::to_string(++made); }));
    EXPECT_TRUE(source.AddLater("Fails", []() -> std::string { throw std::runtime_error("no"); }));
    source.SetClipboard();
    EXPECT_TRUE(clipboard.IsFormatAvailable("Bitmap") && clipboard.IsFormatAvailable("Later"));
    EXPECT_EQ(made, 0);
    EXPECT_EQ(clipboard.GetText("Later"), "1");
    Diagnostics::Sink const former = Diagnostics::SetSink({});
    EXPECT_EQ(clipboard.GetText("Fails"), "");
    Diagnostics::SetSink(former);
    for (char const* const type : {"image/png", "image/bmp", "image/svg+xml"})
        EXPECT_EQ(QImage::fromData(OnClipboard().data(type)).pixelColor(0, 0), QColor(Qt::red)) << type;
    EXPECT_EQ(clipboard.GetBitmap()->GetWidth(), 0U);
    auto const read = clipboard.ReadBitmap();
    ASSERT_FALSE(read.IsNull());
    EXPECT_EQ(read->GetWidth() * 10 + read->GetHeight(), 32U);
    EXPECT_GT(DataSource_PC::GetLeftBehind(), 0);
    QGuiApplication::clipboard()->clear();
    EXPECT_EQ(DataSource_PC::GetLeftBehind(), 0);
}

TEST(Clipboard, WhatOtherProgramsCopyIsUntrusted) {
    ClipboardService_PC clipboard;
    Diagnostics::Sink const former = Diagnostics::SetSink({});
    Put("image/svg+xml", "<svg xmlns='http://www.w3.org/2000/svg' width='4' height='5'/>");
    EXPECT_TRUE(clipboard.IsFormatAvailable("Bitmap"));
    auto const drawing = clipboard.ReadBitmap();
    EXPECT_TRUE(!drawing.IsNull() && drawing->GetWidth() == 4);
    Put("image/svg+xml", "<svg xmlns='http://www.w3.org/2000/svg' width='40000' height='40000'/>");
    EXPECT_TRUE(clipboard.ReadBitmap().IsNull());
    Put("image/png", "no picture");
    EXPECT_TRUE(clipboard.IsFormatAvailable("Bitmap") && clipboard.ReadBitmap().IsNull());
    auto const limits = Utilities::Limits::Get();
    auto small = limits;
    small.sampleFileBytes = 3;
    Utilities::Limits::Set(small);
    Put("text/plain", "long");
    EXPECT_EQ(clipboard.GetText("Text"), "");
    Utilities::Limits::Set(limits);
    EXPECT_EQ(clipboard.GetText("Text"), "long");
    Diagnostics::SetSink(former);
}

/// A host whose one element can be copied and undone.
class Host : public GUI::DialogHandler {
public:
    void Copy(String const& element) override { done.push_back("Copy " + element.GetStdString()); }
    void Undo(String const& element) override { done.push_back("Undo " + element.GetStdString()); }
    bool CanCopy(String const& element) override { return element == "Chart"; }
    bool CanUndo(String const& /*element*/) override { return true; }

    std::vector<std::string> done;
};

/// An element without a window.
class Element : public GUI::GUIElement, public GUI::SelectableObject {
public:
    explicit Element(GUI::DialogDataSource* source) {
        GUI::DescriptionTree description;
        description["ElementName"] = String("Chart");
        GUIElement::Initialize(
            *Utilities::ResolveComponent<GUI::PlatformIndependentWindowID>("PlatformIndependentWindowID"),
            description, source);
    }
    Diagnostics::String GetValueString() override { return "Element"; }
};

TEST(EditMenu, ActsOnTheSelectedElement) {
    auto const handler = Utilities::ResolveComponent<GUI::CopyPasteHandler>("CopyPasteHandler");
    auto const selection = Utilities::ResolveComponent<GUI::SelectionServiceInterface>("SelectionService");
    EXPECT_EQ(GUI::Application::Instance().GetRegisteredComponent("CopyPasteHandler"), handler.Get());
    auto const run = [&](char const* item) { return handler->GetCallback(item, "OnClick").Execute({}); };
    EXPECT_THROW(run("Copy"), ResourceNotAvailableException);
    EXPECT_THROW(handler->GetValue("Copy", "ItemEnabled"), ResourceNotAvailableException);
    EXPECT_FALSE(handler->GetCallback("Copy", "OnUpdate").IsValid());
    EXPECT_FALSE(handler->GetCallback("Other", "OnClick").IsValid());
    EXPECT_FALSE(handler->GetValue("Copy", "Visible").IsValid());

    Host host;
    Element chart(&host);
    Element orphan(nullptr);
    selection->SetSelection(GUI::Topics::propertyInspector, &orphan);
    EXPECT_THROW(run("Copy"), ResourceNotAvailableException);
    selection->SetSelection(GUI::Topics::propertyInspector, &chart);
    EXPECT_TRUE(handler->GetValue("Copy", "ItemEnabled").GetBool());
    EXPECT_TRUE(handler->GetValue("Undo", "ItemEnabled").GetBool());
    for (char const* const item : {"Cut", "Paste", "Other"})
        EXPECT_FALSE(handler->GetValue(item, "ItemEnabled").GetBool()) << item;
    EXPECT_EQ(run("Copy") + run("Undo") + run("Paste"), 0);
    EXPECT_THAT(host.done, testing::ElementsAre("Copy Chart", "Undo Chart"));
    selection->SetSelection(GUI::Topics::propertyInspector, nullptr);
}

} // namespace
