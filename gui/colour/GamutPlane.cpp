#include "gui/colour/GamutPlane.h"

#include <algorithm>

namespace GUI {

namespace {

constexpr std::size_t cell = 8;
constexpr std::size_t half = cell / 2;
constexpr auto tolerance = static_cast<float>(GamutPlane::Transform::gamutTolerance);
/// No colour: its pixel is outside.
constexpr std::uint32_t none = 0xFF000000;

/// Red, green and blue from 0 to 255, and the difference.
using Corner = std::array<float, 4>;

Corner operator+(Corner const& a, Corner const& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2], a[3] + b[3]};
}
/// From one to the other in so many steps.
Corner Step(Corner const& from, Corner const& to, std::size_t steps) {
    float const share = 1.0F / static_cast<float>(steps);
    Corner step = {};
    for (std::size_t i = 0; i < 4; ++i) step[i] = (to[i] - from[i]) * share;
    return step;
}
bool IsInside(Corner const& corner) { return corner[3] <= tolerance; }

/// Points at every so many pixels of a part of the picture.
class Grid {
public:
    Grid(GamutPlane::Transform const& transform, GamutPlane::Place const& place, double left, double top,
         std::size_t columns, std::size_t rows, std::size_t distance)
        : columns_(columns) {
        std::vector<double> wanted;
        wanted.reserve(3 * columns * rows);
        for (std::size_t row = 0; row < rows; ++row)
            for (std::size_t column = 0; column < columns; ++column)
                for (double const value : place.At(left + static_cast<double>(column * distance),
                                                   top + static_cast<double>(row * distance)))
                    wanted.push_back(value);
        std::vector<GamutPlane::Transform::Shown> shown(columns * rows);
        transform.Evaluate(wanted, shown);
        corners_.reserve(shown.size());
        for (auto const& colour : shown)
            corners_.push_back(
                {static_cast<float>(255 * colour.rgb[0]), static_cast<float>(255 * colour.rgb[1]),
                 static_cast<float>(255 * colour.rgb[2]), static_cast<float>(colour.difference)});
    }
    Corner const& At(std::size_t column, std::size_t row) const { return corners_[row * columns_ + column]; }

private:
    std::size_t columns_;
    std::vector<Corner> corners_;
};

std::uint32_t Packed(Corner const& color) {
    auto const channel = [&color](std::size_t i) { return static_cast<std::uint32_t>(color[i] + 0.5F); };
    return channel(0) << 16U | channel(1) << 8U | channel(2);
}

class Picture {
public:
    Picture(std::size_t width, std::size_t height)
        : width_(width), height_(height), pixels_(width * height, none) {}

    /// Interpolates a square between its corners.
    void Fill(Grid const& grid, std::size_t column, std::size_t row, std::size_t left, std::size_t top,
              std::size_t size) {
        Corner const upperRight = grid.At(column + 1, row);
        Corner const lowerRight = grid.At(column + 1, row + 1);
        Corner const leftStep = Step(grid.At(column, row), grid.At(column, row + 1), size);
        Corner const rightStep = Step(upperRight, lowerRight, size);
        Corner atLeft = grid.At(column, row);
        Corner atRight = upperRight;
        std::size_t const right = std::min(left + size, width_);
        std::size_t const bottom = std::min(top + size, height_);
        for (std::size_t y = top; y < bottom; ++y) {
            Corner color = atLeft;
            Corner const step = Step(atLeft, atRight, size);
            std::uint32_t* const pixels = pixels_.data() + y * width_;
            for (std::size_t x = left; x < right; ++x) {
                if (IsInside(color)) pixels[x] = Packed(color);
                color = color + step;
            }
            atLeft = atLeft + leftStep;
            atRight = atRight + rightStep;
        }
    }

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
        for (std::size_t y = 0; y < height_; ++y) {
            std::uint32_t const* const row = pixels_.data() + y * width_;
            for (std::size_t x = 0; x < width_; ++x) {
                if (row[x] != none) continue;
                bool const meets = (x > 0 && row[x - 1] != none) || (x + 1 < width_ && row[x + 1] != none) ||
                                   (y > 0 && row[x - width_] != none) ||
                                   (y + 1 < height_ && row[x + width_] != none);
                if (meets) found.push_back(y * width_ + x);
            }
        }
        for (std::size_t const at : found) pixels_[at] = edge;
    }

    std::size_t width_;
    std::size_t height_;
    std::vector<std::uint32_t> pixels_;
};

} // namespace

GamutPlane::Lab GamutPlane::Place::At(double column, double row) const {
    Lab lab = first;
    for (std::size_t i = 0; i < 3; ++i) lab[i] += column * perColumn[i] + row * perRow[i];
    return lab;
}

std::vector<std::uint32_t> GamutPlane::Compute(Transform const& transform, Place const& place,
                                               std::size_t width, std::size_t height,
                                               Colours const& colours) {
    std::size_t const columns = (width + cell - 1) / cell;
    std::size_t const rows = (height + cell - 1) / cell;
    Grid const grid(transform, place, 0, 0, columns + 1, rows + 1, cell);
    Picture picture(width, height);
    for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t column = 0; column < columns; ++column) {
            int const inside = IsInside(grid.At(column, row)) + IsInside(grid.At(column + 1, row)) +
                               IsInside(grid.At(column, row + 1)) + IsInside(grid.At(column + 1, row + 1));
            std::size_t const left = column * cell;
            std::size_t const top = row * cell;
            if (inside == 4) picture.Fill(grid, column, row, left, top, cell);
            if (inside == 0 || inside == 4) continue;
            Grid const finer(transform, place, static_cast<double>(left), static_cast<double>(top), 3, 3,
                             half);
            for (std::size_t part = 0; part < 4; ++part)
                picture.Fill(finer, part % 2, part / 2, left + part % 2 * half, top + part / 2 * half, half);
        }
    return picture.Finish(colours);
}

} // namespace GUI
