#include "gui/controls/FixedText_PC.h"

#include "gui/controls/ControlFont_PC.h"
#include "gui/controls/TextAdaption.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/platform/TextConversion_PC.h"

#include <QFontMetrics>
#include <algorithm>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

ElementRegistration<FixedText_PC, GUIElement> const registration({"FixedText", "$Revision: 1.30 $", "GUI"},
                                                                 FixedText::attributes);

} // namespace

void FixedText_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                              DialogDataSource* dataSource) {
    FixedText::Initialize(parent, description, dataSource);
    label_ = &control_.Make<CNorvelianFixedText>(parent, "FixedText: Couldn't create it !!!");
    AttributeReader const reader(description);
    if (reader.Text(alignment) == "Right") label_->setAlignment(Qt::AlignRight | Qt::AlignTop);
    control_.SetFont(ReadFont(reader, {fontName, fontSize, bold, italic, underline}, label_->font()));
    if (reader.HasColour(fontColor)) control_.SetTextColor(reader.Colour(fontColor));
    if (reader.HasColour(backgroundColor)) control_.SetBackgroundColor(reader.Colour(backgroundColor));
    hasOwnWidth_ = reader.Has(CommonAttributes::minimalWidth);
    caption_ = reader.Text(caption);
    OnUpdate({});
}

void FixedText_PC::OnDetach() {
    label_ = nullptr;
    control_.Release();
    FixedText::OnDetach();
}

void FixedText_PC::ShowText() {
    if (!control_.GetWidget()) return;
    String text = GetShownText(caption_);
    if (auto const& adapter = GetTextAdapter(); !adapter.IsNull()) {
        QFontMetrics const metrics(label_->font());
        text = AdaptText(
            text, label_->width(),
            [&metrics](String const& candidate) { return metrics.horizontalAdvance(ToShownText(candidate)); },
            [&adapter](String const& whole, unsigned long length) { return adapter->Adapt(whole, length); });
    }
    if (!label_->SetWholeText(ToShownText(text)) || hasOwnWidth_ || !GetTextAdapter().IsNull()) return;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    // Before the first layout the width is asked for anyway; afterwards only a text that doesn't fit asks.
    if (width != 0 && label_->GetTextWidth() > width) RecalculateSize();
}

void FixedText_PC::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                      unsigned long& minimalHeight, unsigned long& maximalHeight) {
    FixedText::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    if (hasOwnWidth_ || !control_.GetWidget() || !GetTextAdapter().IsNull()) return;
    minimalWidth = std::min(std::max(minimalWidth, label_->GetTextWidth()), maximalWidth);
}

void FixedText_PC::OnLanguageChanged() {
    FixedText::OnLanguageChanged();
    // What the data source puts together holds translated text and is asked for again.
    if (Anything const value = GetValue(Values::caption); value.IsOfTypeString())
        caption_ = value.GetString();
    ShowText();
}

void FixedText_PC::SetPosition(unsigned long x, unsigned long y) {
    if (IfPositionEqual(x, y)) return;
    FixedText::SetPosition(x, y);
    control_.SetPosition(x, y);
}

void FixedText_PC::SetSize(unsigned long width, unsigned long height) {
    if (IfSizeEqual(width, height)) return;
    FixedText::SetSize(width, height);
    control_.SetSize(width, height);
    if (!GetTextAdapter().IsNull()) ShowText();
}

long FixedText_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (Anything const value = GetValue("Bold"); value.IsValid()) control_.SetBold(value.GetBool());
    if (Anything const value = GetValue(Values::caption); value.IsOfTypeString())
        caption_ = value.GetString();
    if (Anything const value = GetValue(backgroundColor.key); value.IsValid())
        control_.SetBackgroundColor(RGBVector(value));
    for (char const* const key : {"TextColor", "FontColor"})
        if (Anything const value = GetValue(key); value.IsValid()) control_.SetTextColor(RGBVector(value));
    if (Anything const value = GetValue(Values::visible); value.IsValid()) control_.Show(value.GetBool());
    ShowText();
    return FixedText::OnUpdate(command);
}

} // namespace GUI
