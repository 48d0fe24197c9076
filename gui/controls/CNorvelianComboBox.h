#pragma once

#include <QComboBox>
#include <QStyledItemDelegate>
#include <optional>

namespace GUI {

/// The window of a drop-down. With colours of its own it draws its entries and its field itself.
class CNorvelianComboBox : public QComboBox {
public:
    struct Colors {
        QColor font;
        QColor background;
    };

    explicit CNorvelianComboBox(QWidget* parent);

    void SetColors(Colors const& colors);
    /// Draws one entry.
    void DrawItem(QPainter& painter, QRect const& box, QString const& text, QStyle::State state) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    std::optional<Colors> colors_;
};

} // namespace GUI
