#include "gui/press/TablePicture.h"

#include "gui/charts/ScaleMap.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/elements/drawing/VerdictSign.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

using Context = PlatformIndependentDeviceContext;

constexpr char const* ownGround = "the ground is the sheet's";
constexpr Attribute typeKey{"Type", AttributeType::Number, "1", "1 shows the sheet, 2 the ink zones"};
constexpr Attribute fontNameKey{"FontName", AttributeType::Text, "Arial", "Font of the zones' numbers"};
constexpr Attribute fontSizeKey{"FontSize", AttributeType::Number,
                                "12",       "Size of the zones' numbers: points, or pixels below 0",
                                false,      {-32768, 32767}};
constexpr Attribute boldKey{"Bold", AttributeType::Flag, "Yes", "The zones' numbers are bold"};
constexpr Attribute graduationKey{
    "ZonesGraduation", AttributeType::Number, "0", "A line and a number after so many zones", false,
    shortRange};
constexpr Attribute centredKey{"Centred", AttributeType::Flag, "No", "A sheet is in the middle of the pane"};
constexpr Attribute surroundKey{"SurroundColor", AttributeType::Colour, "",
                                "Around the sheet, which is white then"};
constexpr Attribute neutralMarksKey{"NeutralMarks", AttributeType::Flag, "No",
                                    "Fields and selection are marked in black and white"};
constexpr Attribute fieldNumbersKey{"FieldNumbers", AttributeType::Flag, "No",
                                    "Each field's index beside it"};
constexpr Attribute boxHeightKey{
    "BoxHeight", AttributeType::Number, "8", "Height of the tolerance boxes in pixels", false, shortRange};
constexpr Attribute signsKey{"Signs", AttributeType::Flag, "No",
                             "Zones out of tolerance have the sign of their verdict"};
constexpr Attribute attributeList[] = {Unused(CommonAttributes::frame, ownGround),
                                       Unused(CommonAttributes::backgroundColor, ownGround),
                                       typeKey,
                                       fontNameKey,
                                       fontSizeKey,
                                       boldKey,
                                       graduationKey,
                                       centredKey,
                                       surroundKey,
                                       neutralMarksKey,
                                       fieldNumbersKey,
                                       boxHeightKey,
                                       signsKey};

ElementRegistration<TablePicture, Pane> const registration({"TablePicture", "$Revision: 1.19.4.1 $", "GUI"},
                                                           attributeList);

constexpr char const* allCommand = "All";
constexpr char const* selectionCommand = "SelectionChanged";
constexpr char const* statesCommand = "ToleranceStates";

/// A pixel has 16 bits, so more can't be told apart.
constexpr long mostZones = std::numeric_limits<short>::max();
constexpr std::uint32_t zoneReserve = 6;
constexpr long warningState = 1;
constexpr long outState = 2;

RGBVector const white(255, 255, 255);
RGBVector const black;
RGBVector const zoneGround{ThemeRole::Panel, white};
RGBVector const zoneInk{ThemeRole::Axis, black};
RGBVector const quietLine{ThemeRole::Grid, RGBVector(233, 233, 233)};
RGBVector const selectedFieldColor(95, 200, 126);
RGBVector const fieldMarkColor(0, 0, 128);
RGBVector const positionColor(28, 200, 28);
RGBVector const good{ThemeRole::Pass, RGBVector(20, 178, 109)};
RGBVector const warning{ThemeRole::Warn, RGBVector(255, 249, 164)};
RGBVector const bad{ThemeRole::Fail, RGBVector(233, 0, 41)};
RGBVector const paleGood{ThemeRole::Band, RGBVector(233, 233, 233)};
RGBVector const boxOutline{ThemeRole::Border, RGBVector(128, 128, 128)};

short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

void UseColor(Context& context, RGBVector const& color, long width = 1) {
    context.SetBrush(color);
    context.SetPen(color, width, Context::solid);
}
void FillAround(Context& context, int x, int y, int radius) {
    context.FillEllipse(Short(x - radius), Short(y - radius), Short(x + radius), Short(y + radius));
}
bool IsOff(long state) { return state == warningState || state == outState; }
void Line(Context& context, int x1, int y1, int x2, int y2) {
    context.DrawLine(Short(x1), Short(y1), Short(x2), Short(y2));
}

std::vector<long> ToLongs(Anything const& value) {
    std::vector<long> numbers;
    for (Anything const& number : value.GetVectorOfAnythings()) numbers.push_back(number.GetLong());
    return numbers;
}
/// A vector of two.
std::pair<long, long> ToPlace(Anything const& value) {
    auto const& numbers = value.GetVectorOfAnythings();
    return {numbers[0].GetLong(), numbers[1].GetLong()};
}
template <class Visit> void VisitMaps(Anything const& map, Visit visit) {
    if (!map.IsValid()) return;
    for (auto entry = map.GetMapOfAnythings().Begin(); entry.IsValid(); ++entry)
        visit(entry.GetValue().GetMapOfAnythings());
}

} // namespace

