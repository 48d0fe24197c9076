#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

namespace GUI {

/// The window of a field of one line.
class CNorvelianEdit : public QLineEdit {
public:
    explicit CNorvelianEdit(QWidget* parent);

    /// A marked border.
    void ShowValid(bool valid);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool valid_ = true;
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
