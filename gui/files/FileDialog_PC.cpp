#include "gui/files/FileDialog_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/files/CNorvelianFileDialog.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/EventGuard_PC.h"

#include <QFileInfo>
#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

constexpr auto allAttributes = CommonAttributes::WithUnusedSizes(
    FileDialog_PC::attributes, "No effect: the dialog has a size of its own");
ElementRegistration<FileDialog_PC, GUIElement> const
    registration({"FileDialog", "$Revision: 1.25.2.1 $", "GUI"}, allAttributes);

constexpr char const* section = "FileDialog";

QString Translated(String const& key) {
    return ToPlatformText(LanguageServiceInterface::GetTranslation(key));
}

QStringList ReadFilters(String const& text) {
    QStringList filters;
    for (long i = 0; i < text.GetTokenCount(';'); ++i) {
        String const filter = text.GetToken(i, ';');
        QString name = Translated(filter.GetToken(0, '|'));
        // What is in brackets is the patterns.
        name.replace('(', '[').replace(')', ']');
        filters << name + " (" + ToPlatformText(filter.GetToken(1, '|')) + ")";
    }
    return filters;
}

} // namespace

void FileDialog_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                               DialogDataSource* dataSource) {
    FileDialog::Initialize(parent, description, dataSource);
    description_ = description;
    parent_ = PlatformIndependentWindowID_PC::WindowOf(parent);
}

bool FileDialog_PC::IsOpen() const { return !dialog_.isNull(); }

void FileDialog_PC::OnDetach() {
    if (dialog_) {
        dialog_->disconnect(&receiver_);
        dialog_->hide();
        DeleteWhenIdle(*dialog_);
        dialog_ = nullptr;
    }
    FileDialog::OnDetach();
}

String FileDialog_PC::GetSettingsKey() {
    String const key = AttributeReader(description_).Text(settingsAttribute);
    if (key == "None") return {};
    return key.Length() != 0 ? key : GetElementName();
}

void FileDialog_PC::Open() {
    CallScope const call(*this);
    if (!IsAttached() || IsOpen()) return;
    Anything const file = GetValue("File");
    if (!IsAttached() || IsOpen()) return;
    AttributeReader const reader(description_);
    dialog_ = new CNorvelianFileDialog(parent_ ? parent_->window() : nullptr, reader.Flag(platformAttribute));
    SetUp();
    if (file.IsOfTypeString() && file.GetString().Length() != 0)
        dialog_->selectFile(ToPlatformText(file.GetString()));
    QObject::connect(dialog_, &QDialog::finished, &receiver_, [this](int result) {
        RunGuardedEvent(*this, [&] { return OnFinished(result == QDialog::Accepted), true; });
    });
    // It keeps to its window, and this returns at once.
    dialog_->open();
}

void FileDialog_PC::SetUp() {
    AttributeReader const reader(description_);
    String const mode = reader.Text(modeAttribute);
    bool const saves = mode == "Save";
    bool const directory = mode == "Directory";
    CNorvelianFileDialog& dialog = *dialog_;
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(directory                       ? QFileDialog::Directory
                       : saves                         ? QFileDialog::AnyFile
                       : reader.Flag(severalAttribute) ? QFileDialog::ExistingFiles
                                                       : QFileDialog::ExistingFile);
    if (directory) dialog.setOption(QFileDialog::ShowDirsOnly);
    String const caption = reader.Text(captionAttribute);
    dialog.setWindowTitle(Translated(caption.Length() != 0 ? caption
                                     : saves               ? String("Save")
                                     : directory           ? String("Choose a directory")
                                                           : String("Open")));
    if (String const suffix = reader.Text(suffixAttribute); suffix.Length() != 0)
        dialog.setDefaultSuffix(ToPlatformText(suffix));
    if (QStringList const filters = ReadFilters(reader.Text(filtersAttribute));
        !filters.isEmpty() && !directory)
        dialog.setNameFilters(filters);
    String const given = reader.Text(directoryAttribute);
    String const key = GetSettingsKey();
    QString begin =
        ToPlatformText(key.Length() == 0 ? given
                                         : Utilities::ResolveComponent<Utilities::Preferences>("Preferences")
                                               ->GetValue(section, key, given));
    // A directory that has gone since is none.
    if (!begin.isEmpty() && QFileInfo(begin).isDir()) dialog.setDirectory(begin);
    if (reader.Flag(previewAttribute) && !reader.Flag(platformAttribute) && !directory) dialog.AddPreview();
    dialog.TakeTexts(saves);
}

void FileDialog_PC::Cancel() {
    if (dialog_) dialog_->reject();
}

void FileDialog_PC::OnFinished(bool accepted) {
    // It may be opened again in what follows.
    QPointer<CNorvelianFileDialog> const dialog = std::exchange(dialog_, nullptr);
    QStringList const files = accepted ? dialog->selectedFiles() : QStringList();
    dialog->deleteLater();
    if (files.isEmpty()) {
        Fire("OnCancelled", {});
        return;
    }
    // A path may have been typed that isn't in the directory that is shown.
    QFileInfo const first(files[0]);
    KeepDirectory(FromPlatformText(first.isDir() ? first.absoluteFilePath() : first.absolutePath()));
    Anything chosen(FromPlatformText(files[0]));
    if (AttributeReader(description_).Flag(severalAttribute)) {
        Anything::VectorOfAnythings all(static_cast<std::uint32_t>(files.size()));
        for (std::uint32_t i = 0; i < all.GetSize(); ++i)
            all[i] = FromPlatformText(files[static_cast<qsizetype>(i)]);
        chosen = Anything(all);
    }
    TellValue("File", chosen);
    Fire("OnFileChosen", chosen);
}

void FileDialog_PC::KeepDirectory(String const& directory) {
    if (String const key = GetSettingsKey(); key.Length() != 0)
        Utilities::ResolveComponent<Utilities::Preferences>("Preferences")->SetValue(section, key, directory);
}

} // namespace GUI
