#pragma once

#include <QImage>
#include <string>

namespace GUI::PictureReader {

/// @name Readers of picture files
/// The first picture of a file with several, turned as the file asks for, with 32 bits a pixel and an alpha
/// channel only if it is used. Null if the file can't be shown; if it exists, the sink is told why.
///
/// No number in a file is trusted: a picture of more pixels than `Utilities::Limits` allows is refused before
/// memory is taken for it, and so is a file of too many bytes. What a picture below it takes for the time of
/// loading is its own bytes, the file's, and up to twice its own again for 16 bits a channel, a progressive
/// JPEG or scaling.
/// @{

/// Whether the platform reads pictures. A format whose reader isn't installed is refused file by file.
bool IsAvailable();
/// Whatever format the file has.
QImage Read(std::string const& path);
/// What is in memory already; `name` is told to the sink if it can't be shown.
QImage ReadBytes(std::string const& bytes, std::string const& name);
/// A drawing (SVG) at so many times its own size; null for another format.
QImage ReadDrawing(std::string const& path, double scale);
/// Whether the file's name is that of a drawing.
bool IsDrawing(std::string const& path);
/// The same, smoothly scaled to that very size.
QImage ReadScaled(std::string const& path, unsigned long width, unsigned long height);
/// BMP alone.
QImage ReadBmp(std::string const& path);
/// JPEG of 3 components alone, through libjpeg.
QImage ReadJpegFile(std::string const& path);
/// @}

} // namespace GUI::PictureReader
