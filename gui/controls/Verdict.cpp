#include "gui/controls/Verdict.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/elements/drawing/NumberFormat.h"

#include <algorithm>
#include <limits>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::Anything;
using Utilities::String;

namespace {

using Context = PlatformIndependentDeviceContext;

ElementRegistration<Verdict, Pane> const registration({"Verdict", "$Revision: 1.1 $", "GUI"},
                                                      Verdict::attributes);

constexpr char const* face = "Noto Sans";
constexpr short padding = 16;
constexpr short smallestWord = 12;
constexpr short quantitySize = 20;
constexpr short valueSize = 48;
constexpr short textSize = 14;
constexpr short captionSize = 12;
/// What the numbers and the reason take below the sign.
constexpr short numbersHeight = 92;

/// "Value" as it is shown: empty where the data source gives none.
String NumberText(Anything const& value) {
    if (!value.IsValid()) return {};
    constexpr NumberFormat format;
    try {
        double const number = !value.IsOfTypeString()           ? value.GetDouble()
                              : value.GetString().Length() == 0 ? std::numeric_limits<double>::quiet_NaN()
                                                                : value.GetString().GetDouble();
        return format.Write(number);
    } catch (OutOfRangeException const&) {
        return format.Write(std::numeric_limits<double>::quiet_NaN());
    }
}

struct Extent {
    long width = 0;
    long height = 0;
};
Extent Measure(Context& context, String const& text, short size, bool bold) {
    Extent extent;
    context.SetFont(static_cast<short>(-size), 0, 0, face, bold ? Context::boldFont : short{0});
    context.GetTextExtent(text, extent.width, extent.height);
    return extent;
}

} // namespace

void Verdict::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    CallScope const call(*this);
    Pane::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    constexpr unsigned long largest = 4096;
    fill_ = reader.Flag(fill);
    mono_ = reader.Flag(mono);
    signSize_ = static_cast<short>(std::min(reader.Unsigned(signSize), largest));
    wordSize_ = static_cast<short>(std::min(reader.Unsigned(wordSize), largest));
    RegisterOnUpdate();
    Read();
}

void Verdict::Read() {
    CallScope const call(*this);
    Anything const verdict = GetValue("Verdict");
    auto const kind = verdict.IsOfTypeString() ? FindVerdict(verdict.GetString()) : std::nullopt;
    kind_ = kind.value_or(VerdictKind::NoData);
    texts_.word = Utilities::LanguageServiceInterface::GetTranslation(WordOf(kind_));
    texts_.value = NumberText(IsAttached() ? GetValue("Value") : Anything());
    for (auto const& [key, text] :
         {std::pair("Word", &texts_.word), std::pair("Quantity", &texts_.quantity),
          std::pair("Condition", &texts_.condition), std::pair("Limit", &texts_.limit),
          std::pair("Warning", &texts_.warning), std::pair("Reason", &texts_.reason)}) {
        if (!IsAttached()) return;
        if (Anything const value = GetValue(key); value.IsOfTypeString()) *text = value.GetString();
    }
}

long Verdict::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    Read();
    if (!IsAttached()) return 0;
    TellAccessibleChange();
    return Pane::OnUpdate(command);
}

void Verdict::OnLanguageChanged() {
    CallScope const call(*this);
    Read();
    if (IsAttached()) Pane::OnLanguageChanged();
}

