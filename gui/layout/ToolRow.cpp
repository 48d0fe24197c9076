#include "gui/layout/ToolRow.h"

#include "gui/elements/description/Attributes.h"

#include <utility>
#include <vector>

namespace GUI::ToolRow {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace Common = CommonAttributes;

namespace {

/// Room that is left at the right while there are more tools.
constexpr std::uint32_t reservedWidth = 16;

std::uint32_t ScrollPartsWidth(DescriptionTree const& row) {
    std::uint32_t width = 0;
    for (auto entry = row.GetChildren(); entry.IsValid(); ++entry)
        if (IsScrollPart(*entry.Current())) width += WidthOf(*entry.Current());
    return width;
}

} // namespace

SmartPointer<DescriptionTree> MakeNode(char const* type, String const& name) {
    auto node = Utilities::MakeSmart<DescriptionTree>();
    (*node)[Common::elementType.key] = type;
    node->SetName(name);
    return node;
}

SmartPointer<DescriptionTree> CopyOf(DescriptionTree const& node) {
    return Utilities::MakeSmart<DescriptionTree>(node);
}

String TextOf(DescriptionTree const& node, char const* key) {
    Anything const* const value = node.FindValue(key);
    return value ? value->GetString() : String();
}

std::uint32_t WidthOf(DescriptionTree const& entry) {
    return static_cast<std::uint32_t>(TextOf(entry, widthKey).GetUnsignedLong());
}

bool IsScrollPart(DescriptionTree const& entry) {
    String const& name = entry.GetName();
    return name == scrollSpace || name == leftScroll || name == rightScroll;
}

bool IsContent(DescriptionTree const& entry) { return !IsScrollPart(entry) && !(entry.GetName() == margin); }

bool IsSeparator(DescriptionTree const& entry) {
    return entry.GetName().GetStdString().starts_with(separator);
}

DescriptionTree const* FindEntry(DescriptionTree const& row, char const* name) {
    for (auto entry = row.GetChildren(); entry.IsValid(); ++entry)
        if (entry.Current()->GetName() == name) return entry.Current().Get();
    return nullptr;
}

SmartPointer<DescriptionTree> MakeSeparator(DescriptionTree const& entry, long number) {
    String const name = String(separator) + String(number);
    auto gap = MakeNode("FrameBox", name);
    (*gap)["Name"] = name;
    (*gap)["Top"] = "0";
    for (char const* const side : {"Left", "Right", "Bottom"}) (*gap)[side] = "5";
    gap->AddChild(CopyOf(entry));
    return gap;
}

void AddScrollParts(DescriptionTree& row, String const& width, String const& height,
                    AttributeMap const& bar) {
    auto const space = MakeNode("GumBox", scrollSpace);
    (*space)[Common::maximalHeight.key] = "0";
    (*space)[Common::maximalWidth.key] = "10000";
    (*space)[widthKey] = "0";
    row.AddChild(space);
    for (auto const& [name, caption] : {std::pair{leftScroll, "Left"}, std::pair{rightScroll, "Right"}}) {
        auto const button = MakeNode("ImageButton", name);
        (*button)[Common::elementName.key] = name;
        (*button)["Caption"] = caption;
        for (char const* const key : {"Handler", Common::backgroundColor.key})
            if (Anything const* const value = bar.FindValue(key)) (*button)[key] = *value;
        for (char const* const key : {Common::minimalWidth.key, Common::maximalWidth.key, widthKey})
            (*button)[key] = width;
        for (char const* const key : {Common::minimalHeight.key, Common::maximalHeight.key})
            (*button)[key] = height;
        row.AddChild(button);
    }
}

std::uint32_t ContentWidth(DescriptionTree const& row) {
    std::uint32_t width = 0;
    for (auto entry = row.GetChildren(); entry.IsValid(); ++entry)
        if (IsContent(*entry.Current())) width += WidthOf(*entry.Current());
    return width;
}

CutRow Cut(DescriptionTree const& row, std::uint32_t firstVisible, std::uint32_t width) {
    std::uint32_t const fixedWidth = ScrollPartsWidth(row);
    std::uint32_t contentCount = 0;
    for (auto entry = row.GetChildren(); entry.IsValid(); ++entry)
        if (IsContent(*entry.Current())) ++contentCount;
    CutRow cut{MakeNode("HBox", " "), String(static_cast<unsigned long>(firstVisible)) + ":"};
    std::uint32_t usedWidth = 0;
    // Of tools, while the number that it is compared with counts separators too.
    std::uint32_t index = 0;
    for (auto entry = row.GetChildren(); entry.IsValid(); ++entry) {
        DescriptionTree const& content = *entry.Current();
        if (!IsContent(content)) continue;
        bool const isTool = !IsSeparator(content);
        if (index < firstVisible) {
            if (isTool) ++index;
            continue;
        }
        usedWidth += WidthOf(content);
        std::uint32_t const reserve = index + 1 < contentCount ? reservedWidth : 0;
        if (usedWidth + fixedWidth + reserve >= width) break;
        cut.box->AddChild(CopyOf(content));
        cut.names += content.GetName() + ";";
        if (!isTool) continue;
        ++cut.visibleCount;
        ++index;
    }
    for (auto entry = row.GetChildren(); entry.IsValid(); ++entry)
        if (IsScrollPart(*entry.Current())) cut.box->AddChild(CopyOf(*entry.Current()));
    return cut;
}

std::optional<std::uint32_t> FirstToShow(DescriptionTree const& row, String const& tool,
                                         std::uint32_t lastVisible, std::uint32_t width) {
    std::uint32_t const taken = ScrollPartsWidth(row) + reservedWidth;
    std::vector<std::uint32_t> widths;
    std::uint32_t widthToTarget = 0;
    bool found = false;
    for (auto entry = row.GetChildren(); entry.IsValid() && !found; ++entry) {
        if (!IsContent(*entry.Current())) continue;
        widths.push_back(WidthOf(*entry.Current()));
        widthToTarget += widths.back();
        found = entry.Current()->GetName() == tool;
    }
    if (!found) return {};
    auto const target = static_cast<std::uint32_t>(widths.size() - 1);
    if (target <= lastVisible || widthToTarget + taken <= width) return {};
    std::uint32_t first = target;
    std::uint32_t sum = widths[first];
    while (sum + taken < width && first != 0) sum += widths[--first];
    return first < target ? first + 1 : first;
}

} // namespace GUI::ToolRow
