#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <optional>

namespace GUI {

/// What a reading came to. "No data" is neither a pass nor a fail.
enum class VerdictKind : std::uint8_t { NoData, Pass, Marginal, Fail };

/// "Pass", "Marginal", "Fail" or "NoData"; none for another text.
std::optional<VerdictKind> FindVerdict(Utilities::String const& name);

/// "PASS" and so on: a key of the language service.
char const* WordOf(VerdictKind kind);

/// The colours of a verdict in a theme, and those where a sign may have no colour of its own.
struct VerdictTones {
    RGBVector body;
    RGBVector glyph;
    /// Around the body of "Marginal", whose colour alone doesn't stand out on light grounds.
    std::optional<RGBVector> outline;

    static VerdictTones Of(VerdictKind kind);
    /// Near measured colours: ink alone, on `ground`.
    static VerdictTones InInk(RGBVector const& ground);
    /// On a ground in the verdict's own colour.
    static VerdictTones Reversed(VerdictKind kind);
};

/// Draws the sign of a verdict into a square: a disc with a tick, a triangle with "!", a square with a cross,
/// a dashed ring with a bar. The shapes tell them apart without their colours. Sizes of 14 and more can be
/// read.
void DrawVerdictSign(PlatformIndependentDeviceContext& context, VerdictKind kind, VerdictTones const& tones,
                     short left, short top, short size);

} // namespace GUI
