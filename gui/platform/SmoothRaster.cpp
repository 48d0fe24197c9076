#include "gui/platform/SmoothRaster.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace GUI {

namespace {

/// `share` of 256 of the colour, the rest of what is there; the two outer channels at once.
void Blend(std::uint32_t& pixel, std::uint32_t color, std::uint32_t share) {
    constexpr std::uint32_t outer = 0x00FF00FF;
    constexpr std::uint32_t middle = 0x0000FF00;
    std::uint32_t const rest = 256 - share;
    std::uint32_t const redBlue = ((pixel & outer) * rest + (color & outer) * share) >> 8U & outer;
    std::uint32_t const green = ((pixel & middle) * rest + (color & middle) * share) >> 8U & middle;
    pixel = 0xFF000000 | redBlue | green;
}

void DrawRun(std::uint32_t* row, int begin, int end, std::uint32_t share, std::uint32_t color) {
    if (share == 256)
        for (int x = begin; x < end; ++x) row[x] = color;
    else
        for (int x = begin; x < end; ++x) Blend(row[x], color, share);
}

constexpr int fraction = 16;
constexpr std::int64_t one = std::int64_t{1} << fraction;
std::int64_t ToFixed(double value) { return static_cast<std::int64_t>(std::floor(value * one + 0.5)); }

/// The pixels of one line across its direction. `along` and `across` are steps from pixel to pixel.
struct Stroke {
    std::uint32_t* pixels;
    std::ptrdiff_t along;
    std::ptrdiff_t across;
    std::uint32_t color;
    /// The pen's near side where the line begins, how it moves from run to run, and how far the far side is.
    std::int64_t near;
    std::int64_t step;
    std::int64_t breadth;

    /// Runs from `first` up to `last`, without looking at the clip across them.
    void Draw(int first, int last) const {
        std::int64_t at = near;
        std::uint32_t* run = pixels + first * along;
        for (int i = first; i < last; ++i, run += along, at += step) {
            std::int64_t const end = at + breadth;
            auto row = static_cast<std::ptrdiff_t>(at >> fraction);
            auto const lastRow = static_cast<std::ptrdiff_t>(end >> fraction);
            auto const shareOf = [](std::int64_t part) {
                return static_cast<std::uint32_t>(part >> (fraction - 8));
            };
            std::uint32_t* pixel = run + row * across;
            if (row == lastRow) {
                Blend(*pixel, color, shareOf(end - at));
                continue;
            }
            Blend(*pixel, color, shareOf(((row + 1) << fraction) - at));
            for (++row, pixel += across; row < lastRow; ++row, pixel += across) *pixel = color;
            Blend(*pixel, color, shareOf(end & (one - 1)));
        }
    }
    void DrawWithin(int first, int last, int low, int high) const {
        std::int64_t at = near;
        std::uint32_t* run = pixels + first * along;
        for (int i = first; i < last; ++i, run += along, at += step) {
            std::int64_t const end = at + breadth;
            int const begin = static_cast<int>(std::max<std::int64_t>(at >> fraction, low));
            int const stop = static_cast<int>(std::min<std::int64_t>(end >> fraction, high - 1));
            for (int row = begin; row <= stop; ++row) {
                std::int64_t const top = std::max(at, std::int64_t{row} << fraction);
                std::int64_t const bottom = std::min(end, std::int64_t{row + 1} << fraction);
                Blend(run[row * across], color, static_cast<std::uint32_t>((bottom - top) >> (fraction - 8)));
            }
        }
    }
};

/// Shares of a figure in the pixels of a clip. A pixel holds how much the share changes from the one before
/// it, so that a row's shares are its running sums; a bit for each pixel tells where there is a change at
/// all.
class Coverage {
public:
    void Begin(int width, int height) {
        width_ = width;
        height_ = height;
        stride_ = static_cast<std::size_t>(width) + 2;
        words_ = (stride_ + 63) / 64;
        if (changes_.size() < stride_ * static_cast<std::size_t>(height))
            changes_.resize(stride_ * static_cast<std::size_t>(height), 0.0F);
        if (touched_.size() < words_ * static_cast<std::size_t>(height))
            touched_.resize(words_ * static_cast<std::size_t>(height), 0);
        firstRow_ = height;
        lastRow_ = -1;
    }

