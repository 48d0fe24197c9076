#include "gui/grid/edit/GridExchange.h"

#include "gui/grid/model/GridNumber.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace GUI {

using Utilities::String;

GridTexts CopyGridCells(CGXGridCore const& core, GridRange const& range, char decimalSign) {
    GridTexts cells;
    for (long row = range.top; row <= range.bottom; ++row) {
        if (core.GetHeights().IsHidden(row)) continue;
        auto& line = cells.emplace_back();
        for (long column = range.left; column <= range.right; ++column) {
            if (core.GetWidths().IsHidden(column)) continue;
            String const& text = core.GetText({row, column});
            line.push_back(core.GetStyle({row, column}).IsNumber() ? ShowGridNumber(text, decimalSign, false)
                                                                   : text);
        }
    }
    return cells;
}

// ------------------------------------------------------------------ text with tabs

std::string WriteGridText(GridTexts const& cells) {
    std::string text;
    for (auto const& line : cells) {
        bool isFirst = true;
        for (String const& cell : line) {
            if (!isFirst) text += '\t';
            isFirst = false;
            std::string const& content = cell.GetStdString();
            if (content.find_first_of("\t\r\n\"") == std::string::npos) {
                text += content;
                continue;
            }
            text += '"';
            for (char const character : content) text.append(character == '"' ? 2 : 1, character);
            text += '"';
        }
        text += '\n';
    }
    return text;
}

namespace {

bool EndsCell(std::string_view text, std::size_t at) {
    return at >= text.size() || text[at] == '\t' || text[at] == '\n' || text[at] == '\r';
}

/// Where the quote that closes the one at `begin` is; npos if none does.
std::size_t FindClosingQuote(std::string_view text, std::size_t begin) {
    for (std::size_t at = begin + 1; at < text.size(); ++at) {
        if (text[at] != '"') continue;
        if (at + 1 < text.size() && text[at + 1] == '"')
            ++at;
        else
            return EndsCell(text, at + 1) ? at : std::string_view::npos;
    }
    return std::string_view::npos;
}

String Unquoted(std::string_view quoted) {
    std::string text;
    for (std::size_t i = 0; i < quoted.size(); ++i) {
        text += quoted[i];
        if (quoted[i] == '"') ++i;
    }
    return text;
}

} // namespace

GridTexts ReadGridText(std::string const& whole) {
    std::string_view const text = whole;
    GridTexts cells;
    // One search to the end that finds no closing quote is enough: there is none for a later one either.
    bool mayClose = true;
    for (std::size_t at = 0; at < text.size();) {
        auto& line = cells.emplace_back();
        for (bool more = true; more;) {
            std::size_t end = std::string_view::npos;
            if (mayClose && at < text.size() && text[at] == '"') {
                end = FindClosingQuote(text, at);
                mayClose = end != std::string_view::npos || text.find('"', at + 1) != std::string_view::npos;
            }
            if (end != std::string_view::npos) {
                line.push_back(Unquoted(text.substr(at + 1, end - at - 1)));
                ++end;
            } else {
                end = std::min(text.find_first_of("\t\r\n", at), text.size());
                line.emplace_back(text.substr(at, end - at));
            }
            more = end < text.size() && text[end] == '\t';
            at = end + (end < text.size() ? 1 : 0);
            if (!more && end + 1 < text.size() && text[end] == '\r' && text[end + 1] == '\n') ++at;
        }
    }
    return cells;
}

// ------------------------------------------------------------------ HTML

std::string WriteGridHtml(GridTexts const& cells) {
    std::string page = "<html><head><meta charset=\"utf-8\"></head><body><table>";
    for (auto const& line : cells) {
        page += "<tr>";
        for (String const& cell : line) {
            page += "<td>";
            for (char const character : cell.GetStdString()) switch (character) {
                case '&':
                    page += "&amp;";
                    break;
                case '<':
                    page += "&lt;";
                    break;
                case '>':
                    page += "&gt;";
                    break;
                case '\n':
                    page += "<br>";
                    break;
                default:
                    page += character;
                }
            page += "</td>";
        }
        page += "</tr>\n";
    }
    return page + "</table></body></html>";
}

namespace {

/// Walks through a page and fills cells.
class HtmlTable {
public:
    explicit HtmlTable(std::string_view page) : page_(page) {}