void TablePicture::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                              DialogDataSource* dataSource) {
    Pane::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    type_ = static_cast<std::int32_t>(reader.Long(typeKey));
    bottomReserve_ = type_ == zoneType ? zoneReserve : 0;
    fontName_ = reader.Text(fontNameKey);
    fontSize_ = reader.Text(fontSizeKey).GetShort();
    bold_ = reader.Flag(boldKey);
    graduation_ = reader.Text(graduationKey).GetShort();
    centred_ = reader.Flag(centredKey);
    hasSurround_ = reader.HasColour(surroundKey);
    neutralMarks_ = reader.Flag(neutralMarksKey);
    fieldNumbers_ = reader.Flag(fieldNumbersKey);
    boxHeight_ = reader.Text(boxHeightKey).GetShort();
    signs_ = reader.Flag(signsKey);
    // A sheet is paper in every theme; the zones are a chart.
    ink_ = type_ == zoneType ? zoneInk : black;
    SetFrame(false);
    SetBackgroundColor(hasSurround_ ? reader.Colour(surroundKey) : type_ == zoneType ? zoneGround : white);
    RegisterOnUpdate();
}

// ------------------------------------------------------------------ data

long TablePicture::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    long const result = ReadUpdate(command);
    String const message = GetCommand(command);
    bool const all = !command.IsValid() || message == allCommand;
    if (message == allCommand || message == selectionCommand) {
        selectedField_ = -1;
        hasSelectedPosition_ = false;
    }
    if (all || message == selectionCommand) ReadSelection();
    if (all) table_ = ReadTable();
    if (message == statesCommand) table_.states = ReadStates();
    if (IsAttached() && !HasNoRepaint(command)) Repaint();
    return result;
}

void TablePicture::ReadSelection() {
    if (Anything const field = GetValue("SelectedInPictureFields"); field.IsValid())
        selectedField_ = field.GetLong();
    if (Anything const position = GetValue("SelectedPosition"); position.IsValid()) {
        selectedPosition_ = ToPlace(position);
        hasSelectedPosition_ = true;
    }
}

TablePicture::Table TablePicture::ReadTable() {
    Table table = {table_.size, {}, {}, {}, table_.zones, {}};
    if (Anything const size = GetValue("TableSize"); size.IsValid()) table.size = ToPlace(size);
    VisitMaps(GetValue("MeasureStrip"), [&table](Anything::MapOfAnythings const& entry) {
        auto const corners = ToLongs(entry["Coordinates"]);
        if (corners.size() < 4) return;
        Strip& strip = table.strips.emplace_back();
        strip.from = {corners[0], corners[1]};
        strip.to = {corners[2], corners[3]};
        for (Anything const& color : entry["Colors"].GetVectorOfAnythings()) strip.colors.emplace_back(color);
    });
    VisitMaps(GetValue("InPictureFields"), [&table](Anything::MapOfAnythings const& entry) {
        Field& field = table.fields.emplace_back();
        field.index = entry["Index"].GetLong();
        field.color = RGBVector(entry["Color"]);
        auto const numbers = ToLongs(entry["Coordinates"]);
        for (std::size_t i = 0; i + 1 < numbers.size(); i += 2)
            field.places.emplace_back(numbers[i], numbers[i + 1]);
    });
    if (Anything const marks = GetValue("RegisterMarks"); marks.IsValid())
        for (Anything const& mark : marks.GetVectorOfAnythings()) table.marks.push_back(ToPlace(mark));
    if (Anything const zones = GetValue("NumberOfZones"); zones.IsValid())
        table.zones = std::min(zones.GetLong(), mostZones);
    table.states = ReadStates();
    return table;
}

std::vector<long> TablePicture::ReadStates() {
    Anything const states = GetValue("ToleranceStates");
    return states.IsValid() ? ToLongs(states) : std::vector<long>();
}

// ------------------------------------------------------------------ places

TablePicture::Pixel TablePicture::GetExtent() const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    return {static_cast<int>(width), static_cast<int>(height)};
}

int TablePicture::GetPaperHeight() const {
    return std::max(GetExtent().y - static_cast<int>(bottomReserve_), 0);
}

