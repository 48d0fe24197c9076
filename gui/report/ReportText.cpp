#include "gui/report/ReportText.h"

#include "core/base/Utf8.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

namespace GUI {

using Utilities::String;

namespace {

/// How many bytes of the text fit, of one character at least.
std::size_t FittingBytes(PlatformIndependentDeviceContext& context, std::string const& text, long width) {
    std::vector<std::size_t> ends;
    for (std::size_t at = 0; at < text.size();) {
        std::string_view const rest = std::string_view(text).substr(at);
        at += std::max<std::size_t>(Utilities::Utf8SequenceLength(rest), 1);
        ends.push_back(at);
    }
    auto const beyond = std::partition_point(ends.begin(), ends.end(), [&](std::size_t end) {
        return WidthOf(context, text.substr(0, end)) <= width;
    });
    if (ends.empty()) return 0;
    return beyond == ends.begin() ? ends.front() : *std::prev(beyond);
}

class Wrapping {
public:
    Wrapping(PlatformIndependentDeviceContext& context, long width) : context_(context), width_(width) {}

    void AddWord(std::string word) {
        std::string const joined = line_.empty() ? word : line_ + " " + word;
        if (Fits(joined)) {
            line_ = joined;
            return;
        }
        if (!line_.empty()) EndLine();
        while (!Fits(word)) {
            std::size_t const bytes = FittingBytes(context_, word, width_);
            if (bytes >= word.size()) break;
            lines_.emplace_back(word.substr(0, bytes));
            word.erase(0, bytes);
        }
        line_ = word;
    }
    void EndLine() {
        lines_.emplace_back(line_);
        line_.clear();
    }
    std::vector<String> Take() { return std::move(lines_); }

private:
    bool Fits(std::string const& text) { return WidthOf(context_, text) <= width_; }

    PlatformIndependentDeviceContext& context_;
    long width_;
    std::string line_;
    std::vector<String> lines_;
};

} // namespace

void ReportFont::Use(PlatformIndependentDeviceContext& context) const {
    context.SetFont(static_cast<short>(-size), 0, 0, face,
                    isBold ? PlatformIndependentDeviceContext::boldFont : short{0});
    context.SetTextColor(color);
}

long WidthOf(PlatformIndependentDeviceContext& context, String const& text) {
    long width = 0;
    long height = 0;
    context.GetTextExtent(text, width, height);
    return width;
}

std::vector<String> WrapText(PlatformIndependentDeviceContext& context, String const& text, long width) {
    Wrapping wrapping(context, width);
    std::istringstream source(text.GetStdString());
    bool isEmpty = true;
    for (std::string line; std::getline(source, line); isEmpty = false) {
        std::istringstream words(line);
        for (std::string word; words >> word;) wrapping.AddWord(word);
        wrapping.EndLine();
    }
    if (isEmpty) wrapping.EndLine();
    return wrapping.Take();
}

String ElideText(PlatformIndependentDeviceContext& context, String const& text, long width) {
    if (WidthOf(context, text) <= width) return text;
    constexpr char const* ellipsis = "\u2026";
    long const room = std::max(width - WidthOf(context, ellipsis), 0L);
    return text.GetStdString().substr(0, FittingBytes(context, text.GetStdString(), room)) + ellipsis;
}

} // namespace GUI
