#include "services/Bitmap_PC.h"

#include "Diagnostics/Sink.h"
#include "Utilities/Directory_PC.h"
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "services/JpegReader_PC.h"
#include "services/PictureReader_PC.h"

#include <QPainter>
#include <filesystem>
#include <utility>

namespace GUI {

using Norvelian::Utilities::Exceptions::RuntimeException;
using Utilities::File;

namespace {

Utilities::ComponentCreatorNormal<Bitmap_PC> const creator({"Bitmap", "$Revision: 1.21 $", "GUI"});

std::string PathOf(File const& file) {
    return Utilities::Directory_PC::ConvSeperatorDependend(file.GetPath());
}

bool NameHolds(File const& file, char const* letters) {
    return file.GetName().GetAsUpper().FindSubstring(letters, 0) >= 0;
}

std::string DensePathOf(std::filesystem::path path) {
    std::string const name = path.stem().string() + "@2x" + path.extension().string();
    return path.replace_filename(name).string();
}

/// Nothing in it has a colour.
bool IsBlack(QImage const& picture) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if ((picture.pixel(x, y) & RGB_MASK) != 0) return false;
    return true;
}

} // namespace

Bitmap_PC::Bitmap_PC() = default;
Bitmap_PC::~Bitmap_PC() = default;

bool Bitmap_PC::Create(unsigned long width, unsigned long height) {
    constexpr unsigned long longestSide = 65535;
    if (width == 0 || height == 0 || width > longestSide || height > longestSide ||
        width * height > Utilities::Limits::Get().pixels)
        return false;
    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (!image.isNull()) image.fill(Qt::black);
    return Attach(std::move(image));
}

bool Bitmap_PC::Load(File const& file) {
    std::string const path = PathOf(file);
    bool const namedBmp = NameHolds(file, "BMP");
    bool good = false;
    bool const isDrawing = PictureReader::IsDrawing(path);
    if (isDrawing)
        good = Attach(PictureReader::ReadDrawing(path, 1));
    else if (PictureReader::IsAvailable() && !namedBmp)
        good = Attach(PictureReader::Read(path));
    else if (NameHolds(file, "JPG"))
        good = LoadJpeg(file);
    else
        good = Attach(PictureReader::ReadBmp(path));
    if (!good) return false;
    path_ = path;
    isIcon_ = isDrawing && IsBlack(image_);
    return true;
}

bool Bitmap_PC::LoadAndResize(File const& file, unsigned long width, unsigned long height) {
    return PictureReader::IsAvailable() && Attach(PictureReader::ReadScaled(PathOf(file), width, height));
}

bool Bitmap_PC::LoadJpeg(File const& file) {
    try {
        return Attach(PictureReader::ReadJpegFile(PathOf(file)));
    } catch (...) {
        Diagnostics::DropException("Bitmap_PC::LoadJpeg");
        return false;
    }
}

bool Bitmap_PC::Attach(QImage image) {
    if (image.isNull() || context_) return false;
    image_ = std::move(image);
    ForgetFile();
    return true;
}

void Bitmap_PC::ForgetFile() {
    path_.clear();
    dense_ = {};
    tones_.clear();
}

PlatformIndependentDeviceContext& Bitmap_PC::BeginDraw() {
    if (context_)
        throw RuntimeException("Bitmap_PC::BeginDraw() called twice, without calling EndDraw between.");
    if (image_.isNull()) throw RuntimeException("Bitmap_PC::BeginDraw(): Can't select bitmap object.");
    // What is drawn now isn't in the file.
    ForgetFile();
    // Whoever shares the pixels keeps them as they are.
    image_.detach();
    context_ = std::make_unique<PlatformIndependentDeviceContext_PC>(image_);
    return *context_;
}

void Bitmap_PC::EndDraw() {
    if (!context_) throw RuntimeException("Bitmap_PC::EndDraw() called without calling BeginDraw before.");
    context_.reset();
}

void Bitmap_PC::GetPixels(Pixels& result) const {
    Pixels pixels(static_cast<std::uint32_t>(image_.width()));
    for (int x = 0; x < image_.width(); ++x) {
        auto& column = pixels.begin()[x];
        column.Resize(static_cast<std::uint32_t>(image_.height()));
        for (int y = 0; y < image_.height(); ++y) {
            QRgb const pixel = image_.pixel(x, y);
            column.begin()[y] =
                RGBVector(static_cast<unsigned char>(qRed(pixel)), static_cast<unsigned char>(qGreen(pixel)),
                          static_cast<unsigned char>(qBlue(pixel)));
        }
    }
    result = std::move(pixels);
}

Bitmap::FileFormats Bitmap_PC::GetFileFormats() const {
    FileFormats formats;
    for (auto const& [name, extension] : {std::pair{"Jpeg", "jpg"},
                                          {"Bitmap", "bmp"},
                                          {"GIF", "gif"},
                                          {"TIFF", "tif"},
                                          {"PNG", "png"},
                                          {"All", "png"},
                                          {"All", "jpg"},
                                          {"All", "bmp"},
                                          {"All", "gif"},
                                          {"All", "tif"}})
        formats.Append({name, extension});
    return formats;
}

QImage const& Bitmap_PC::ForDensity(double density) {
    if (PictureReader::IsDrawing(path_)) return Drawn(density, std::nullopt);
    if (density <= 1.0) return image_;
    if (!path_.empty()) dense_ = PictureReader::Read(DensePathOf(std::exchange(path_, {})));
    return dense_.isNull() ? image_ : dense_;
}

QImage const& Bitmap_PC::Drawn(double density, std::optional<QColor> const& tone) {
    // A window has one scale and few colours of text; what a session of theme changes leaves is dropped.
    constexpr std::size_t most = 16;
    if (density == 1 && !tone) return image_;
    std::pair const key(density, tone ? tone->rgb() : QRgb{0});
    if (auto const known = tones_.find(key); known != tones_.end()) return known->second;
    if (tones_.size() >= most) tones_.clear();
    QImage drawing = density == 1 ? image_ : PictureReader::ReadDrawing(path_, density);
    if (drawing.isNull()) drawing = image_;
    if (tone) {
        QPainter painter(&drawing);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(drawing.rect(), *tone);
    }
    return tones_.emplace(key, std::move(drawing)).first->second;
}

void Bitmap_PC::DrawInTone(long x, long y, QPainter& target, QColor const& tone) {
    if (!isIcon_ || path_.empty()) return DrawBitmap(x, y, target);
    QImage const& picture = Drawn(target.device()->devicePixelRatioF(), tone);
    target.drawImage(QRect(static_cast<int>(x), static_cast<int>(y), image_.width(), image_.height()),
                     picture);
}

void Bitmap_PC::DrawBitmap(long x, long y, QPainter& target) {
    if (image_.isNull()) throw RuntimeException("Bitmap_PC::DrawBitmap(): Bitmap object is empty.");
    QImage const& picture = ForDensity(target.device()->devicePixelRatioF());
    QRect const place(static_cast<int>(x), static_cast<int>(y), image_.width(), image_.height());
    if (picture.size() == place.size())
        target.drawImage(place.topLeft(), picture);
    else
        target.drawImage(place, picture);
}

} // namespace GUI