void TablePicture::TableToPixel(double const& x, double const& y, short& pixelX, short& pixelY) {
    pixelX = 0;
    pixelY = 0;
    if (IsEmpty()) return;
    double const width = GetExtent().x;
    double const height = GetPaperHeight();
    auto const [tableWidth, tableHeight] = std::pair<double, double>(table_.size);
    double scaleX = width / tableWidth;
    double scaleY = height / tableHeight;
    double offsetX = 0;
    double offsetY = 0;
    if (type_ == sheetType) {
        double const smaller = std::min(scaleX, scaleY);
        if (centred_) {
            offsetX = std::trunc((width - smaller * tableWidth) / 2);
            offsetY = std::trunc((height - smaller * tableHeight) / 2);
        } else if (scaleX > scaleY) {
            offsetX = std::trunc(width * scaleY / 2.0);
        } else if (scaleX < scaleY) {
            offsetY = std::trunc(height * scaleX / 2.0);
        }
        scaleX = scaleY = smaller;
    }
    pixelX = ScaleMap::ToShort(std::trunc(scaleX * x) + offsetX);
    pixelY = ScaleMap::ToShort(std::trunc(scaleY * y) + offsetY);
}

TablePicture::Pixel TablePicture::At(double x, double y) {
    short pixelX = 0;
    short pixelY = 0;
    TableToPixel(x, y, pixelX, pixelY);
    return {pixelX, pixelY};
}

// ------------------------------------------------------------------ painting

void TablePicture::OnPaint(PlatformIndependentDeviceContext& context) {
    Pane::OnPaint(context);
    if (IsEmpty()) return;
    if (hasSurround_) PaintSheet(context);
    if (type_ == zoneType) PaintZoneFrame(context);
    for (Strip const& strip : table_.strips) PaintStrip(context, strip);
    for (Field const& field : table_.fields) PaintField(context, field);
    if (!table_.marks.empty()) context.SetPen(ink_, 1, Context::solid);
    for (Place const& mark : table_.marks) PaintMark(context, At(mark));
    if (hasSelectedPosition_) PaintSelectedPosition(context);
    if (type_ == zoneType && table_.zones > 1) PaintZones(context);
}

void TablePicture::PaintSheet(PlatformIndependentDeviceContext& context) {
    Pixel const from = At(0, 0);
    Pixel const to = At(table_.size);
    UseColor(context, white);
    context.FillRectangle(Short(from.x), Short(from.y), Short(to.x), Short(to.y));
}

void TablePicture::PaintZoneFrame(PlatformIndependentDeviceContext& context) {
    auto const [width, height] = GetExtent();
    int const paperHeight = GetPaperHeight();
    int const foot = height - static_cast<int>(bottomReserve_ / 2);
    context.SetPen(ink_, static_cast<long>(bottomReserve_), Context::solid);
    Line(context, 0, foot, width, foot);
    if (table_.zones > 1) {
        context.SetPen(quietLine, 2, Context::solid);
        for (int quarter = 1; quarter <= 3; ++quarter)
            Line(context, 0, quarter * (paperHeight / 4), width, quarter * (paperHeight / 4));
        for (long i = 0; i < table_.zones; ++i) {
            context.SetPen(IsGraduated(i + 1) ? ink_ : quietLine, IsGraduated(i + 1) ? 1 : 2, Context::solid);
            int const x = At(static_cast<double>(i + 1) * ZoneWidth(), 0).x;
            Line(context, x, 0, x, paperHeight);
        }
    }
    context.SetPen(ink_, 1, Context::solid);
    Line(context, 0, 0, 0, height);
    Line(context, width - 1, 0, width - 1, height);
}

void TablePicture::PaintStrip(PlatformIndependentDeviceContext& context, Strip const& strip) {
    if (strip.colors.empty()) return;
    constexpr int half = 2;
    constexpr int size = 4;
    auto const [width, height] = GetExtent();
    Pixel const one = At(strip.from);
    Pixel const other = At(strip.to);
    auto [x, x2] = std::minmax({one.x, other.x});
    auto [y, y2] = std::minmax({one.y, other.y});
    bool const runsAlongX = x2 - x > y2 - y;
    // One at the pane's edge is whole.
    x = std::max(x, half);
    y = std::max(y, half);
    x2 = std::max(x2, x + half);
    y2 = std::max(y2, y + half);
    auto color = strip.colors.begin();
    while (x - half <= x2 && x + half <= width && y - half <= y2 && y + half <= height) {
        UseColor(context, *color);
        int const right = x + half > x2 ? x2 - x + 1 : size;
        int const lower = y + half > y2 ? y2 - y + 1 : size;
        context.FillRectangle(Short(x - half), Short(y - half), Short(x + right), Short(y + lower));
        if (++color == strip.colors.end()) color = strip.colors.begin();
        (runsAlongX ? x : y) += size;
    }
}

