#include "gui/shell/Window_PC.h"

#include "gui/elements/LayoutScope.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;

namespace {

constexpr Attribute ownAttributes[] = {WindowKeys::name,
                                       WindowKeys::windowCaption,
                                       WindowKeys::x,
                                       WindowKeys::y,
                                       WindowKeys::width,
                                       WindowKeys::height,
                                       WindowKeys::windowResizeable,
                                       WindowKeys::closeable,
                                       WindowKeys::topMost,
                                       WindowKeys::theme,
                                       WindowKeys::surround};
constexpr auto attributes = CommonAttributes::WithUnusedSizes(
    ownAttributes, "No effect: the size range of a window is that of its first child");
ElementRegistration<Window_PC, GUIElement> const registration({"Window", "$Revision: 1.45 $", "GUI"},
                                                              attributes);

} // namespace

Window_PC::~Window_PC() {
    // For a window that no smart pointer held; one that was released has let go already.
    Window_PC::OnDetach();
    ReleaseChildren();
}

void Window_PC::OnDetach() {
    Application::Instance().RemoveDialogFromList(*this);
    if (GetDataSource() && GetDataSource()->GetDialogRootElement() == this)
        GetDataSource()->SetDialogRootElement(nullptr);
    if (auto* const window = static_cast<CNorvelianWnd*>(top_.GetWindow())) {
        window->hide();
        window->Detach();
    }
    top_.Release();
    GUIElement::OnDetach();
}

void Window_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                           DialogDataSource* dataSource) {
    // A child that asks its data source may bring this window down.
    CallScope const call(*this);
    GUIElement::Initialize(parent, description, dataSource);
    CreatePlatformWindow(parent, description);
    Application::Instance().SetDialogToList(*this);
    if (dataSource) dataSource->SetDialogRootElement(this);
    RegisterOnUpdate();
    CreateChildren(*GetWindowID(), description, dataSource);
    if (IsAttached()) top_.ShowDescribedMenu();
    if (!IsAttached()) return;

    AttributeReader const reader(description);
    ApplyLimits();
    SetSize(reader.Unsigned(WindowKeys::width), reader.Unsigned(WindowKeys::height));
    ApplyPlace(description);
    Anything const visible = GetValue(Values::visible);
    if (top_.GetWindow() && (!visible.IsValid() || visible.GetBool())) top_.GetWindow()->show();
}

void Window_PC::CreatePlatformWindow(PlatformIndependentWindowID const& parent,
                                     DescriptionTree const& description) {
    AttributeReader const reader(description);
    reader.Text(WindowKeys::name);
    resizeable_ = reader.FlagUnlessNo(WindowKeys::windowResizeable);
    closeable_ = reader.FlagUnlessNo(WindowKeys::closeable);
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint;
    if (resizeable_) flags |= Qt::WindowMaximizeButtonHint;
    if (closeable_) flags |= Qt::WindowCloseButtonHint;
    if (reader.Flag(WindowKeys::topMost)) flags |= Qt::WindowStaysOnTopHint;
    SetWindowID(top_.Take(
        std::make_unique<CNorvelianWnd>(*this, PlatformIndependentWindowID_PC::WindowOf(parent), flags),
        "Couldn't create Window"));
    caption_ = reader.Text(WindowKeys::windowCaption);
    top_.SetTitle(caption_);
    top_.ReadTheme(description);
}

void Window_PC::ApplyPlace(DescriptionTree const& description) {
    AttributeReader const reader(description);
    if (auto const saved = FindSavedPlace(GetElementName()))
        top_.MoveTo(*saved);
    else if (reader.Has(WindowKeys::x) && reader.Has(WindowKeys::y))
        top_.GetWindow()->move(static_cast<int>(reader.Long(WindowKeys::x)),
                               static_cast<int>(reader.Long(WindowKeys::y)));
}

void Window_PC::SetPosition(unsigned long x, unsigned long y) {
    // A negative place reaches this operation as a large number.
    long const left = std::max<long>(static_cast<int>(x), 0);
    long const top = std::max<long>(static_cast<int>(y), 0);
    GUIElement::SetPosition(static_cast<unsigned long>(left), static_cast<unsigned long>(top));
    QPoint const corner(static_cast<int>(left), static_cast<int>(top));
    QWidget* const window = top_.GetWindow();
    if (window && window->pos() != corner) window->move(corner);
    SavePlace(GetElementName(), left, top);
}

void Window_PC::OnMoved(int x, int y) {
    GUIElement::SetPosition(static_cast<unsigned long>(std::max(x, 0)),
                            static_cast<unsigned long>(std::max(y, 0)));
    SavePlace(GetElementName(), x, y);
}

void Window_PC::SetSize(unsigned long width, unsigned long height) {
    GUIElement::SetSize(width, height);
    QSize const size(static_cast<int>(width), static_cast<int>(height));
    if (resizeable_)
        top_.Resize(size);
    else
        top_.SetFixedSize(size);
    LayOut();
}

void Window_PC::OnResized() {
    QSize const size = top_.GetClientSize();
    auto const width = static_cast<unsigned long>(size.width());
    auto const height = static_cast<unsigned long>(size.height());
    // A window that appears is told the size that it was laid out for.
    if (!IfSizeEqual(width, height)) SetSize(width, height);
}

void Window_PC::LayOut() {
    // The limits may have kept the window from the size it was given, or changed its size.
    if (QSize const size = top_.GetClientSize(); size.isValid())
        GUIElement::SetSize(static_cast<unsigned long>(size.width()),
                            static_cast<unsigned long>(size.height()));
    top_.LayOut();
}

void Window_PC::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                   unsigned long& minimalHeight, unsigned long& maximalHeight) {
    if (auto const child = TopLevel::FindContent(*this); !child.IsNull())
        child->GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    else
        GUIElement::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
}

void Window_PC::ApplyLimits() {
    SizeRange range;
    GetSizeInformation(range.minimalWidth, range.maximalWidth, range.minimalHeight, range.maximalHeight);
    if (resizeable_) top_.ApplyLimits(range, true);
}

void Window_PC::RecalculateSize() {
    GUIElement::RecalculateSize();
    if (!top_.GetWindow()) return;
    if (LayoutScope::IsRunning()) return LayoutScope::AskAgain(*this);
    ApplyLimits();
    LayOut();
}

long Window_PC::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    Anything const visible = GetValue(Values::visible);
    if (visible.IsValid() && top_.GetWindow()) top_.GetWindow()->setVisible(visible.GetBool());
    ShowCaption();
    top_.UpdateTheme();
    return GUIElement::OnUpdate(command);
}

void Window_PC::ShowCaption() {
    // Asked for each time: what a data source puts together holds translated text.
    Anything const caption = GetValue(Values::caption);
    if (caption.IsOfTypeString()) caption_ = caption.GetString();
    top_.SetTitle(caption_);
}

void Window_PC::OnLanguageChanged() {
    CallScope const call(*this);
    GUIElement::OnLanguageChanged();
    ShowCaption();
}

void Window_PC::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                        GUIElement const& /*element*/) const {
    if (auto const child = TopLevel::FindContent(*this); !child.IsNull())
        child->OnPaintWindowDecorators(context, *this);
}

} // namespace GUI
