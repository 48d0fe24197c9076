#pragma once

#include "Utilities/Tools/Tree.h"
#include "core/base/String.h"
#include "core/values/Callback.h"

namespace GUI {

/// One entry of a menu: a text, a hot key such as "CTRL+SHIFT+S", a command number, and what it does. The
/// letter behind an ampersand in the text is the entry's key in the open menu.
class MenuItem {
public:
    MenuItem() = default;
    MenuItem(Utilities::String const& text, Utilities::String const& hotKey, long command,
             Utilities::Callback const& action = {}, bool enabled = true)
        : text_(text), hotKey_(hotKey), command_(command), action_(action), enabled_(enabled) {}

    Utilities::String const& GetText() const { return text_; }
    void SetText(Utilities::String const& text) { text_ = text; }
    Utilities::String const& GetHotKey() const { return hotKey_; }
    /// 0 means an item without a command of its own.
    long GetCommand() const { return command_; }
    void SetCommand(long command) { command_ = command; }
    bool IsEnabled() const { return enabled_; }
    /// The action's result; 0 without one.
    long Execute(Utilities::Anything& argument) { return action_.Execute(argument); }

    /// The element name under which a data source answers for the item, and the key of its text; both are
    /// empty for an item that a program has made.
    Utilities::String const& GetName() const { return name_; }
    Utilities::String const& GetCaptionKey() const { return captionKey_; }
    void SetSource(Utilities::String const& name, Utilities::String const& captionKey,
                   Utilities::String const& handler = {}) {
        name_ = name;
        captionKey_ = captionKey;
        handler_ = handler;
    }
    /// The registered component that answers in place of the menu's data source; empty for none.
    Utilities::String const& GetHandler() const { return handler_; }

    /// The item of that command anywhere in the tree, null if there is none.
    static MenuItem* FindMenuItem(Utilities::Tree<MenuItem>& items, long command);

private:
    Utilities::String text_;
    Utilities::String hotKey_;
    long command_ = 0;
    Utilities::Callback action_;
    bool enabled_ = true;
    Utilities::String name_;
    Utilities::String captionKey_;
    Utilities::String handler_;
};

} // namespace GUI