void TablePicture::PaintField(PlatformIndependentDeviceContext& context, Field const& field) {
    bool const isSelected = field.index == selectedField_;
    for (Place const& place : field.places) {
        auto const [x, y] = At(place);
        if (type_ == sheetType) {
            if (isSelected && !neutralMarks_) {
                UseColor(context, selectedFieldColor);
                context.FillRectangle(Short(x - 10), Short(y - 10), Short(x + 10), Short(y + 10));
            }
            context.SetPen(ink_, 2, Context::solid);
            Line(context, x - 9, y, x + 8, y);
            Line(context, x, y - 9, x, y + 8);
            if (neutralMarks_) {
                if (isSelected)
                    context.DrawEllipse(Short(x - 15), Short(y - 15), Short(x + 15), Short(y + 15));
                context.SetBrush(white);
                context.SetPen(ink_, 1, Context::solid);
            } else {
                UseColor(context, fieldMarkColor);
            }
            FillAround(context, x, y, 5);
            if (fieldNumbers_) {
                context.SetFont(fontSize_, 0, 0, fontName_, bold_ && isSelected);
                context.SetTextColor(ink_);
                context.DrawText(Short(x + 16), Short(y - 20), String(field.index));
            }
        }
        UseColor(context, field.color);
        FillAround(context, x, y, 2);
    }
}

void TablePicture::PaintMark(PlatformIndependentDeviceContext& context, Pixel at) const {
    auto const [x, y] = at;
    Line(context, x - 7, y, x - 1, y);
    Line(context, x + 2, y, x + 8, y);
    Line(context, x, y - 7, x, y - 1);
    Line(context, x, y + 2, x, y + 8);
}

void TablePicture::PaintSelectedPosition(PlatformIndependentDeviceContext& context) {
    auto const [x, y] = At(selectedPosition_);
    context.SetPen(neutralMarks_ ? ink_ : positionColor, 2, Context::solid);
    context.DrawEllipse(Short(x - 9), Short(y - 9), Short(x + 9), Short(y + 9));
    Line(context, x - 6, y - 6, x + 6, y + 6);
    Line(context, x + 6, y - 6, x - 6, y + 6);
}

void TablePicture::PaintZones(PlatformIndependentDeviceContext& context) {
    int const half = (At(ZoneWidth(), 0).x - 4) / 2;
    int const bottom = GetExtent().y - static_cast<int>(bottomReserve_ / 2);
    int const top = bottom - 2 * (boxHeight_ / 2);
    context.SetFont(fontSize_, 0, 0, fontName_, bold_);
    long textWidth = 0;
    long textHeight = 0;
    context.GetTextExtent("X", textWidth, textHeight);
    for (long i = 0; i < std::min(table_.zones, static_cast<long>(table_.states.size())); ++i) {
        long const state = table_.states[static_cast<std::size_t>(i)];
        int const middle = At(static_cast<double>(i) * ZoneWidth() + ZoneWidth() / 2.0, 0).x;
        PaintZoneBox(context, state, {middle - half, top}, {middle + half, bottom});
        int const highest = signs_ && IsOff(state) ? PaintZoneSign(context, state, middle, top, bottom) : top;
        if (!IsGraduated(i)) continue;
        context.SetTextColor(ink_);
        context.DrawText(Short(middle - half + 1), Short(highest - textHeight), String(i + 1));
    }
}

void TablePicture::PaintZoneBox(PlatformIndependentDeviceContext& context, long state, Pixel from,
                                Pixel to) const {
    if (IsOff(state))
        UseColor(context, state == outState ? bad : warning);
    else
        UseColor(context, signs_ ? paleGood : good, 0);
    if (signs_ && state != outState) context.SetPen(IsOff(state) ? ink_ : boxOutline, 1, Context::solid);
    context.FillRectangle(Short(from.x), Short(from.y), Short(to.x), Short(to.y));
}

int TablePicture::PaintZoneSign(PlatformIndependentDeviceContext& context, long state, int middle, int top,
                                int bottom) {
    constexpr int size = 14;
    VerdictKind const kind = state == outState ? VerdictKind::Fail : VerdictKind::Marginal;
    bool const fits = bottom - top >= size && At(ZoneWidth(), 0).x - 4 >= size;
    int const signTop = fits ? (top + bottom - size) / 2 : top - size - 1;
    DrawVerdictSign(context, kind, fits ? VerdictTones::Reversed(kind) : VerdictTones::Of(kind),
                    Short(middle - size / 2), Short(signTop), size);
    return std::min(top, signTop);
}

} // namespace GUI
