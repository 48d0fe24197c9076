#pragma once

#include "gui/elements/colour/RGBVector.h"

#include <QImage>
#include <memory>
#include <optional>
#include <vector>

class QMimeData;

namespace GUI {

/// What is dragged out of an element; what isn't set is not offered.
struct DragContent {
    Utilities::String text;
    std::optional<RGBVector> color;
    /// Paths.
    std::vector<Utilities::String> files;
    QImage picture;

    bool IsEmpty() const { return text.Length() == 0 && !color && files.empty() && picture.isNull(); }
    /// Takes over what a map says under "Text" (text), "Color" (colour) and "Files" (vector of paths).
    void Merge(Utilities::Anything const& map);
};

/// In the formats that other programs read.
std::unique_ptr<QMimeData> MakeMimeData(DragContent const& content);

} // namespace GUI