void Verdict::PaintSignAndWord(Context& context, VerdictTones const& tones, RGBVector const& ink, short width,
                               short height) const {
    long const room = width - 3L * padding - signSize_;
    // The largest size whose width fits: the width goes with the size, but not to the pixel.
    short size = wordSize_;
    Extent extent = Measure(context, texts_.word, size, true);
    while (extent.width > room && size > smallestWord) {
        auto const fitting = static_cast<short>(size * std::max(room, 1L) / std::max(extent.width, 1L));
        size = std::clamp<short>(fitting, smallestWord, static_cast<short>(size - 1));
        extent = Measure(context, texts_.word, size, true);
    }
    // In a filled pane both are in the middle.
    long const left =
        fill_ ? std::max<long>(padding, (width - signSize_ - 2L * padding - extent.width) / 2) : padding;
    context.SetTextColor(ink);
    context.DrawText(static_cast<short>(left + signSize_ + padding),
                     static_cast<short>((height - extent.height) / 2), texts_.word);
    DrawVerdictSign(context, kind_, tones, static_cast<short>(left),
                    static_cast<short>((height - signSize_) / 2), signSize_);
}

void Verdict::PaintNumbers(Context& context, short width, short top, short height) const {
    RGBVector const ink = Themed(ThemeRole::Ink);
    RGBVector const quiet = Themed(ThemeRole::Ink2);
    auto const right = static_cast<short>(width - padding);
    context.SetPen(Themed(ThemeRole::Line), 1, Context::solid);
    context.DrawLine(padding, top, right, top);

    auto const draw = [&](String const& text, short size, bool bold, RGBVector const& color, long x, long y) {
        Extent const extent = Measure(context, text, size, bold);
        context.SetTextColor(color);
        context.DrawText(static_cast<short>(x), static_cast<short>(y), text);
        return extent;
    };
    auto const drawRight = [&](String const& text, short size, RGBVector const& color, long y) {
        draw(text, size, false, color, right - Measure(context, text, size, false).width, y);
    };
    Extent const quantity = draw(texts_.quantity, quantitySize, true, ink, padding, top + 8);
    Extent const condition = draw(texts_.condition, captionSize, false, quiet, padding, top + 38);
    Extent const value = Measure(context, texts_.value, valueSize, true);
    long const taken = padding + std::max(quantity.width, condition.width) + padding;
    draw(texts_.value, valueSize, true, ink, std::max(taken, (width - value.width) / 2L), top);
    drawRight(texts_.limit, textSize, ink, top + 14);
    drawRight(texts_.warning, captionSize, quiet, top + 38);
    draw(texts_.reason, textSize, false, ink, padding, top + height - 28);
}

void Verdict::OnPaint(Context& context) {
    unsigned long paneWidth = 0;
    unsigned long paneHeight = 0;
    GetSize(paneWidth, paneHeight);
    auto const width = static_cast<short>(paneWidth);
    auto const height = static_cast<short>(paneHeight);
    if (fill_ && kind_ != VerdictKind::NoData) {
        VerdictTones const tones = VerdictTones::Of(kind_);
        context.SetPen(tones.body, 1, Context::solid);
        context.SetBrush(tones.body);
        context.FillRectangle(0, 0, width, height);
        return PaintSignAndWord(context, VerdictTones::Reversed(kind_), tones.glyph, width, height);
    }
    Pane::OnPaint(context);
    VerdictTones const tones = mono_ ? VerdictTones::InInk(GetBackgroundColor()) : VerdictTones::Of(kind_);
    bool const hasNumbers = !fill_ && height >= signSize_ + numbersHeight &&
                            (texts_.value.Length() != 0 || texts_.reason.Length() != 0);
    auto const numbersTop = static_cast<short>(height - (hasNumbers ? numbersHeight : 0));
    PaintSignAndWord(context, tones, Themed(ThemeRole::Ink), width, numbersTop);
    if (hasNumbers) PaintNumbers(context, width, numbersTop, numbersHeight);
}

Accessible Verdict::GetAccessible() {
    Accessible told = Pane::GetAccessible();
    told.role = Accessible::Role::Text;
    told.name = texts_.word;
    std::string description;
    for (String const* const part : {&texts_.quantity, &texts_.value, &texts_.limit, &texts_.reason})
        if (part->Length() != 0) description += (description.empty() ? "" : ", ") + part->GetStdString();
    told.description = String(description);
    return told;
}

} // namespace GUI
