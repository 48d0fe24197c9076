#pragma once

#include "gui/elements/drawing/Bitmap.h"
#include "gui/platform/Picture_PC.h"

#include <QImage>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace GUI {

class PlatformIndependentDeviceContext_PC;

/// A raster picture: the component "Bitmap".
///
/// A file's name in upper case decides how it is read. With "BMP" in it, it is read as a Windows bitmap;
/// otherwise by the reader of all formats if the platform has one (see `PictureReader`), and if not, with
/// "JPG" in the name through libjpeg (3 components only) and else as a Windows bitmap.
///
/// No picture has more pixels than `Utilities::Limits` allows: making or loading one fails, and the former
/// picture stays.
///
/// For screens of high density a file "name@2x.ext" beside "name.ext" is drawn in its place, at the same
/// size on the surface; the picture's size in pixels stays that of the plain file. A drawing (a file ending
/// in ".svg") is sharp at every scale. One that is all black is an icon, and drawn in one tone: the colour
/// of the texts around it. Changed by `BeginDraw` it is a picture as any other.
class Bitmap_PC : public Bitmap, public Picture_PC {
public:
    Bitmap_PC();
    Bitmap_PC(Bitmap_PC const&) = delete;
    Bitmap_PC& operator=(Bitmap_PC const&) = delete;
    ~Bitmap_PC() override;

    bool Create(unsigned long width, unsigned long height) override;
    bool Load(Utilities::File const& file) override;
    /// False without the reader of all formats.
    bool LoadAndResize(Utilities::File const& file, unsigned long width, unsigned long height) override;
    unsigned long GetWidth() const override { return static_cast<unsigned long>(image_.width()); }
    unsigned long GetHeight() const override { return static_cast<unsigned long>(image_.height()); }
    PlatformIndependentDeviceContext& BeginDraw() override;
    void EndDraw() override;
    void GetPixels(Pixels& result) const override;
    FileFormats GetFileFormats() const override;

    /// Transparent parts let the target show. Throws `RuntimeException` if the picture is empty.
    void DrawBitmap(long x, long y, QPainter& target) override;
    void DrawInTone(long x, long y, QPainter& target, QColor const& tone) override;
    /// Takes the picture over; false if it is null or this one is being drawn into.
    bool Attach(QImage image);
    QImage const& GetBitmap() const { return image_; }
    bool LoadJpeg(Utilities::File const& file);

private:
    void ForgetFile();
    QImage const& ForDensity(double density);
    /// A drawing, in a tone or, without one, in its own colours.
    QImage const& Drawn(double density, std::optional<QColor> const& tone);

    QImage image_;
    std::unique_ptr<PlatformIndependentDeviceContext_PC> context_;
    /// The file that is shown; the one for screens of high density is looked for when it is first needed.
    std::string path_;
    QImage dense_;
    bool isIcon_ = false;
    /// Of a drawing: as it was drawn at a density in a tone, 0 for its own colours.
    std::map<std::pair<double, QRgb>, QImage> tones_;
};

} // namespace GUI
