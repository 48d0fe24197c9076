#include "gui/grid/Grid.h"

#include "core/base/Exceptions.h"

#include <algorithm>
#include <array>
#include <optional>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr char const* noRepaint = "|NoRepaint";

std::uint16_t ToCount(long value) { return static_cast<std::uint16_t>(std::clamp(value, 0L, 65535L)); }

std::optional<long> ReadNumber(String const& text) {
    std::string const& digits = text.GetStdString();
    if (digits.empty() || digits.find_first_not_of("0123456789 ") != std::string::npos) return {};
    try {
        return text.GetLong();
    } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
        return {};
    }
}

/// Two numbers with ";" between.
std::optional<std::array<long, 2>> ReadPair(String const& text) {
    if (text.GetTokenCount(';') != 2) return {};
    auto const first = ReadNumber(text.GetToken(0, ';'));
    auto const second = ReadNumber(text.GetToken(1, ';'));
    if (!first || !second) return {};
    return std::array<long, 2>{*first, *second};
}

/// Columns a to c of the rows b to d.
std::optional<GridRange> ReadColumnsAndRows(String const& text) {
    if (text.GetTokenCount('-') != 2) return {};
    auto const begin = ReadPair(text.GetToken(0, '-'));
    auto const end = ReadPair(text.GetToken(1, '-'));
    if (!begin || !end) return {};
    return GridRange{(*begin)[1], (*begin)[0], (*end)[1], (*end)[0]};
}

} // namespace

CGXStyle Grid::Font::GetStyle() const {
    CGXStyle style;
    if (name.Length() != 0) style.fontName = name;
    if (size != 0) style.fontSize = static_cast<short>(std::clamp(size, -32768L, 32767L));
    style.bold = bold;
    return style;
}

void Grid::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                      DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    numberOfColumns_ = ToCount(reader.Long(numberOfColumnsAttribute));
    numberOfFixedColumns_ = ToCount(reader.Long(numberOfFixedColumnsAttribute));
    numberOfRows_ = ToCount(reader.Long(numberOfRowsAttribute));
    numberOfFixedRows_ = ToCount(reader.Long(numberOfFixedRowsAttribute));
    readOnly_ = reader.Flag(readOnlyAttribute);
    columnsWidth_ = reader.Long(columnsWidthAttribute);
    fixedColumnWidth_ =
        reader.Has(fixedColumnWidthAttribute) ? reader.Long(fixedColumnWidthAttribute) : columnsWidth_;
    rowHeight_ = reader.Long(rowHeightAttribute);
    fixedRowHeight_ = reader.Has(fixedRowHeightAttribute) ? reader.Long(fixedRowHeightAttribute) : rowHeight_;
    scrollBar_ = reader.Flag(scrollBarAttribute);
    headerFont_ = {reader.Text(headerFontNameAttribute), reader.Long(headerFontSizeAttribute),
                   reader.Flag(headerBoldAttribute)};
    font_ = {reader.Text(fontNameAttribute), reader.Long(fontSizeAttribute), reader.Flag(boldAttribute)};
    virtual_ = reader.Flag(virtualAttribute);
    RegisterOnUpdate();
}

// ------------------------------------------------------------------ updates

long Grid::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (command.IsOfTypeMap()) {
        AttributeMap const& arguments = command.GetMapOfAnythings();
        Anything const* const name = arguments.FindValue("Command");
        return name && name->IsOfTypeString() && RunCommand(name->GetString(), arguments) ? 1 : 0;
    }
    String text = command.IsOfTypeString() ? command.GetString() : String();
    bool const repaints = text.FindSubstring(noRepaint, 0) < 0;
    text.Replace(noRepaint, "");
    if (text == "Properties") {
        GUIElement::OnUpdate(command);
        if (IsAttached()) ReadProperties();
        if (IsAttached()) ApplyProperties();
        if (IsAttached() && virtual_) UpdateRows({});
        return 0;
    }
    if (text == "Sizes") {
        ReadCounts();
        if (IsAttached()) ResizeCells();
        return 0;
    }
    GridRange const range = ReadRange(text);
    if (virtual_)
        UpdateRows(range);
    else
        ReadCells(range);
    if (IsAttached() && repaints) Redraw();
    return 0;
}

