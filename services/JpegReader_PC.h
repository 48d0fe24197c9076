#pragma once

#include <QImage>
#include <string_view>

namespace GUI {

/// Decodes a JPEG file with libjpeg, straight into the rows of the picture. Null if it is damaged, has other
/// than 3 colour components, or is larger than `largestPicture`.
QImage ReadJpeg(std::string_view file);

/// Whether a JPEG goes over its picture more often than any program makes it, which a small file may do for
/// minutes: more than 200 scans.
bool HasEndlessScans(std::string_view file);

/// No picture of more bytes than this is made or loaded, whatever a file says of its size: 128 MiB, which
/// are 33 million pixels.
constexpr unsigned long largestPicture = 128UL << 20U;
constexpr unsigned long bytesPerPixel = 4;

} // namespace GUI
