#pragma once

#include <QListView>

namespace GUI {

/// The window of a list box.
class CNorvelianListBox : public QListView {
public:
    explicit CNorvelianListBox(QWidget* parent) : QListView(parent) {
        setEditTriggers(NoEditTriggers);
        // One row is measured, not 100000.
        setUniformItemSizes(true);
    }
};

} // namespace GUI