    void AddEdge(SmoothPoint from, SmoothPoint to) {
        if (from.y == to.y) return;
        double direction = 1;
        if (from.y > to.y) {
            std::swap(from, to);
            direction = -1;
        }
        double const top = std::max(from.y, 0.0);
        double const bottom = std::min(to.y, static_cast<double>(height_));
        if (top >= bottom) return;
        double const slope = (to.x - from.x) / (to.y - from.y);
        auto const firstRow = static_cast<int>(top);
        int const endRow = std::min(static_cast<int>(std::ceil(bottom)), height_);
        firstRow_ = std::min(firstRow_, firstRow);
        lastRow_ = std::max(lastRow_, endRow - 1);
        double x = from.x + (top - from.y) * slope;
        double y = top;
        for (int row = firstRow; row < endRow; ++row) {
            double const next = std::min(bottom, static_cast<double>(row + 1));
            double const nextX = x + (next - y) * slope;
            AddWithin(row, x, nextX, direction * (next - y));
            x = nextX;
            y = next;
        }
    }

    /// Visits runs of one share, from 1 to 256, and leaves everything clear.
    template <class Visit> void Flush(Visit visit) {
        for (int row = firstRow_; row <= lastRow_; ++row) {
            float* const changes = changes_.data() + static_cast<std::size_t>(row) * stride_;
            std::uint64_t* const touched = touched_.data() + static_cast<std::size_t>(row) * words_;
            float sum = 0;
            int begin = 0;
            std::uint32_t share = 0;
            for (std::size_t word = 0; word < words_; ++word) {
                while (touched[word] != 0) {
                    int const at = static_cast<int>(word * 64) + std::countr_zero(touched[word]);
                    touched[word] &= touched[word] - 1;
                    if (share != 0 && at > begin) visit(row, begin, std::min(at, width_), share);
                    sum += changes[at];
                    changes[at] = 0;
                    // Never negative: raised by a half it is rounded when the rest is cut off.
                    constexpr auto half = 0.5F;
                    float const raised = std::min(std::abs(sum), 1.0F) * 256 + half;
                    share = static_cast<std::uint32_t>(raised);
                    begin = at;
                }
            }
        }
    }

private:
    /// What is beside the clip counts at its edge.
    void AddWithin(int row, double x, double nextX, double height) {
        double const right = width_;
        auto const add = [&](double from, double to, double part) {
            AddPiece(row, static_cast<float>(std::clamp(from, 0.0, right)),
                     static_cast<float>(std::clamp(to, 0.0, right)), static_cast<float>(part));
        };
        double done = 0;
        double from = x;
        double const crossings[] = {x < nextX ? 0.0 : right, x < nextX ? right : 0.0};
        for (double const crossing : crossings) {
            if ((from < crossing) == (nextX < crossing) || from == crossing) continue;
            double const share = (crossing - x) / (nextX - x);
            add(from, crossing, height * (share - done));
            done = share;
            from = crossing;
        }
        add(from, nextX, height * (1 - done));
    }

    void AddPiece(int row, float x, float nextX, float height) {
        float const left = std::min(x, nextX);
        float const right = std::max(x, nextX);
        auto const first = static_cast<int>(left);
        auto const last = static_cast<int>(right);
        float* const changes = changes_.data() + static_cast<std::size_t>(row) * stride_;
        std::uint64_t* const touched = touched_.data() + static_cast<std::size_t>(row) * words_;
        auto const touch = [touched](int at) { touched[at >> 6] |= std::uint64_t{1} << (at & 63); };
        if (first == last) {
            float const behind = height * ((left + right) / 2 - static_cast<float>(first));
            changes[first] += height - behind;
            changes[first + 1] += behind;
            touch(first);
            touch(first + 1);
            return;
        }
        // The piece crosses pixels: what is behind it in each of them is the area under it so far.
        float const perPixel = height / (right - left);
        float before = 0;
        for (int at = first; at <= last; ++at) {
            float const begin = std::max(left, static_cast<float>(at));
            float const end = std::min(right, static_cast<float>(at + 1));
            float const part = perPixel * (end - begin);
            float const covered = part * (static_cast<float>(at + 1) - (begin + end) / 2);
            // `before` is the share that earlier pixels have passed on whole.
            changes[at] += covered + before;
            before = part - covered;
            touch(at);
        }
        changes[last + 1] += before;
        touch(last + 1);
    }

    int width_ = 0;
    int height_ = 0;
    std::size_t stride_ = 0;
    std::size_t words_ = 0;
    int firstRow_ = 0;
    int lastRow_ = -1;
    std::vector<float> changes_;
    std::vector<std::uint64_t> touched_;
};

} // namespace