    GridTexts Read() {
        while (at_ < page_.size() && !done_)
            if (page_[at_] == '<')
                ReadTag();
            else if (page_[at_] == '&')
                ReadEntity();
            else
                Add(page_[at_++]);
        return std::move(cells_);
    }

private:
    static char Lower(char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    static constexpr std::size_t mostSpanned = 1000;
    /// More than a table on the clipboard sensibly has; a page of a few bytes could ask for any number.
    static constexpr std::size_t mostCells = 4000000;

    void ReadTag() {
        if (page_.substr(at_).starts_with("<!--")) {
            std::size_t const end = page_.find("-->", at_);
            at_ = end == std::string_view::npos ? page_.size() : end + 3;
            return;
        }
        std::size_t const end = std::min(page_.find('>', at_), page_.size());
        std::string tag(page_.substr(at_ + 1, end - at_ - 1));
        std::ranges::transform(tag, tag.begin(), Lower);
        at_ = std::min(end + 1, page_.size());
        std::string const name = tag.substr(0, tag.find_first_of(" \t\r\n/", 1));
        if (name == "table") {
            inTable_ = true;
        } else if (name == "/table") {
            EndCell();
            done_ = inTable_;
        } else if (name == "tr" && inTable_) {
            EndCell();
            cells_.emplace_back();
        } else if ((name == "td" || name == "th") && inTable_) {
            EndCell();
            if (cells_.empty()) cells_.emplace_back();
            inCell_ = true;
            span_ = SpanOf(tag);
        } else if (name == "/td" || name == "/th" || name == "/tr") {
            EndCell();
        } else if (inCell_ && (name == "br" || (name == "p" && !text_.empty()))) {
            text_ += '\n';
            blank_ = false;
        }
    }
    static std::size_t SpanOf(std::string const& tag) {
        std::size_t at = tag.find("colspan=");
        if (at == std::string::npos) return 1;
        at = tag.find_first_of("0123456789", at);
        std::size_t span = 0;
        while (at < tag.size() && tag[at] >= '0' && tag[at] <= '9' && span < mostSpanned)
            span = span * 10 + static_cast<std::size_t>(tag[at++] - '0');
        return std::clamp<std::size_t>(span, 1, mostSpanned);
    }
    void EndCell() {
        if (!inCell_) return;
        cells_.back().emplace_back(text_);
        cells_.back().resize(cells_.back().size() + span_ - 1);
        text_.clear();
        inCell_ = blank_ = false;
        count_ += span_;
        if (count_ > mostCells) done_ = true;
    }
    void Add(char character) {
        if (!inCell_) return;
        if (character == ' ' || character == '\t' || character == '\r' || character == '\n') {
            blank_ = !text_.empty() && text_.back() != '\n';
            return;
        }
        AddBlank();
        text_ += character;
    }
    void AddBlank() {
        if (blank_) text_ += ' ';
        blank_ = false;
    }
    void ReadEntity() {
        constexpr std::pair<std::string_view, std::string_view> known[] = {
            {"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&nbsp;", " "}};
        std::string_view const rest = page_.substr(at_);
        for (auto const& [name, meaning] : known)
            if (rest.starts_with(name)) {
                at_ += name.size();
                return AddText(meaning);
            }
        constexpr std::size_t longest = 10;
        std::size_t const end = rest.substr(0, longest + 1).find(';');
        if (!rest.starts_with("&#") || end == std::string_view::npos) return Add(page_[at_++]);
        bool const hexadecimal = Lower(rest[2]) == 'x';
        std::string const digits(rest.substr(hexadecimal ? 3 : 2, end - (hexadecimal ? 3 : 2)));
        AddText(Encoded(std::strtoul(digits.c_str(), nullptr, hexadecimal ? 16 : 10)));
        at_ += end + 1;
    }
    void AddText(std::string_view text) {
        if (!inCell_) return;
        AddBlank();
        text_ += text;
    }
    /// UTF-8.
    static std::string Encoded(unsigned long code) {
        auto const tail = [code](unsigned shift) {
            return static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
        };
        if (code < 0x80) return {static_cast<char>(code)};
        if (code < 0x800) return {static_cast<char>(0xC0U | (code >> 6U)), tail(0)};
        if (code < 0x10000) return {static_cast<char>(0xE0U | (code >> 12U)), tail(6), tail(0)};
        if (code < 0x110000) return {static_cast<char>(0xF0U | (code >> 18U)), tail(12), tail(6), tail(0)};
        return "?";
    }

    std::string_view page_;
    std::size_t at_ = 0;
    GridTexts cells_;
    std::string text_;
    std::size_t span_ = 1;
    std::size_t count_ = 0;
    bool inTable_ = false;
    bool inCell_ = false;
    /// A blank is owed before what follows.
    bool blank_ = false;
    bool done_ = false;
};

} // namespace

GridTexts ReadGridHtml(std::string const& page) { return HtmlTable(page).Read(); }

} // namespace GUI
