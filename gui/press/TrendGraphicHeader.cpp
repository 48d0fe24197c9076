#include "gui/press/TrendGraphicHeader.h"

#include "gui/elements/description/ElementRegistration.h"
#include "gui/elements/drawing/VerdictSign.h"
#include "gui/press/PressText.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace Ostrinda {

using GUI::Attribute;
using GUI::AttributeType;
using GUI::RGBVector;
using GUI::ThemeRole;
using Utilities::Anything;
using Utilities::String;

namespace {

using Context = GUI::PlatformIndependentDeviceContext;

constexpr Attribute backgroundKey{"BackgroundColor", AttributeType::Colour, "255,255,255", "Background"};
constexpr Attribute itemHeightKey{"ItemHeight", AttributeType::Number, "20", "Height of a line in pixels"};
constexpr Attribute fontNameKey{"FontName", AttributeType::Text, "Arial", "Font of the lines"};
constexpr Attribute fontSizeKey{"FontSize", AttributeType::Number,
                                "0",        "Of texts in the middle of their lines; 0 for what fits",
                                false,      {-32768, 32767}};
constexpr Attribute columnsKey{"Columns", AttributeType::Text, "32,70,100", "Where the columns begin"};
constexpr Attribute toleranceKey{"ToleranceBackground", AttributeType::Text, "255,0,0",
                                 "Colour of the mark out of tolerance"};
constexpr Attribute counterKey{"CounterBackground", AttributeType::Text, "255,255,255",
                               "Background of the numbers"};
constexpr Attribute dateKey{"DateBackground", AttributeType::Text, "255,255,255", "Background of the texts"};
// Interface; the first one's presence lets the second one count.
constexpr Attribute seperatorKey{"SeperatorHeight", AttributeType::Number, "",
                                 "Needed for \"SeparatorHeight\" to count"};
constexpr Attribute separatorKey{"SeparatorHeight", AttributeType::Number, "1", "Free pixels between lines"};
constexpr Attribute selectKey{"SelectColor", AttributeType::Text, "0,0,255", "Colour of the selected line"};
constexpr Attribute markSelectedKey{"MarkSelected", AttributeType::Flag, "No", "Shows the selected sheet"};
constexpr Attribute signsKey{"Signs", AttributeType::Flag, "No", "A sign marks what is out of tolerance"};
constexpr Attribute newestFirstKey{"NewestFirst", AttributeType::Flag, "No", "The last sheet is on top"};
constexpr Attribute cellsKey{"Cells", AttributeType::Text, "", "Right edges of further columns"};
constexpr Attribute okColumnKey{"OKColumn", AttributeType::Number, "0", "Where \"OK\" stands in a box"};
constexpr Attribute attributeList[] = {backgroundKey, itemHeightKey,  fontNameKey, fontSizeKey,
                                       columnsKey,    toleranceKey,   counterKey,  dateKey,
                                       seperatorKey,  separatorKey,   selectKey,   markSelectedKey,
                                       signsKey,      newestFirstKey, cellsKey,    okColumnKey};

GUI::ElementRegistration<TrendGraphicHeader, GUI::Pane> const
    registration({"TrendGraphicHeader", "$Revision: 1.10 $", "Ostrinda"}, attributeList);

/// An item height above this is a count of lines that share the pane.
constexpr long lineCountBase = 100000;
/// More lines than a pane has pixels.
constexpr long mostLines = std::numeric_limits<short>::max();
constexpr short selectedBarWidth = 4;

RGBVector const ink{ThemeRole::Ink, RGBVector()};
RGBVector const paper{ThemeRole::Panel, RGBVector(255, 255, 255)};
RGBVector const selectedPaper{ThemeRole::Header, RGBVector(224, 224, 224)};

short Short(long value) {
    constexpr long lowest = std::numeric_limits<short>::min();
    constexpr long highest = std::numeric_limits<short>::max();
    return static_cast<short>(std::clamp(value, lowest, highest));
}

void UseColor(Context& context, RGBVector const& color) {
    context.SetPen(color, 1, Context::solid);
    context.SetBrush(color);
}

std::optional<long> ToNumber(String const& text) {
    std::string const& digits = text.GetStdString();
    constexpr std::size_t most = 9;
    if (digits.empty() || digits.size() > most || digits.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    return text.GetLong();
}

/// All numbers of a text, or none.
std::vector<long> ToNumbers(String const& text, char separator) {
    std::vector<long> numbers;
    for (long i = 0; i < text.GetTokenCount(separator); ++i) {
        auto const number = ToNumber(text.GetToken(i, separator));
        if (!number) return {};
        numbers.push_back(*number);
    }
    return numbers;
}

/// A colour of three numbers, or of a role; anything else leaves it.
void TakeColor(GUI::AttributeReader const& reader, Attribute const& attribute, RGBVector& color) {
    String const text = reader.Text(attribute);
    if (ToNumbers(text, ',').size() == 3 || GUI::FindThemeRole(text.GetStdString())) color = RGBVector(text);
}

} // namespace

void TrendGraphicHeader::Initialize(GUI::PlatformIndependentWindowID const& parent,
                                    GUI::DescriptionTree const& description,
                                    GUI::DialogDataSource* dataSource) {
    GUI::CallScope const call(*this);
    Pane::Initialize(parent, description, dataSource);
    ReadDescription(description);
    RegisterOnUpdate();
    OnUpdate("Properties");
}

void TrendGraphicHeader::ReadDescription(GUI::DescriptionTree const& description) {
    GUI::AttributeReader const reader(description);
    if (!reader.HasColour(backgroundKey)) SetBackgroundColor(paper);
    itemHeight_ = reader.Long(itemHeightKey);
    fontName_ = reader.Text(fontNameKey);
    fontSize_ = reader.Text(fontSizeKey).GetShort();
    if (auto const columns = ToNumbers(reader.Text(columnsKey), ','); columns.size() == columns_.size())
        std::copy(columns.begin(), columns.end(), columns_.begin());
    toleranceBackground_ = {ThemeRole::Fail, RGBVector(255, 0, 0)};
    counterBackground_ = dateBackground_ = paper;
    selectColor_ = {ThemeRole::Accent, RGBVector(0, 0, 255)};
    for (auto const& [key, color] : {std::pair(&toleranceKey, &toleranceBackground_),
                                     {&counterKey, &counterBackground_},
                                     {&dateKey, &dateBackground_},
                                     {&selectKey, &selectColor_}})
        if (reader.Has(*key)) TakeColor(reader, *key, *color);
    separatorHeight_ = 1;
    if (reader.Has(seperatorKey) && reader.Has(separatorKey))
        separatorHeight_ = reader.Text(separatorKey).GetLong();
    markSelected_ = reader.Flag(markSelectedKey);
    signs_ = reader.Flag(signsKey);
    newestFirst_ = reader.Flag(newestFirstKey);
    cells_ = ToNumbers(reader.Text(cellsKey), ',');
    okColumn_ = reader.Long(okColumnKey);
}

// ------------------------------------------------------------------ data

long TrendGraphicHeader::OnUpdate(Anything const& command) {
    GUI::CallScope const call(*this);
    long const result = ReadUpdate(command);
    if (GetCommand(command) == "Properties")
        ReadProperties();
    else
        ReadValues();
    if (Anything const sheet = GetValue("IndexOKSheet"); sheet.IsValid()) indexOKSheet_ = sheet.GetLong();
    if (IsAttached() && !HasNoRepaint(command)) Repaint();
    return result;
}

void TrendGraphicHeader::ReadProperties() {
    if (Anything const count = GetValue("ElementCounter"); count.IsValid() && count.GetLong() > 0)
        itemHeight_ = std::min(count.GetLong(), mostLines) + lineCountBase;
    if (Anything const range = GetValue("Range"); range.IsOfTypeString()) ReadRange(range.GetString());
    if (Anything const index = GetValue("IndexSelected"); index.IsValid()) indexSelected_ = index.GetLong();
}

void TrendGraphicHeader::ReadRange(String const& range) {
    auto const numbers = ToNumbers(range, '-');
    if (numbers.size() != 2) return;
    firstIndex_ = numbers[0];
    lastIndex_ = numbers[1];
}

void TrendGraphicHeader::ReadValues() {
    Anything const values = GetValue("Values");
    if (!values.IsValid()) return;
    std::vector<String> texts;
    auto const& answers = values.GetVectorOfAnythings();
    texts.reserve(answers.GetSize());
    for (Anything const& text : answers) texts.push_back(text.GetString());
    values_ = std::move(texts);
}

// ------------------------------------------------------------------ painting

void TrendGraphicHeader::SettleItemHeight(long height) {
    // A pane that has no room yet for a pixel each settles when it has.
    if (itemHeight_ > lineCountBase && height >= itemHeight_ - lineCountBase)
        itemHeight_ = height / (itemHeight_ - lineCountBase);
}

bool TrendGraphicHeader::IsOKSheet(long index) const {
    return index >= 0 && indexOKSheet_ >= 0 && std::max(indexOKSheet_ - 1, 0L) == index;
}

short TrendGraphicHeader::FontHeight() const {
    if (fontSize_ != 0) return fontSize_;
    return Short(static_cast<long>(static_cast<double>(itemHeight_ - separatorHeight_) * 0.75));
}

void TrendGraphicHeader::SetFont(Context& context, bool bold) const {
    context.SetTextColor(ink);
    context.SetFont(FontHeight(), 0, 0, fontName_, bold ? Context::boldFont : short{0});
}

void TrendGraphicHeader::OnPaint(Context& context) {
    Pane::OnPaint(context);
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    auto const paneHeight = static_cast<long>(height);
    SettleItemHeight(paneHeight);
    if (itemHeight_ <= 0 || itemHeight_ > lineCountBase) return;
    auto const count = static_cast<long>(values_.size());
    bool const isWhole = firstIndex_ == -1 || lastIndex_ == -1;
    long const first = isWhole ? 0 : std::max(firstIndex_ - 1, 0L);
    long const last = isWhole ? count : std::min(lastIndex_, count);
    std::optional<Row> okRow;
    long next = first;
    for (long y = 0; y + itemHeight_ < paneHeight; y += itemHeight_, ++next) {
        long const index = newestFirst_ ? last - 1 - (next - first) : next;
        bool const isSheet = index >= first && index < last;
        Row const row{isSheet ? index : -1, Short(y), Short(y + itemHeight_ - separatorHeight_)};
        PaintRow(context, row, Short(static_cast<long>(width)));
        // Marked where it belongs, whether or not there is a text yet.
        if (IsOKSheet(index)) okRow = row;
    }
    if (okRow) PaintOK(context, *okRow);
}

void TrendGraphicHeader::PaintRow(Context& context, Row const& row, short width) const {
    bool const isSelected = row.index >= 0 && IsSelectedSheet(row.index);
    UseColor(context, isSelected ? selectedPaper : counterBackground_);
    context.FillRectangle(Short(columns_[0]), row.top, Short(columns_[1]), row.bottom);
    UseColor(context, isSelected ? selectedPaper : dateBackground_);
    context.FillRectangle(Short(columns_[1]), row.top, width, row.bottom);
    if (row.index < 0) return;
    String text = values_[static_cast<std::size_t>(row.index)];
    bool const isOff = text.FindSubstring(" ", 0) == 0;
    if (isOff) text = text.Mid(1, text.Length());
    if (isOff && !signs_) UseColor(context, toleranceBackground_);
    if (isOff && !signs_) context.FillRectangle(0, row.top, Short(columns_[0]), row.bottom);
    if (isSelected) {
        UseColor(context, selectColor_);
        context.FillRectangle(0, row.top, selectedBarWidth, row.bottom);
    }
    long const signSize = std::min(itemHeight_ - separatorHeight_ - 4, 16L);
    if (isOff && signs_ && signSize > 0)
        GUI::DrawVerdictSign(context, GUI::VerdictKind::Marginal,
                             GUI::VerdictTones::Of(GUI::VerdictKind::Marginal),
                             Short((columns_[0] - signSize) / 2),
                             Short((row.top + row.bottom - signSize) / 2), Short(signSize));
    PaintTexts(context, row, text);
}

short TrendGraphicHeader::TextTop(Context& context, Row const& row) const {
    if (fontSize_ == 0) return row.top;
    return Short(row.top + (row.bottom - row.top - ExtentOf(context, "X").second) / 2);
}

void TrendGraphicHeader::PaintTexts(Context& context, Row const& row, String const& text) const {
    SetFont(context, IsSelectedSheet(row.index));
    short const top = TextTop(context, row);
    context.DrawText(Short(columns_[0] + 1), top, String(row.index + 1));
    if (cells_.empty()) return context.DrawText(Short(columns_[1]), top, text);
    context.DrawText(Short(columns_[1]), top, text.GetToken(0, '\t'));
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        String const cell = text.GetToken(static_cast<long>(i) + 1, '\t');
        context.DrawText(Short(cells_[i] - ExtentOf(context, cell).first), top, cell);
    }
}

void TrendGraphicHeader::PaintOK(Context& context, Row const& row) const {
    SetFont(context, okColumn_ != 0);
    if (okColumn_ == 0) return context.DrawText(1, TextTop(context, row), "OK");
    constexpr long padding = 6;
    context.SetPen(ink, 1, Context::solid);
    context.DrawRectangle(Short(okColumn_), Short(row.top + 2),
                          Short(okColumn_ + ExtentOf(context, "OK").first + 2 * padding),
                          Short(row.bottom - 2));
    context.DrawText(Short(okColumn_ + padding), TextTop(context, row), "OK");
}

} // namespace Ostrinda
