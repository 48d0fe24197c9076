#pragma once

#include "core/base/String.h"

#include <QTextLayout>

class QFont;

namespace GUI {

/// A text in one font whose glyphs have been chosen and placed.
struct ShapedText {
    QTextLayout layout;
    int width = 0;
    double ascent = 0;
};

/// The text, if it has been asked for shortly before; null for one that is new, long or underlined. A window
/// is drawn with the same texts again and again, and finding their glyphs is most of the work: 200 drawn
/// buttons are shown in 60 percent of the time. Kept are at most 1024 texts, and none that is drawn only
/// once.
///
/// `font` is one that `FindFont` gives. Valid until the next call. GUI thread only.
ShapedText const* FindShapedText(QFont const& font, Utilities::String const& text);

/// Forgets all texts: their glyphs are those of the present application object, and must go before it.
void ForgetShapedTexts();

} // namespace GUI
