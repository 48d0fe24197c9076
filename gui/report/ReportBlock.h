#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <cstddef>

namespace GUI {

/// A part of a report from its left to its right margin, such as a paragraph or a table. It is divided into
/// pieces, of which each is on one page.
class ReportBlock {
public:
    virtual ~ReportBlock() = default;

    /// Divides itself for a width; called before all others.
    virtual void LayOut(PlatformIndependentDeviceContext& context, long width) = 0;
    virtual std::size_t GetCount() const { return 1; }
    virtual long GetHeight(std::size_t piece) const = 0;
    virtual void Paint(PlatformIndependentDeviceContext& context, std::size_t piece, long top) const = 0;
    /// What is over the first piece on each page.
    virtual long GetHeadHeight() const { return 0; }
    virtual void PaintHead(PlatformIndependentDeviceContext& /*context*/, long /*top*/) const {}

    /// Free above it, but not at the head of a page.
    virtual long GetSpace() const { return 12; }
    /// It is on the page of what follows.
    virtual bool KeepsWithNext() const { return false; }
    /// What follows begins a page.
    virtual bool EndsPage() const { return false; }
};

} // namespace GUI
