// The commands that a host gives a table by an update.
#include "gui/grid/Grid_PC.h"
#include "gui/grid/printing/GridPrinting_PC.h"

#include <QThread>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

String TextOf(AttributeMap const& arguments, char const* key) {
    Anything const* const value = arguments.FindValue(key);
    return value ? ToGridText(*value) : String();
}

bool IsYes(AttributeMap const& arguments, char const* key) { return TextOf(arguments, key) == "Yes"; }

long NumberOf(AttributeMap const& arguments, char const* key) {
    Anything const* const value = arguments.FindValue(key);
    return value && value->IsValid() ? value->GetLong() : 0;
}

/// "column" or "-column" with ";" between.
std::vector<GridSortKey> ReadOrder(String const& order) {
    std::vector<GridSortKey> keys;
    for (long i = 0; i < order.GetTokenCount(';'); ++i)
        if (long const column = order.GetToken(i, ';').GetLong(); column != 0)
            keys.push_back({std::abs(column), column < 0});
    return keys;
}

} // namespace

bool Grid_PC::RunCommand(String const& name, AttributeMap const& arguments) {
    auto* const grid = GetControl();
    if (!grid) return false;
    // The data source may let the table go while it is told of a change.
    EventScope const event(QThread::currentThread()->loopLevel());
    if (name == "Undo") return grid->GetHistory().CanUndo() && (grid->Undo(), true);
    if (name == "Redo") return grid->GetHistory().CanRedo() && (grid->Redo(), true);
    if (name == "Copy") return grid->Copy();
    if (name == "Cut") return grid->Cut(), true;
    if (name == "Paste") return grid->Paste(), true;
    if (name == "Find") return grid->Find(TextOf(arguments, "Text"), IsYes(arguments, "Backward"));
    if (name == "Sort") return grid->SortRows(ReadOrder(TextOf(arguments, "Order")));
    if (name == "Filter") return Filter(arguments);
    if (name == "Print") return Print(arguments);
    if (name != "Select") return false;
    GridPlace const place =
        grid->GetCore().GetPlace(static_cast<GridOrder::Line>(NumberOf(arguments, "Row")),
                                 static_cast<GridOrder::Line>(NumberOf(arguments, "Column")));
    if (place.row < 1 || place.column < 1) return false;
    grid->SetCurrent(place);
    return true;
}

bool Grid_PC::Filter(AttributeMap const& arguments) {
    std::vector<GridFilter> filters;
    if (long const column = NumberOf(arguments, "Column"); column > 0) {
        filters = GetControl()->GetFilters();
        std::erase_if(filters, [column](GridFilter const& filter) { return filter.column == column; });
        if (String const text = TextOf(arguments, "Text"); text.Length() != 0)
            filters.push_back({column, text});
    }
    return GetControl()->FilterRows(filters);
}

bool Grid_PC::Print(AttributeMap const& arguments) {
    auto* const grid = GetControl();
    GridPrintJob job{
        grid->GetCore(), grid->GetFrozenRows(), grid->GetFrozenCols(), grid->GetDecimalSign(), {}, {}};
    job.options.title = TextOf(arguments, "Title");
    job.options.fitWidth = !(TextOf(arguments, "FitWidth") == "No");
    if (virtual_)
        job.prepare = [this](long first, long last) {
            FetchRows(first, last);
            return IsAttached();
        };
    return PrintGridToPdf(TextOf(arguments, "File"), IsYes(arguments, "Landscape"), job);
}

} // namespace GUI
