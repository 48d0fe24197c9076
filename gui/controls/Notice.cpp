#include "gui/controls/Notice.h"

#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/elements/drawing/VerdictSign.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

using Context = PlatformIndependentDeviceContext;

ElementRegistration<Notice, Pane> const registration({"Notice", "$Revision: 1.1 $", "GUI"},
                                                     Notice::attributes);

constexpr char const* face = "Noto Sans";
constexpr short padding = 16;
constexpr short emptyTitle = 16;
constexpr short titleSize = 14;
constexpr short textSize = 12;
constexpr short lineHeight = 18;
constexpr short iconSize = 24;
constexpr short signSize = 18;
constexpr short crossSize = 10;
constexpr short barHeight = 8;

long WidthOf(Context& context, String const& text, short size, bool bold) {
    long width = 0;
    long height = 0;
    context.SetFont(static_cast<short>(-size), 0, 0, face, bold ? Context::boldFont : short{0});
    context.GetTextExtent(text, width, height);
    return width;
}

void Write(Context& context, String const& text, short size, bool bold, ThemeRole role, long x, long y) {
    context.SetFont(static_cast<short>(-size), 0, 0, face, bold ? Context::boldFont : short{0});
    context.SetTextColor(Themed(role));
    context.DrawText(static_cast<short>(x), static_cast<short>(y), text);
}

std::vector<String> Lines(String const& text) {
    std::vector<String> lines;
    std::string_view rest = text.GetStdString();
    while (!rest.empty()) {
        auto const end = std::min(rest.find('\n'), rest.size());
        lines.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return lines;
}

} // namespace

void Notice::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                        DialogDataSource* dataSource) {
    CallScope const call(*this);
    Pane::Initialize(parent, description, dataSource);
    icon_ = AttributeReader(description).Text(icon);
    RegisterOnUpdate();
    Read();
}

void Notice::Read() {
    CallScope const call(*this);
    Anything const kind = GetValue("Notice");
    kind_ = Kind::None;
    if (kind.IsOfTypeString()) {
        String const& name = kind.GetString();
        kind_ = name == "Empty"   ? Kind::Empty
                : name == "Error" ? Kind::Error
                : name == "Busy"  ? Kind::Busy
                                  : Kind::None;
    }
    for (auto const& [key, text] :
         {std::pair("Title", &title_), std::pair("Text", &text_), std::pair("Hint", &hint_)}) {
        if (!IsAttached()) return;
        Anything const value = GetValue(key);
        *text = value.IsOfTypeString() ? value.GetString() : String();
    }
    if (!IsAttached()) return;
    Anything const progress = GetValue("Progress");
    progress_ = progress.IsValid() && !progress.IsOfTypeString() ? progress.GetDouble() : -1;
}

long Notice::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    Read();
    if (!IsAttached()) return 0;
    TellAccessibleChange();
    return Pane::OnUpdate(command);
}

void Notice::PaintGround(Context& context, short width, short height) const {
    context.SetBrush(Themed(ThemeRole::Panel));
    bool const isError = kind_ == Kind::Error;
    context.SetPen(Themed(isError ? ThemeRole::Fail : ThemeRole::Line), isError ? 2 : 1, Context::solid);
    context.FillRectangle(0, 0, width, height);
}

void Notice::PaintEmpty(Context& context, short width, short height) const {
    bool const hasIcon = icon_.Length() != 0;
    auto const lines = Lines(text_);
    long const needed = (hasIcon ? iconSize + padding : 0) + emptyTitle + padding / 2 +
                        static_cast<long>(lines.size()) * lineHeight;
    long y = std::max<long>(padding, (height - needed) / 2);
    if (hasIcon) {
        context.SetTextColor(Themed(ThemeRole::Ink2));
        context.DrawImage(static_cast<short>((width - iconSize) / 2), static_cast<short>(y), icon_);
        y += iconSize + padding / 2;
    }
    Write(context, title_, emptyTitle, true, ThemeRole::Ink,
          (width - WidthOf(context, title_, emptyTitle, true)) / 2, y);
    y += emptyTitle + padding / 2;
    for (String const& line : lines) {
        Write(context, line, titleSize, false, ThemeRole::Ink2,
              (width - WidthOf(context, line, titleSize, false)) / 2, y);
        y += lineHeight;
    }
}

