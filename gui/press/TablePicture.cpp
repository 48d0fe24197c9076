#include "gui/press/TablePicture.h"

#include "gui/elements/description/ElementRegistration.h"
#include "gui/press/TableDrawing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

using namespace TableDrawing;

namespace {

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
/// Of a field's mark with its number, to each side.
constexpr int fieldReach = 64;

RGBVector const white(255, 255, 255);
RGBVector const black;
RGBVector const zoneGround{ThemeRole::Panel, white};
RGBVector const zoneInk{ThemeRole::Axis, black};
RGBVector const selectedFieldColor(95, 200, 126);
RGBVector const fieldMarkColor(0, 0, 128);
RGBVector const positionColor(28, 200, 28);

void FillAround(Context& context, int x, int y, int radius) {
    context.FillEllipse(Short(x - radius), Short(y - radius), Short(x + radius), Short(y + radius));
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
    if (message == statesCommand) {
        auto states = ReadStates();
        if (!IsAttached()) return result;
        if (!HasNoRepaint(command)) return TakeStates(std::move(states)), result;
        table_.states = std::move(states);
    }
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
    Table table;
    table.size = table_.size;
    table.zones = table_.zones;
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
        for (auto const& [x, y] : field.places) {
            table.fieldsFrom = {std::min(table.fieldsFrom.first, x), std::min(table.fieldsFrom.second, y)};
            table.fieldsTo = {std::max(table.fieldsTo.first, x), std::max(table.fieldsTo.second, y)};
        }
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
    auto const* const part = dynamic_cast<PaintedPart const*>(&context);
    painted_ = part ? part->GetPaintedBox() : std::nullopt;
    if (hasSurround_) PaintSheet(context);
    if (type_ == zoneType) PaintZoneFrame(context);
    for (Strip const& strip : table_.strips) PaintStrip(context, strip);
    if (MeetsFields())
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

void TablePicture::PaintStrip(PlatformIndependentDeviceContext& context, Strip const& strip) {
    if (strip.colors.empty()) return;
    constexpr int half = 2;
    constexpr int size = 4;
    auto const [width, height] = GetExtent();
    Pixel const one = At(strip.from);
    Pixel const other = At(strip.to);
    auto const [left, right] = std::minmax({one.x, other.x});
    auto const [top, bottom] = std::minmax({one.y, other.y});
    bool const runsAlongX = right - left > bottom - top;
    if (!Meets(painted_, left - size, top - size, right + 2 * size, bottom + 2 * size)) return;
    // One at the pane's edge is whole.
    Pixel at{std::max(left, half), std::max(top, half)};
    int const lastX = std::max(right, at.x + half);
    int const lastY = std::max(bottom, at.y + half);
    auto color = strip.colors.begin();
    while (at.x - half <= lastX && at.x + half <= width && at.y - half <= lastY && at.y + half <= height) {
        if (Meets(painted_, at.x - half, at.y - half, at.x + size, at.y + size)) {
            UseColor(context, *color);
            int const toRight = at.x + half > lastX ? lastX - at.x + 1 : size;
            int const toBottom = at.y + half > lastY ? lastY - at.y + 1 : size;
            context.FillRectangle(Short(at.x - half), Short(at.y - half), Short(at.x + toRight),
                                  Short(at.y + toBottom));
        }
        if (++color == strip.colors.end()) color = strip.colors.begin();
        (runsAlongX ? at.x : at.y) += size;
    }
}

bool TablePicture::MeetsFields() {
    Pixel const from = At(table_.fieldsFrom);
    Pixel const to = At(table_.fieldsTo);
    return Meets(painted_, from.x - fieldReach, from.y - fieldReach, to.x + fieldReach, to.y + fieldReach);
}

void TablePicture::PaintField(PlatformIndependentDeviceContext& context, Field const& field) {
    bool const isSelected = field.index == selectedField_;
    for (Place const& place : field.places) {
        auto const [x, y] = At(place);
        if (!Meets(painted_, x - fieldReach, y - fieldReach, x + fieldReach, y + fieldReach)) continue;
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

} // namespace GUI
