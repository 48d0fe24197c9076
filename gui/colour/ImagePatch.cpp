#include "gui/colour/ImagePatch.h"

#include "Utilities/NamingService.h"
#include "gui/colour/ColorTable.h"
#include "gui/colour/DevicePixels.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/elements/drawing/ImageServiceInterface.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute imageKey{"Image", AttributeType::ImageName, "", "Name of the picture"};
constexpr Attribute modeKey{"Mode", AttributeType::Text, "Fit",
                            "\"Fit\": as large as the pane allows; \"Tile\": repeated at its own size"};
constexpr Attribute selectsKey{"Selects", AttributeType::Flag, "Yes", "Whether the mouse chooses a region"};
constexpr Attribute attributeList[] = {imageKey, modeKey, selectsKey};

ElementRegistration<ImagePatch, Pane> const registration({"ImagePatch", "$Revision: 1.8 $", "GUI"},
                                                         attributeList);

/// IEC 61966-2-1.
double ToLight(std::uint32_t channel) {
    static std::array<double, 256> const light = [] {
        std::array<double, 256> values = {};
        for (std::size_t i = 0; i < values.size(); ++i) {
            double const share = static_cast<double>(i) / 255;
            values[i] = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        }
        return values;
    }();
    return light[channel & 0xFFU];
}

unsigned char FromLight(double light) {
    double const share = light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
    return static_cast<unsigned char>(std::lround(255 * std::clamp(share, 0.0, 1.0)));
}

/// The pixels that a stretch of a side covers, at least one.
std::pair<long, long> Covered(double begin, double end, long count) {
    long const first = std::clamp(static_cast<long>(std::floor(begin)), 0L, count - 1);
    return {first, std::clamp(static_cast<long>(std::ceil(end)), first + 1, count)};
}

} // namespace

void ImagePatch::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    ColorGUIElement::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    name_ = attributes.Text(imageKey);
    mode_ = attributes.Text(modeKey);
    selects_ = attributes.FlagUnlessNo(selectsKey);
    Load();
    RegisterOnUpdate();
}

// ------------------------------------------------------------------ data

void ImagePatch::Load() {
    source_.clear();
    rendered_.clear();
    width_ = height_ = 0;
    constexpr char const* service = "ImageService";
    if (name_.Length() == 0 || !Utilities::NamingService::Instance()->IsRegistered(service)) return;
    auto const bitmap = Utilities::ResolveComponent<ImageServiceInterface>(service)->GetBitmap(name_);
    if (bitmap.IsNull()) return;
    Bitmap::Pixels columns;
    bitmap->GetPixels(columns);
    auto const width = static_cast<std::size_t>(columns.GetSize());
    std::size_t const height = width == 0 ? 0 : columns[0].GetSize();
    source_.resize(width * height);
    std::size_t x = 0;
    for (auto const& column : columns) {
        std::size_t at = x++;
        for (RGBVector const& color : column) {
            source_[at] = static_cast<std::uint32_t>(color.GetRed()) << 16U |
                          static_cast<std::uint32_t>(color.GetGreen()) << 8U | color.GetBlue();
            at += width;
        }
    }
    width_ = static_cast<long>(width);
    height_ = static_cast<long>(height);
}

long ImagePatch::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    long const result = ReadUpdate(command);
    if (Anything const name = GetValue(imageKey.key); name.IsOfTypeString() && !(name.GetString() == name_)) {
        name_ = name.GetString();
        region_.reset();
        anchor_.reset();
        Load();
    }
    if (Anything const region = GetValue("Region"); region.IsValid()) region_ = FromRecord(region);
    if (IsAttached() && !HasNoRepaint(command)) Repaint();
    return result;
}

Anything ImagePatch::ToRecord(Box const& box) {
    Anything::MapOfAnythings record;
    record["Left"] = box.left;
    record["Top"] = box.top;
    record["Right"] = box.right;
    record["Bottom"] = box.bottom;
    return {record};
}

std::optional<ImagePatch::Box> ImagePatch::FromRecord(Anything const& record) const {
    if (!record.IsOfTypeMap()) return std::nullopt;
    auto const& map = record.GetMapOfAnythings();
    Box const box{std::max(map["Left"].GetLong(), 0L), std::max(map["Top"].GetLong(), 0L),
                  std::min(map["Right"].GetLong(), width_), std::min(map["Bottom"].GetLong(), height_)};
    return box.IsEmpty() ? std::nullopt : std::optional(box);
}

