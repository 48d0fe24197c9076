#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace GUI {

/// Which lines of the data are shown as which rows or columns. A line keeps its number for ever, wherever
/// sorting puts it; lines in their natural order need no memory. Copies share what they hold.
class GridOrder {
public:
    using Line = std::uint32_t;
    using Lines = std::vector<Line>;

    GridOrder() = default;
    explicit GridOrder(Lines lines);

    long GetCount() const { return count_; }
    /// New lines come last and have numbers that were never used; those that are too many leave the order.
    void SetCount(long count);
    /// Places count from 1; place and line 0 are the header.
    Line GetLine(long place) const {
        return lines_ && place > 0 && place <= count_ ? (*lines_)[static_cast<std::size_t>(place - 1)]
                                                      : static_cast<Line>(place);
    }
    /// 0 for a line that isn't shown.
    long GetPlace(Line line) const;
    void Insert(long at, long count);
    void Remove(long at, long count);
    /// `lines` has the lines of the places from `first` on in their new order.
    void Rearrange(long first, Lines const& lines);
    bool IsNatural() const { return !lines_; }

private:
    Lines Copy() const;
    void Take(Lines lines);

    long count_ = 0;
    /// The first number that was never used.
    Line next_ = 1;
    /// Null for the natural order.
    std::shared_ptr<Lines const> lines_;
    /// By line; made when it is asked for.
    mutable std::shared_ptr<std::vector<std::uint32_t> const> places_;
};

} // namespace GUI
