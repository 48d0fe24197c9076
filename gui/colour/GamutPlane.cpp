#include "gui/colour/GamutPlane.h"

#include <algorithm>

namespace GUI {

namespace {

/// No colour: its pixel is outside.
constexpr std::uint32_t none = 0xFF000000;

class Picture {
public:
    Picture(std::size_t width, std::size_t height)
        : width_(width), height_(height), pixels_(width * height, none) {}

    std::size_t GetWidth() const { return width_; }
    std::size_t GetHeight() const { return height_; }
    std::uint32_t* GetRow(std::size_t y) { return pixels_.data() + y * width_; }

    /// Gives all pixels without a colour one.
    std::vector<std::uint32_t> Finish(GamutPlane::Colours const& colours) {
        // The line grows outward by a pixel a round.
        for (int round = 0; round < colours.edgeWidth; ++round) DrawEdge(colours.edge);
        std::replace(pixels_.begin(), pixels_.end(), none, colours.outside);
        return std::move(pixels_);
    }

private:
    void DrawEdge(std::uint32_t edge) {
        std::vector<std::size_t> found;
        // All bits of the highest byte are set in pixels without a colour alone, and beyond the picture.
        std::vector<std::uint32_t> const beyond(width_, none);
        for (std::size_t y = 0; y < height_; ++y) {
            std::uint32_t const* const row = pixels_.data() + y * width_;
            std::uint32_t const* const above = y > 0 ? row - width_ : beyond.data();
            std::uint32_t const* const below = y + 1 < height_ ? row + width_ : beyond.data();
            for (std::size_t x = 0; x < width_; ++x) {
                if (row[x] != none) continue;
                std::uint32_t const left = x > 0 ? row[x - 1] : none;
                std::uint32_t const right = x + 1 < width_ ? row[x + 1] : none;
                if ((left & right & above[x] & below[x]) < none) found.push_back(y * width_ + x);
            }
        }
        for (std::size_t const at : found) pixels_[at] = edge;
    }

    std::size_t width_;
    std::size_t height_;
    std::vector<std::uint32_t> pixels_;
};

void ComputeEach(ScreenModel const& model, GamutPlane::Place const& place, Picture& picture) {
    // A closer look is dear: where it finds nothing at both ends of a stretch, there is nothing between.
    constexpr std::size_t stretch = 12;
    std::size_t const width = picture.GetWidth();
    ScreenModel::Row row;
    for (std::size_t i = 0; i < 3; ++i) {
        row.lab[i].resize(width);
        row.light[i].resize(width);
    }
    row.beyond.resize(width);
    for (std::size_t y = 0; y < picture.GetHeight(); ++y) {
        auto const first = place.At(0, static_cast<double>(y));
        for (std::size_t i = 0; i < 3; ++i) {
            auto const begin = static_cast<float>(first[i]);
            auto const step = static_cast<float>(place.perColumn[i]);
            for (std::size_t x = 0; x < width; ++x)
                row.lab[i][x] = begin + step * static_cast<float>(static_cast<int>(x));
        }
        model.ToLight(row);
        auto const look = [&](std::size_t x) {
            if (row.beyond[x] <= 0) return true;
            return row.beyond[x] < ScreenModel::certainlyBeyond &&
                   model.IsWithinTolerance({row.lab[0][x], row.lab[1][x], row.lab[2][x]},
                                           {row.light[0][x], row.light[1][x], row.light[2][x]});
        };
        std::uint32_t* const pixels = picture.GetRow(y);
        bool isEndInside = width != 0 && look(0);
        for (std::size_t begin = 0; begin < width; begin += stretch) {
            std::size_t const end = std::min(begin + stretch, width);
            bool const isBeginInside = isEndInside;
            isEndInside = look(std::min(end, width - 1));
            bool const isLookedAt = isBeginInside || isEndInside;
            for (std::size_t x = begin; x < end; ++x) {
                if (row.beyond[x] > 0 && !(isLookedAt && look(x))) continue;
                // Never negative: raised by a half it is rounded when the rest is cut off.
                constexpr auto half = 0.5F;
                auto const channel = [&](std::size_t i) {
                    float const raised = model.ToDevice(i, row.light[i][x]) + half;
                    return static_cast<std::uint32_t>(static_cast<int>(raised));
                };
                pixels[x] = channel(0) << 16U | channel(1) << 8U | channel(2);
            }
        }
    }
}

/// For any screen.
void ConvertEach(GamutPlane::Transform const& transform, GamutPlane::Place const& place, Picture& picture) {
    std::size_t const width = picture.GetWidth();
    std::vector<double> wanted(3 * width);
    std::vector<Norvelian::ColorExchangeFormat::ScreenColour> shown(width);
    for (std::size_t y = 0; y < picture.GetHeight(); ++y) {
        for (std::size_t x = 0; x < width; ++x)
            std::ranges::copy(place.At(static_cast<double>(x), static_cast<double>(y)),
                              wanted.begin() + static_cast<std::ptrdiff_t>(3 * x));
        transform.Convert(wanted, shown);
        for (std::size_t x = 0; x < width; ++x)
            if (shown[x].IsInGamut())
                picture.GetRow(y)[x] = std::uint32_t{shown[x].GetRed()} << 16U |
                                       std::uint32_t{shown[x].GetGreen()} << 8U | shown[x].GetBlue();
    }
}

} // namespace

GamutPlane::Lab GamutPlane::Place::At(double column, double row) const {
    Lab lab = first;
    for (std::size_t i = 0; i < 3; ++i) lab[i] += column * perColumn[i] + row * perRow[i];
    return lab;
}

std::vector<std::uint32_t> GamutPlane::Compute(Place const& place, std::size_t width, std::size_t height,
                                               Colours const& colours) const {
    Picture picture(width, height);
    if (model_.IsValid())
        ComputeEach(model_, place, picture);
    else
        ConvertEach(*transform_, place, picture);
    return picture.Finish(colours);
}

} // namespace GUI