std::uint32_t ImagePatch::At(long column, long row) const {
    return source_[static_cast<std::size_t>(row * width_ + column)];
}

std::optional<RGBVector> ImagePatch::GetMeanColor() const {
    Box const box = region_.value_or(Box{0, 0, width_, height_});
    if (box.IsEmpty()) return std::nullopt;
    std::array<double, 3> light = {};
    for (long row = box.top; row < box.bottom; ++row)
        for (long column = box.left; column < box.right; ++column) {
            std::uint32_t const color = At(column, row);
            light[0] += ToLight(color >> 16U);
            light[1] += ToLight(color >> 8U);
            light[2] += ToLight(color);
        }
    auto const count = static_cast<double>((box.right - box.left) * (box.bottom - box.top));
    return RGBVector(FromLight(light[0] / count), FromLight(light[1] / count), FromLight(light[2] / count));
}

// ------------------------------------------------------------------ painting

String ImagePatch::GetNumberTable() {
    auto const mean = GetMeanColor();
    if (!mean) return {};
    NumberTable table;
    AddChannelNames(table);
    AddColor(table, *mean);
    return table.Take();
}

ImagePatch::Place ImagePatch::GetPlace() const {
    unsigned long paneWidth = 0;
    unsigned long paneHeight = 0;
    GetSize(paneWidth, paneHeight);
    if (IsTiled() || source_.empty()) return {};
    auto const width = static_cast<double>(paneWidth);
    auto const height = static_cast<double>(paneHeight);
    Place place;
    place.scale = std::min(width / static_cast<double>(width_), height / static_cast<double>(height_));
    place.left = std::floor((width - place.scale * static_cast<double>(width_)) / 2);
    place.top = std::floor((height - place.scale * static_cast<double>(height_)) / 2);
    return place;
}

void ImagePatch::OnPaint(PlatformIndependentDeviceContext& context) {
    ColorGUIElement::OnPaint(context);
    if (source_.empty()) return;
    DevicePixels const pixels = DevicePixels::Of(*this, context);
    Render(pixels.width, pixels.height, pixels.scale);
    if (rendered_.empty()) return;
    pixels.Draw(context, *this, rendered_);
    if (region_) DrawMark(context);
}

void ImagePatch::Render(std::size_t width, std::size_t height, double scale) {
    if (!rendered_.empty() && renderedWidth_ == width && renderedHeight_ == height) return;
    renderedWidth_ = width;
    renderedHeight_ = height;
    RGBVector const& ground = GetBackgroundColor();
    rendered_.assign(width * height, static_cast<std::uint32_t>(ground.GetRed()) << 16U |
                                         static_cast<std::uint32_t>(ground.GetGreen()) << 8U |
                                         ground.GetBlue());
    if (rendered_.empty()) return;
    if (IsTiled())
        RenderTiles(scale);
    else
        RenderFitted(scale);
}

void ImagePatch::RenderTiles(double scale) {
    auto const within = [scale](std::size_t at, long size) {
        return static_cast<long>((static_cast<double>(at) + 0.5) / scale) % size;
    };
    for (std::size_t y = 0; y < renderedHeight_; ++y)
        for (std::size_t x = 0; x < renderedWidth_; ++x)
            rendered_[y * renderedWidth_ + x] = At(within(x, width_), within(y, height_));
}

