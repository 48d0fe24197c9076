#pragma once

#include "core/base/Exceptions.h"
#include "core/base/String.h"
#include "gui/elements/description/Description.h"

#include <string>
#include <string_view>

namespace GUI {

/// A description that can't be used. The message is "file:line:column: reason".
class DescriptionException : public Norvelian::Utilities::Exceptions::ResourceException {
public:
    DescriptionException(std::string const& file, long line, long column, std::string const& reason);

    std::string const& GetFile() const { return file_; }
    /// Both count from 1; 0 if the file as a whole is meant.
    long GetLine() const { return line_; }
    long GetColumn() const { return column_; }

private:
    std::string file_;
    long line_;
    long column_;
};

/// Reads descriptions of windows from XML files: the tag is "GUIElementType", attributes are
/// attributes, child elements are children, a child named `Properties` is the nested map of that name.
///
/// A description is refused with a `DescriptionException` if it is not well-formed, names a component
/// that isn't in the directory, lacks a mandatory attribute, or gives a flag, number or colour that
/// can't be read. An attribute that no table of the component knows is reported to the diagnostics
/// sink and kept.
///
/// What a description may hold at most is in `Utilities::Limits`; elements and attributes are counted
/// before anything is built.
class GUIDescriptionReader {
public:
    /// A bare name is looked for as `name.xml` in the directory of descriptions; anything with a "/" or
    /// an extension is a path.
    static DescriptionTree GetGUIDescriptionTree(Utilities::String const& fileName);
    /// The same from text; `name` is the file in messages.
    static DescriptionTree Parse(std::string_view text, std::string const& name);

    /// At first "descriptions" below the program's directory.
    static void SetDirectory(Utilities::String const& directory);
};

} // namespace GUI
