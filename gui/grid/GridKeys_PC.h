#pragma once

#include "gui/grid/view/GridInput.h"

#include <QKeyEvent>
#include <optional>
#include <utility>

namespace GUI {

inline GridModifiers ToGridModifiers(Qt::KeyboardModifiers modifiers) {
    return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier)};
}

/// The key by its meaning; none for one that only types.
inline std::optional<GridKey> ToGridKey(QKeyEvent const& event) {
    std::pair<QKeySequence::StandardKey, GridKey> const commands[] = {
        {QKeySequence::Copy, GridKey::Copy},    {QKeySequence::Cut, GridKey::Cut},
        {QKeySequence::Paste, GridKey::Paste},  {QKeySequence::Undo, GridKey::Undo},
        {QKeySequence::Redo, GridKey::Redo},    {QKeySequence::SelectAll, GridKey::SelectAll},
        {QKeySequence::Delete, GridKey::Delete}};
    for (auto const& [sequence, key] : commands)
        if (event.matches(sequence)) return key;
    std::pair<int, GridKey> const keys[] = {
        {Qt::Key_Left, GridKey::Left},     {Qt::Key_Right, GridKey::Right},
        {Qt::Key_Up, GridKey::Up},         {Qt::Key_Down, GridKey::Down},
        {Qt::Key_Home, GridKey::Home},     {Qt::Key_End, GridKey::End},
        {Qt::Key_PageUp, GridKey::PageUp}, {Qt::Key_PageDown, GridKey::PageDown},
        {Qt::Key_Return, GridKey::Enter},  {Qt::Key_Enter, GridKey::Enter},
        {Qt::Key_Escape, GridKey::Escape}, {Qt::Key_F2, GridKey::Edit},
        {Qt::Key_Space, GridKey::Space}};
    for (auto const& [code, key] : keys)
        if (event.key() == code) return key;
    return {};
}

/// Whether a key types a character rather than commanding something.
inline bool TypesText(QKeyEvent const& event) {
    QString const text = event.text();
    return !text.isEmpty() && text[0].isPrint() && !event.modifiers().testFlag(Qt::ControlModifier) &&
           !event.modifiers().testFlag(Qt::AltModifier);
}

} // namespace GUI
