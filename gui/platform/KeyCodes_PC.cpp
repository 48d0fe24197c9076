#include "gui/platform/KeyCodes_PC.h"

#include "gui/elements/application/ApplicationImplementation.h"

#include <QKeyEvent>

#include <string_view>

namespace GUI {

namespace {

/// The Latin letter at the place of a key, 0 for other keys. X11 and Wayland number a row's keys one after
/// the other. Layouts of other scripts have their letters there, and hot keys are told by place on them.
int LatinLetterAt(quint32 scanCode) {
    struct Row {
        quint32 first;
        std::string_view letters;
    };
    for (auto const& [first, letters] : {Row{24, "QWERTYUIOP"}, Row{38, "ASDFGHJKL"}, Row{52, "ZXCVBNM"}})
        if (scanCode >= first && scanCode - first < letters.size()) return letters[scanCode - first];
    return 0;
}

} // namespace

int KeyCodeOf(QKeyEvent const& event) {
    int const key = event.key();
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) return key;
    // With Shift, and on some keyboards without, a key of the digits' row gives another character. X11 and
    // Wayland number that row from 10 on, "1" to "9" and then "0".
    constexpr quint32 firstDigit = 10;
    if (auto const place = event.nativeScanCode() - firstDigit; key < Qt::Key_Escape && place < 10)
        return place == 9 ? '0' : static_cast<int>('1' + place);
    constexpr int lastLatin = 0xFF;
    if (key > lastLatin && key < Qt::Key_Escape) return LatinLetterAt(event.nativeScanCode());
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + key - Qt::Key_F1;
    switch (key) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Pause:
        return 19;
    case Qt::Key_CapsLock:
        return 20;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    default:
        return 0;
    }
}

int ModifiersOf(QKeyEvent const& event) {
    int modifiers = 0;
    if (event.modifiers().testFlag(Qt::ShiftModifier)) modifiers |= AcceleratorEntry::shift;
    if (event.modifiers().testFlag(Qt::ControlModifier)) modifiers |= AcceleratorEntry::control;
    if (event.modifiers().testFlag(Qt::AltModifier)) modifiers |= AcceleratorEntry::alt;
    return modifiers;
}

} // namespace GUI
