#pragma once

class QKeyEvent;

namespace GUI {

/// The contracted code of a key: letters and digits are their upper-case characters, F1 is 112, Delete
/// is 46. 0 for a key without one.
int KeyCodeOf(QKeyEvent const& event);
/// The modifier bits of `AcceleratorEntry`.
int ModifiersOf(QKeyEvent const& event);

} // namespace GUI