void Notice::PaintError(Context& context, short width) const {
    DrawVerdictSign(context, VerdictKind::Fail, VerdictTones::Of(VerdictKind::Fail), padding, padding,
                    signSize);
    long const left = padding + signSize + padding / 2;
    Write(context, title_, titleSize, true, ThemeRole::Ink, left, padding - 2);
    long y = padding + lineHeight + 4;
    for (String const& line : Lines(text_)) {
        Write(context, line, textSize, false, ThemeRole::Ink, left, y);
        y += lineHeight;
    }
    auto const right = static_cast<short>(width - padding);
    auto const near = static_cast<short>(right - crossSize);
    constexpr short bottom = padding + crossSize;
    context.SetSmooth(true);
    context.SetPen(Themed(ThemeRole::Ink), 2, Context::solid);
    context.DrawLine(near, padding, right, bottom);
    context.DrawLine(near, bottom, right, padding);
    context.SetSmooth(false);
}

void Notice::PaintBusy(Context& context, short width, short height) const {
    Write(context, title_, titleSize, false, ThemeRole::Ink, padding, padding / 2);
    Write(context, hint_, textSize, false, ThemeRole::Ink2,
          width - padding - WidthOf(context, hint_, textSize, false), padding / 2);
    auto const top = static_cast<short>(height - padding - barHeight);
    auto const right = static_cast<short>(width - padding);
    auto const bottom = static_cast<short>(top + barHeight);
    context.SetBrush(Themed(ThemeRole::Header));
    context.SetPen(Themed(ThemeRole::Border), 1, Context::solid);
    context.FillRectangle(padding, top, right, bottom);
    // Work whose end isn't known shows no bar rather than an invented one.
    if (!(progress_ >= 0 && progress_ <= 1)) return;
    context.SetBrush(Themed(ThemeRole::Accent));
    context.SetPen(Themed(ThemeRole::Accent), 1, Context::solid);
    context.FillRectangle(padding, top,
                          static_cast<short>(padding + std::lround((right - padding) * progress_)), bottom);
}

void Notice::OnPaint(Context& context) {
    if (kind_ == Kind::None) return Pane::OnPaint(context);
    unsigned long paneWidth = 0;
    unsigned long paneHeight = 0;
    GetSize(paneWidth, paneHeight);
    auto const width = static_cast<short>(paneWidth);
    auto const height = static_cast<short>(paneHeight);
    PaintGround(context, width, height);
    if (kind_ == Kind::Empty) return PaintEmpty(context, width, height);
    if (kind_ == Kind::Error) return PaintError(context, width);
    PaintBusy(context, width, height);
}

bool Notice::OnLeftButtonDown(KeyState keyState, long x, long y) {
    CallScope const call(*this);
    Pane::OnLeftButtonDown(keyState, x, y);
    if (kind_ != Kind::Error || !IsAttached()) return false;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    // By key the click comes in the middle.
    bool const byKey = x == static_cast<long>(width / 2) && y == static_cast<long>(height / 2);
    constexpr long target = crossSize + 2 * padding;
    bool const onCross = x >= static_cast<long>(width) - target && y < target;
    if (!byKey && !onCross) return false;
    Fire(Events::close, GetElementName());
    return true;
}

Accessible Notice::GetAccessible() {
    Accessible told = Pane::GetAccessible();
    told.role = Accessible::Role::Text;
    told.name = title_;
    told.description = text_;
    return told;
}

} // namespace GUI
