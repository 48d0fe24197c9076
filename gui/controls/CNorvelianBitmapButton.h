#pragma once

#include "gui/controls/ButtonPictures.h"
#include "gui/controls/CNorvelianButton.h"

class QPainter;

namespace GUI {

class CNorvelianStyle;

/// The window of a push button that shows pictures. It is as large as its normal picture; in a window with a
/// theme it is a tool, with the picture in the middle of a larger target.
class CNorvelianBitmapButton : public CNorvelianButton {
public:
    explicit CNorvelianBitmapButton(QWidget* parent) : CNorvelianButton(parent) {}

    void SetPictures(Utilities::String const& caption);
    /// What the button needs; (0, 0) without pictures.
    QSize GetPictureSize() const;
    void SetLook(bool flat, bool border);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintTool(CNorvelianStyle const& style, QPainter& painter, ButtonPictures::Kind kind);

    ButtonPictures pictures_;
    bool flat_ = false;
    bool border_ = false;
};

} // namespace GUI