void SmoothRaster::Line(SmoothPoint from, SmoothPoint to, double width, std::uint32_t color) const {
    double dx = to.x - from.x;
    double dy = to.y - from.y;
    bool const isLevel = std::abs(dx) >= std::abs(dy);
    if (isLevel ? dx == 0 : dy == 0) return;
    // Both kinds of lines are runs across the pen; a steep one has its axes exchanged.
    double begin = isLevel ? from.x : from.y;
    double end = isLevel ? to.x : to.y;
    double const origin = isLevel ? from.y : from.x;
    double const slope = isLevel ? dy / dx : dx / dy;
    bool const isForward = begin < end;
    double const start = begin;
    // The run in which the line begins belongs to it, the one in which it ends to the next line.
    int first = static_cast<int>(std::floor(isForward ? begin : end));
    int last = static_cast<int>(std::floor(isForward ? end : begin));
    if (!isForward) {
        ++first;
        ++last;
    }
    double const breadth = width * std::sqrt(1 + slope * slope);
    for (PixelBox const& clip : clip_) {
        int const low = isLevel ? clip.top : clip.left;
        int const high = isLevel ? clip.bottom : clip.right;
        int const from1 = std::max(first, isLevel ? clip.left : clip.top);
        int const to1 = std::min(last, isLevel ? clip.right : clip.bottom);
        if (from1 >= to1) continue;
        double const middle = origin + (from1 + 0.5 - start) * slope;
        double const lastMiddle = middle + (to1 - 1 - from1) * slope;
        // Far beyond the clip fixed numbers would overflow, and there is nothing to draw.
        if (std::max(middle, lastMiddle) + breadth < low || std::min(middle, lastMiddle) - breadth > high)
            continue;
        constexpr double farthest = 1e8;
        if (std::max(std::abs(middle), std::abs(lastMiddle)) + breadth > farthest) continue;
        Stroke stroke{bits_,           isLevel ? 1 : pixelsPerRow_,   isLevel ? pixelsPerRow_ : 1,
                      color,           ToFixed(middle - breadth / 2), ToFixed(slope),
                      ToFixed(breadth)};
        bool const isWithin = std::min(middle, lastMiddle) - breadth / 2 - 1 >= low &&
                              std::max(middle, lastMiddle) + breadth / 2 + 2 <= high;
        if (isWithin)
            stroke.Draw(from1, to1);
        else
            stroke.DrawWithin(from1, to1, low, high);
    }
}

void SmoothRaster::AddContour(std::span<SmoothPoint const> points) {
    if (points.empty()) return;
    SmoothPoint before = points.back();
    for (SmoothPoint const& point : points) {
        edges_.push_back({before, point});
        before = point;
    }
}

template <class Visitor> void SmoothRaster::Visit(PixelBox const& clip, Visitor visitor) const {
    if (clip.IsEmpty() || edges_.empty()) return;
    // Only the part of the clip that the figure is in, so that small figures touch little memory.
    constexpr double far = 1e6;
    double left = far;
    double top = far;
    double right = -far;
    double bottom = -far;
    for (Edge const& edge : edges_) {
        left = std::min(left, edge.from.x);
        right = std::max(right, edge.from.x);
        top = std::min(top, edge.from.y);
        bottom = std::max(bottom, edge.from.y);
    }
    PixelBox const box = clip.Intersected({static_cast<int>(std::floor(std::max(left, -far))),
                                           static_cast<int>(std::floor(std::max(top, -far))),
                                           static_cast<int>(std::ceil(std::min(right, far))),
                                           static_cast<int>(std::ceil(std::min(bottom, far)))});
    if (box.IsEmpty()) return;
    // Kept from figure to figure; it is clear between them.
    static thread_local Coverage coverage;
    coverage.Begin(box.GetWidth(), box.GetHeight());
    for (Edge const& edge : edges_)
        coverage.AddEdge({edge.from.x - box.left, edge.from.y - box.top},
                         {edge.to.x - box.left, edge.to.y - box.top});
    coverage.Flush([&](int row, int begin, int end, std::uint32_t share) {
        visitor(Run{row + box.top, begin + box.left, end + box.left, share});
    });
}

void SmoothRaster::Fill(std::uint32_t color) {
    for (PixelBox const& clip : clip_)
        Visit(clip, [&](Run const& run) { DrawRun(Row(run.y), run.begin, run.end, run.share, color); });
    edges_.clear();
}

SmoothRaster::Figure SmoothRaster::TakeFigure() {
    constexpr int far = 32767;
    Figure figure;
    Visit({-far, -far, far, far}, [&](Run const& run) { figure.push_back(run); });
    edges_.clear();
    return figure;
}

void SmoothRaster::Draw(Figure const& figure, int x, int y, std::uint32_t color) const {
    for (PixelBox const& clip : clip_)
        for (Run const& run : figure) {
            int const row = y + run.y;
            if (row < clip.top || row >= clip.bottom) continue;
            DrawRun(Row(row), std::max(x + run.begin, clip.left), std::min(x + run.end, clip.right),
                    run.share, color);
        }
}

} // namespace GUI
