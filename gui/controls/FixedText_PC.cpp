#include "gui/controls/FixedText_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "core/creators/ComponentCreator.h"
#include "gui/controls/TextAdaption.h"
#include "gui/platform/Fonts_PC.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/TextConversion_PC.h"

#include <QFontMetrics>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<FixedText_PC> creator({"FixedText", "$Revision: 1.30 $", "GUI"});

QColor ToColor(RGBVector const& color) { return {color.GetRed(), color.GetGreen(), color.GetBlue()}; }

} // namespace

FixedText_PC::~FixedText_PC() { delete control_.data(); }

void FixedText_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                              DialogDataSource* dataSource) {
    FixedText::Initialize(parent, description, dataSource);
    control_ =
        std::make_unique<CNorvelianFixedText>(PlatformIndependentWindowID_PC::WindowOf(parent)).release();
    // The platform hides what comes into a window that is already shown.
    if (auto const* const window = control_->parentWidget(); window && window->isVisible()) control_->show();
    SetFont(description);
    AttributeReader const reader(description);
    caption_ = reader.Text(caption);
    ShowText();
    if (reader.Text(fontColor).Length() != 0) control_->SetTextColor(ToColor(reader.Colour(fontColor)));
    if (reader.Text(backgroundColor).Length() != 0)
        control_->SetBackgroundColor(ToColor(reader.Colour(backgroundColor)));
    OnUpdate({});
}

void FixedText_PC::SetFont(DescriptionTree const& description) {
    AttributeReader const reader(description);
    QFont font = control_->font();
    long const size = reader.Long(fontSize);
    if (reader.Has(fontName) || size != 0)
        font = FindFont(static_cast<short>(size != 0 ? size : 8), 0, reader.Text(fontName), false);
    font.setBold(reader.Flag(bold));
    font.setItalic(reader.Flag(italic));
    font.setUnderline(reader.Flag(underline));
    control_->setFont(font);
}

void FixedText_PC::ShowText() {
    String text = Utilities::LanguageServiceInterface::GetTranslation(caption_);
    if (auto const& adapter = GetTextAdapter(); !adapter.IsNull()) {
        QFontMetrics const metrics(control_->font());
        text = AdaptText(
            text, control_->width(),
            [&metrics](String const& candidate) {
                return metrics.horizontalAdvance(ToPlatformText(candidate));
            },
            [&adapter](String const& whole, unsigned long length) { return adapter->Adapt(whole, length); });
    }
    control_->setText(ToPlatformText(text));
}

void FixedText_PC::OnLanguageChanged() {
    FixedText::OnLanguageChanged();
    if (!control_) return;
    // What the data source puts together holds translated text and is asked for again.
    if (Anything const value = GetValue("Caption"); value.IsOfTypeString()) caption_ = value.GetString();
    ShowText();
}

void FixedText_PC::SetPosition(unsigned long x, unsigned long y) {
    if (IfPositionEqual(x, y)) return;
    FixedText::SetPosition(x, y);
    if (control_) control_->move(static_cast<int>(x), static_cast<int>(y));
}

void FixedText_PC::SetSize(unsigned long width, unsigned long height) {
    if (IfSizeEqual(width, height)) return;
    FixedText::SetSize(width, height);
    if (!control_) return;
    control_->resize(static_cast<int>(width), static_cast<int>(height));
    if (!GetTextAdapter().IsNull()) ShowText();
}

long FixedText_PC::OnUpdate(Anything const& command) {
    if (control_ && GetDataSource()) {
        if (Anything const value = GetValue("Bold"); value.IsValid()) {
            QFont font = control_->font();
            font.setBold(value.GetBool());
            control_->setFont(font);
        }
        if (Anything const value = GetValue("Caption"); value.IsOfTypeString()) caption_ = value.GetString();
        if (Anything const value = GetValue("BackgroundColor"); value.IsValid())
            control_->SetBackgroundColor(ToColor(RGBVector(value)));
        for (char const* const key : {"TextColor", "FontColor"})
            if (Anything const value = GetValue(key); value.IsValid())
                control_->SetTextColor(ToColor(RGBVector(value)));
        if (Anything const value = GetValue("Visible"); value.IsValid())
            control_->setVisible(value.GetBool());
        ShowText();
    }
    return FixedText::OnUpdate(command);
}

} // namespace GUI