void Grid::ReadCounts() {
    std::pair<char const*, std::uint16_t*> const counts[] = {{"NumberOfColumns", &numberOfColumns_},
                                                             {"NumberOfFixedColumns", &numberOfFixedColumns_},
                                                             {"NumberOfRows", &numberOfRows_},
                                                             {"NumberOfFixedRows", &numberOfFixedRows_}};
    for (auto const& [key, count] : counts)
        if (Anything const value = GetValue(key); value.IsValid()) *count = ToCount(value.GetLong());
}

void Grid::ReadProperties() {
    if (Anything const value = GetValue("ReadOnly"); value.IsValid()) readOnly_ = value.GetBool();
    ReadCounts();
    if (Anything const value = GetValue("ColumnWidth"); value.IsValid()) columnsWidth_ = value.GetLong();
    if (Anything const value = GetValue("RowHeight"); value.IsValid()) rowHeight_ = value.GetLong();
    if (Anything const value = GetValue("ColumnStyles"); value.IsValid()) {
        std::vector<AttributeMap> styles;
        for (Anything const& style : value.GetVectorOfAnythings())
            styles.push_back(style.IsOfTypeMap() ? style.GetMapOfAnythings() : AttributeMap());
        columnStyles_ = std::move(styles);
    }
    if (Anything const value = GetValue("MergedCells"); value.IsValid()) {
        mergedCells_.clear();
        for (Anything const& range : value.GetVectorOfAnythings())
            if (auto const read = ReadColumnsAndRows(range.GetString())) mergedCells_.push_back(*read);
    }
}

GridRange Grid::ReadRange(String const& command) {
    GridRange range{1, 1, GetNumberOfRows(), GetNumberOfColumns()};
    // A virtual table has more rows than that counts.
    if (virtual_) range.bottom = 0x7FFFFFFFL;
    if (auto const columnsAndRows = ReadColumnsAndRows(command)) return range.Meet(*columnsAndRows);
    if (auto const cell = ReadPair(command))
        return range.Meet({(*cell)[0], (*cell)[1], (*cell)[0], (*cell)[1]});
    return range;
}

void Grid::ReadCells(GridRange const& range) {
    LockUpdate(true);
    // What the data source throws doesn't leave the screen locked.
    try {
        for (long row = range.top; row <= range.bottom && IsAttached(); ++row) {
            Anything const value = GetValue(String(row - 1));
            if (!IsAttached() || !value.IsValid()) continue;
            auto const& cells = value.GetVectorOfAnythings();
            long const last = std::min(range.right, static_cast<long>(cells.GetSize()));
            for (long column = range.left; column <= last; ++column) {
                Anything const& cell = cells[static_cast<std::uint32_t>(column - 1)];
                if (cell.IsOfTypeMap())
                    SetCell(static_cast<unsigned short>(row), static_cast<unsigned short>(column),
                            cell.GetMapOfAnythings());
            }
        }
    } catch (...) {
        if (IsAttached()) LockUpdate(false);
        throw;
    }
    if (IsAttached()) LockUpdate(false);
}

long Grid::GetSharedSize(bool fixed, long own, long fixedSize, long room, long count, long fixedCount) {
    if (fixed && fixedSize != -1) return fixedSize;
    if (own != -1) return own;
    if (room <= 0) return -1;
    long const lines = fixedSize == -1 ? count : count - fixedCount;
    long const shared = fixedSize == -1 ? room : room - fixedSize * fixedCount;
    return lines <= 0 ? -1 : std::max(shared / lines, 0L);
}

} // namespace GUI
