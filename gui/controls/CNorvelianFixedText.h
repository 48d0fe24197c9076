#pragma once

#include <QLabel>

namespace GUI {

/// The window of a static text. It takes no input. A line that is wider than the label ends in an ellipsis;
/// the whole text is its accessible name then.
class CNorvelianFixedText : public QLabel {
public:
    explicit CNorvelianFixedText(QWidget* parent);

    /// False if that is the text already.
    bool SetWholeText(QString const& text);
    /// Of the widest line, in pixels.
    unsigned long GetTextWidth() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ShowWhatFits();

    QString whole_;
};

} // namespace GUI
