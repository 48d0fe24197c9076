#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <functional>
#include <utility>

namespace GUI {

/// The window of a field of one line.
class CNorvelianEdit : public QLineEdit {
public:
    explicit CNorvelianEdit(QWidget* parent);
    ~CNorvelianEdit() override { delete message_; }

    enum class Side { None, Right, Below };

    /// A marked border.
    void ShowValid(bool valid);
    /// A text beside the field; an empty one takes it away.
    void ShowMessage(QString const& text, Side side);

    /// What Esc does; false leaves the key to the window.
    void SetEscape(std::function<bool()> escape) { escape_ = std::move(escape); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void PlaceMessage();

    bool valid_ = true;
    std::function<bool()> escape_;
    /// A sibling, which goes with the field.
    QPointer<QLabel> message_;
    Side side_ = Side::None;
};

/// The window of a field with several lines. Tab leaves it.
class CNorvelianMultiLineEdit : public QPlainTextEdit {
public:
    explicit CNorvelianMultiLineEdit(QWidget* parent);

    /// Scrolls to that line, now or once there is room for lines.
    void ShowLine(int line);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int line_ = -1;
};

} // namespace GUI
