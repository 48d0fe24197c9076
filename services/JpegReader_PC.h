#pragma once

#include <QImage>
#include <string_view>

namespace GUI {

/// Decodes a JPEG file with libjpeg, straight into the rows of the picture. Null if it is damaged, has other
/// than 3 colour components, or has more pixels than `Utilities::Limits` allows.
QImage ReadJpeg(std::string_view file);

/// Whether a JPEG goes over its picture more often than any program makes it, which a small file may do for
/// minutes: more than 200 scans.
bool HasEndlessScans(std::string_view file);

} // namespace GUI
