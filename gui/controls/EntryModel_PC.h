#pragma once

#include "gui/controls/ChoiceEntries.h"
#include "gui/platform/TextConversion_PC.h"

#include <QAbstractListModel>
#include <QCollator>
#include <algorithm>
#include <numeric>
#include <vector>

namespace GUI {

/// Where the entries are when they are sorted in the order of the user's language.
inline std::vector<std::uint32_t> SortByLanguage(ChoiceEntries const& entries) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    // Comparing keys is much faster than comparing texts.
    std::vector<QCollatorSortKey> keys;
    keys.reserve(static_cast<std::size_t>(entries.GetSize()));
    for (long i = 0; i < entries.GetSize(); ++i) keys.push_back(collator.sortKey(ToPlatformText(entries[i])));
    std::vector<std::uint32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&keys](std::uint32_t a, std::uint32_t b) { return keys[a].compare(keys[b]) < 0; });
    return order;
}

/// Entries as the platform's views see them. A text is converted when it is shown.
class EntryModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    /// They must live as long as the model shows them, and tell of changes by `Reset`.
    void SetEntries(ChoiceEntries const* entries) {
        beginResetModel();
        entries_ = entries;
        endResetModel();
    }
    int rowCount(QModelIndex const& parent = {}) const override {
        return parent.isValid() || !entries_ ? 0 : static_cast<int>(entries_->GetSize());
    }
    QVariant data(QModelIndex const& index, int role) const override {
        bool const isText = role == Qt::DisplayRole || role == Qt::EditRole;
        return isText && entries_ && index.row() < entries_->GetSize()
                   ? QVariant(ToPlatformText((*entries_)[index.row()]))
                   : QVariant();
    }

private:
    ChoiceEntries const* entries_ = nullptr;
};

} // namespace GUI
