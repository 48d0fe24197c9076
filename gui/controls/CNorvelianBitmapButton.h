#pragma once

#include "gui/controls/ButtonPictures.h"
#include "gui/controls/CNorvelianButton.h"

namespace GUI {

/// The window of a push button that shows pictures. It is as large as its normal picture.
class CNorvelianBitmapButton : public CNorvelianButton {
public:
    explicit CNorvelianBitmapButton(QWidget* parent) : CNorvelianButton(parent) {}

    void SetPictures(Utilities::String const& caption);
    /// (0, 0) without pictures.
    QSize GetPictureSize() const;
    void SetLook(bool flat, bool border);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ButtonPictures pictures_;
    bool flat_ = false;
    bool border_ = false;
};

} // namespace GUI
