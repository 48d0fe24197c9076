#pragma once

#include "core/base/String.h"

namespace GUI {

/// Works out the first formula in an attribute's text and puts its result in its place.
///
/// A formula is "LOOPBOX_CALC", one character (normally an opening parenthesis), the formula and a
/// closing parenthesis, which do not nest. It is in reverse Polish notation of whole numbers of 32 bits
/// and the operators + - * /, with commas between the tokens and no blanks; a division cuts towards
/// zero. "X2Y_LOOPBOX_CALC(2,10,*)" becomes "X2Y_20".
///
/// A faulty formula stays in the text: fewer than three tokens, an operator without two values, a token
/// that is no number, more than 100 values at once, more or less than one value left, a division by zero
/// or a result beyond 32 bits. What was wrong goes to the diagnostics sink.
///
/// False, with the text unchanged, for a formula of more steps than `Utilities::Limits` allows.
bool EvaluateLoopBoxFormula(Utilities::String& value);

} // namespace GUI
