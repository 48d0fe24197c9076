#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "gui/elements/description/Description.h"

#include <cstdint>
#include <optional>

/// The description of a row of tools: an entry each for tool, separator, scroll button and the margin around
/// the row. An entry has a name and, once it has been measured, a "Width" in decimal text.
namespace GUI::ToolRow {

inline constexpr char const* separator = "Separator";
inline constexpr char const* widthKey = "Width";
inline constexpr char const* scrollSpace = "ScrollGumBox";
inline constexpr char const* leftScroll = "LeftScroll";
inline constexpr char const* rightScroll = "RightScroll";
inline constexpr char const* margin = "FrameBoxTree";

Utilities::SmartPointer<DescriptionTree> MakeNode(char const* type, Utilities::String const& name);
Utilities::SmartPointer<DescriptionTree> CopyOf(DescriptionTree const& node);
/// A gap with 5 pixels on either side.
Utilities::SmartPointer<DescriptionTree> MakeSeparator(DescriptionTree const& entry, long number);
/// The elastic space and the two buttons, with the bar's handler and background if it has them.
void AddScrollParts(DescriptionTree& row, Utilities::String const& width, Utilities::String const& height,
                    AttributeMap const& bar);

/// Empty if there is no such key.
Utilities::String TextOf(DescriptionTree const& node, char const* key);
std::uint32_t WidthOf(DescriptionTree const& entry);
bool IsScrollPart(DescriptionTree const& entry);
/// A tool or a separator.
bool IsContent(DescriptionTree const& entry);
/// By its name's beginning, so that a tool called "Separator..." counts as one.
bool IsSeparator(DescriptionTree const& entry);
/// Null for an unknown name.
DescriptionTree const* FindEntry(DescriptionTree const& row, char const* name);
/// Of tools and separators.
std::uint32_t ContentWidth(DescriptionTree const& row);

/// What shows of a row that is wider than its bar.
struct CutRow {
    Utilities::SmartPointer<DescriptionTree> box;
    /// Another text for another set of entries.
    Utilities::String names;
    /// Tools, without the separators between them.
    std::uint32_t visibleCount = 0;
};
/// From a tool on, as much as fits beside the scroll buttons and what is kept in reserve for more.
CutRow Cut(DescriptionTree const& row, std::uint32_t firstVisible, std::uint32_t width);
/// Which tool has to be the first one, so that a tool beyond `lastVisible` shows; nothing if none has to.
/// Here separators are numbered with the tools.
std::optional<std::uint32_t> FirstToShow(DescriptionTree const& row, Utilities::String const& tool,
                                         std::uint32_t lastVisible, std::uint32_t width);

} // namespace GUI::ToolRow
