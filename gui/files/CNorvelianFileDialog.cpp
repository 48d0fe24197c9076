#include "gui/files/CNorvelianFileDialog.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/platform/CNorvelianStyle.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/EventGuard_PC.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>

namespace GUI {

using Utilities::LanguageServiceInterface;

namespace {

QString Translated(char const* key) { return ToPlatformText(LanguageServiceInterface::GetTranslation(key)); }

Theme const* ThemeOf(QWidget* parent) {
    return parent ? CNorvelianSurface::Of(*parent->window()).GetTheme() : nullptr;
}

} // namespace

/// Names and colours of the first samples of a file.
class CNorvelianSamplePreview : public QWidget {
public:
    explicit CNorvelianSamplePreview(QWidget* parent, RGBVector const& surround)
        : QWidget(parent), surround_(surround) {
        setFixedWidth(180);
        setMinimumHeight(static_cast<int>(SamplePreview::most + 1) * rowHeight);
    }
    void Show(std::string const& path) {
        preview_ = SamplePreview::Of(path);
        update();
        setAccessibleName(GetSummary());
    }
    SamplePreview const& Get() const { return preview_; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr int patch = 24;
        constexpr int surround = 5;
        QPainter painter(this);
        QRect row(0, 0, width(), rowHeight);
        auto const text = [&](QString const& shown) {
            painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter,
                             fontMetrics().elidedText(shown, Qt::ElideRight, row.width()));
        };
        text(GetSummary());
        for (SamplePreview::Entry const& sample : preview_.samples) {
            row = QRect(0, row.bottom() + 1, width(), rowHeight);
            if (sample.color) {
                QRect const ground(0, row.top() + 1, patch, patch);
                painter.fillRect(ground, ToColor(surround_));
                painter.fillRect(ground.adjusted(surround, surround, -surround, -surround),
                                 ToColor(*sample.color));
            }
            row.setLeft(patch + 8);
            text(ToShownText(sample.name));
        }
    }

private:
    static constexpr int rowHeight = 26;

    QString GetSummary() const {
        if (preview_.isTooLarge) return Translated("Too large for a preview");
        if (preview_.count == 0) return {};
        return Translated("%1 samples").replace("%1", QString::number(preview_.count));
    }

    SamplePreview preview_;
    RGBVector surround_;
};

CNorvelianFileDialog::CNorvelianFileDialog(QWidget* parent, bool platform) : QFileDialog(parent) {
    setOption(DontUseNativeDialog, !platform);
    if (platform) return;
    // Ours asks by itself, without a loop of its own.
    setOption(DontConfirmOverwrite);
}

void CNorvelianFileDialog::TakeTexts(bool saves) {
    if (!testOption(DontUseNativeDialog)) return;
    setLabelText(LookIn, Translated("Look in:"));
    setLabelText(FileName, Translated("File name:"));
    setLabelText(FileType, Translated("Files of type:"));
    setLabelText(Accept, Translated(saves ? "Save" : "Open"));
    setLabelText(Reject, Translated("Cancel"));
    TakeTheme();
}

void CNorvelianFileDialog::TakeTheme() {
    Theme const* const theme = ThemeOf(parentWidget());
    if (!theme) return;
    auto* const style = new CNorvelianStyle(*theme);
    style->setParent(this);
    setPalette(style->GetPalette());
    setFont(parentWidget()->window()->font());
    for (QWidget* const widget : findChildren<QWidget*>()) {
        widget->setStyle(style);
        widget->setPalette(style->GetPalette());
        widget->setFont(font());
        if (auto* const button = qobject_cast<QPushButton*>(widget)) button->setIcon({});
    }
}

void CNorvelianFileDialog::AddPreview() {
    auto* const grid = qobject_cast<QGridLayout*>(layout());
    if (!grid || preview_) return;
    Theme const* const theme = ThemeOf(parentWidget());
    RGBVector const surround = theme ? theme->Get(ThemeRole::Surround) : RGBVector(198, 198, 198);
    preview_ = new CNorvelianSamplePreview(this, surround);
    grid->addWidget(preview_, 0, grid->columnCount(), 4, 1);
    connect(this, &QFileDialog::currentChanged, preview_, [this](QString const& path) {
        RunGuarded([&] { return preview_->Show(FromPlatformText(path).GetStdString()), true; });
    });
}

SamplePreview const* CNorvelianFileDialog::GetPreview() const {
    return preview_ ? &preview_->Get() : nullptr;
}

bool CNorvelianFileDialog::MayReplace() {
    QStringList const files = selectedFiles();
    if (mayReplace_ || acceptMode() != AcceptSave || files.isEmpty() || !QFileInfo::exists(files[0]))
        return true;
    auto* const question = new QMessageBox(
        QMessageBox::Question, windowTitle(),
        Translated("%1 exists already. Replace it?").replace("%1", QFileInfo(files[0]).fileName()),
        QMessageBox::NoButton, this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setTextFormat(Qt::PlainText);
    QPushButton* const replaces = question->addButton(Translated("Replace"), QMessageBox::AcceptRole);
    question->setDefaultButton(question->addButton(Translated("Cancel"), QMessageBox::RejectRole));
    connect(replaces, &QPushButton::clicked, this, [this] {
        mayReplace_ = true;
        done(Accepted);
    });
    question->open();
    return false;
}

void CNorvelianFileDialog::accept() {
    bool const files = fileMode() == ExistingFile || fileMode() == ExistingFiles;
    for (QString const& file : selectedFiles()) {
        if (!testOption(DontUseNativeDialog) || !files || QFileInfo::exists(file)) continue;
        // The base would wait for an answer here.
        auto* const message =
            new QMessageBox(QMessageBox::Warning, windowTitle(),
                            Translated("There is no file %1").replace("%1", QFileInfo(file).fileName()),
                            QMessageBox::Ok, this);
        message->setAttribute(Qt::WA_DeleteOnClose);
        message->setTextFormat(Qt::PlainText);
        return message->open();
    }
    QFileDialog::accept();
}

void CNorvelianFileDialog::done(int result) {
    // The desktop's own dialog has asked already.
    if (result == Accepted && testOption(DontUseNativeDialog) && !MayReplace()) return;
    QFileDialog::done(result);
}

} // namespace GUI