void ImagePatch::RenderFitted(double scale) {
    Place const place = GetPlace();
    double const left = place.left * scale;
    double const top = place.top * scale;
    double const step = 1 / (place.scale * scale);
    auto const end = [](double from, long size, double perPixel, std::size_t limit) {
        return std::min(
            static_cast<std::size_t>(std::ceil(from + static_cast<double>(size) / perPixel - 0.5)), limit);
    };
    std::size_t const right = end(left, width_, step, renderedWidth_);
    std::size_t const bottom = end(top, height_, step, renderedHeight_);
    for (auto y = static_cast<std::size_t>(top); y < bottom; ++y) {
        double const fromRow = (static_cast<double>(y) - top) * step;
        auto const [firstRow, lastRow] = Covered(fromRow, fromRow + step, height_);
        for (auto x = static_cast<std::size_t>(left); x < right; ++x) {
            double const fromColumn = (static_cast<double>(x) - left) * step;
            auto const [firstColumn, lastColumn] = Covered(fromColumn, fromColumn + step, width_);
            std::array<std::uint64_t, 3> sum = {};
            for (long row = firstRow; row < lastRow; ++row)
                for (long column = firstColumn; column < lastColumn; ++column) {
                    std::uint32_t const color = At(column, row);
                    for (std::size_t i = 0; i < 3; ++i) sum[i] += color >> (16 - 8 * i) & 0xFFU;
                }
            auto const count = static_cast<std::uint64_t>((lastRow - firstRow) * (lastColumn - firstColumn));
            std::uint32_t mean = 0;
            for (std::uint64_t const channel : sum)
                mean = mean << 8U | static_cast<std::uint32_t>((channel + count / 2) / count);
            rendered_[y * renderedWidth_ + x] = mean;
        }
    }
}

void ImagePatch::DrawMark(PlatformIndependentDeviceContext& context) const {
    Place const place = GetPlace();
    auto const toPane = [&place](long at, double origin) {
        return static_cast<short>(std::lround(origin + place.scale * static_cast<double>(at)));
    };
    short const left = toPane(region_->left, place.left);
    short const top = toPane(region_->top, place.top);
    short const right = toPane(region_->right, place.left);
    short const bottom = toPane(region_->bottom, place.top);
    // Around the region, one of the two tones can be seen on any picture.
    short away = 1;
    for (RGBVector const& tone : {RGBVector(255, 255, 255), RGBVector(0, 0, 0)}) {
        context.SetPen(tone, 1, PlatformIndependentDeviceContext::solid);
        context.DrawRectangle(static_cast<short>(left - away), static_cast<short>(top - away),
                              static_cast<short>(right + away), static_cast<short>(bottom + away));
        ++away;
    }
}

// ------------------------------------------------------------------ input

std::pair<long, long> ImagePatch::ToPicture(long x, long y) const {
    Place const place = GetPlace();
    auto const pixel = [&place](long at, double origin, long size) {
        double const within = std::floor((static_cast<double>(at) + 0.5 - origin) / place.scale);
        return static_cast<long>(std::clamp(within, 0.0, static_cast<double>(size - 1)));
    };
    return {pixel(x, place.left, width_), pixel(y, place.top, height_)};
}

bool ImagePatch::OnLeftButtonDown(KeyState keyState, long x, long y) {
    if (!selects_ || IsTiled() || source_.empty()) return ColorGUIElement::OnLeftButtonDown(keyState, x, y);
    anchor_ = ToPicture(x, y);
    region_.reset();
    SetMouseCapture(true);
    Repaint();
    return true;
}

bool ImagePatch::OnMouseMove(long x, long y) {
    if (!anchor_) return ColorGUIElement::OnMouseMove(x, y);
    auto const [column, row] = ToPicture(x, y);
    Box const box{std::min(anchor_->first, column), std::min(anchor_->second, row),
                  std::max(anchor_->first, column) + 1, std::max(anchor_->second, row) + 1};
    if (region_ == box) return true;
    region_ = box;
    Repaint();
    return true;
}

bool ImagePatch::OnLeftButtonUp(long x, long y) {
    if (!anchor_) return ColorGUIElement::OnLeftButtonUp(x, y);
    CallScope const call(*this);
    anchor_.reset();
    SetMouseCapture(false);
    TellValue("Region", ToRecord(region_.value_or(Box())));
    if (auto const mean = GetMeanColor(); mean && IsAttached()) TellValue("MeanColor", mean->GetAnything());
    return true;
}

String ImagePatch::GetRegion(unsigned long x, unsigned long y) {
    if (!region_ || source_.empty()) return {};
    auto const [column, row] = ToPicture(static_cast<long>(x), static_cast<long>(y));
    bool const isInside =
        column >= region_->left && column < region_->right && row >= region_->top && row < region_->bottom;
    return isInside ? "Region" : "";
}

} // namespace GUI
