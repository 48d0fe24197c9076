#pragma once

#include "core/base/String.h"

namespace GUI {

/// Copy, paste, cut and undo of an element's content, by the element's name. By default there is
/// nothing to copy, and none of it can be done.
class SupportsCopyPaste {
public:
    virtual ~SupportsCopyPaste() = default;
    virtual void Invariant() const = 0;
    virtual void Copy(Utilities::String const& /*element*/) {}
    virtual void Paste(Utilities::String const& /*element*/) {}
    virtual void Cut(Utilities::String const& /*element*/) {}
    virtual void Undo(Utilities::String const& /*element*/) {}
    virtual bool CanCopy(Utilities::String const& /*element*/) { return false; }
    virtual bool CanPaste(Utilities::String const& /*element*/) { return false; }
    virtual bool CanCut(Utilities::String const& /*element*/) { return false; }
    virtual bool CanUndo(Utilities::String const& /*element*/) { return false; }
    virtual SupportsCopyPaste& GetCopyPasteHandler(Utilities::String const& /*element*/) { return *this; }
};

} // namespace GUI
