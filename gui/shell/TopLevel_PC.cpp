#include "gui/shell/TopLevel_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "gui/elements/LayoutScope.h"
#include "gui/elements/application/Application.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/EventGuard_PC.h"
#include "gui/shell/Menu_PC.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <algorithm>

namespace GUI {

using Utilities::String;

namespace {

QWidget* WidgetOf(GUIElement& element) {
    auto const identity = element.GetWindowID();
    return identity.IsNull() ? nullptr : PlatformIndependentWindowID_PC::WindowOf(*identity);
}

/// What a bar wants; one that doesn't say has none.
int HeightOf(QWidget const& bar) { return std::max(bar.sizeHint().height(), 0); }

bool IsVisible(GUIElement& dialog) {
    QWidget const* const widget = WidgetOf(dialog);
    return widget && widget->isVisible();
}

bool FindHelpAtMouse(GUIElement& dialog, String& file, unsigned long& topic) {
    // A dialog that was closed is still there for its host to show again.
    if (!IsVisible(dialog)) return false;
    QPoint const position = CNorvelianSurface::Of(*WidgetOf(dialog)).mapFromGlobal(QCursor::pos());
    // A place left of or above the dialog is a large number, and in none of its elements.
    return dialog.GetHelpInfo(file, topic, static_cast<unsigned long>(position.x()),
                              static_cast<unsigned long>(position.y()));
}

/// All screens together, since a window can be moved from one to the other. Offscreen there is none
/// that a window could exceed.
QSize DesktopSize(QWidget const& window) {
    if (QGuiApplication::platformName() == "offscreen") return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    return window.screen()->virtualSize();
}

} // namespace

Utilities::SmartPointer<PlatformIndependentWindowID> TopLevel::Take(std::unique_ptr<QWidget> window,
                                                                    char const* failure) {
    window_ = window.release();
    surface_ = new CNorvelianSurface(*window_);
    surface_->SetBackdrop(this);
    Utilities::SmartPointer<PlatformIndependentWindowID_PC> const identity(
        Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID"));
    if (identity.IsNull()) throw Norvelian::Utilities::Exceptions::RuntimeException(failure);
    identity->SetWindow(window_);
    window_->setObjectName(ToPlatformText(element_.GetElementName()));
    return Utilities::SmartPointer<PlatformIndependentWindowID>(identity);
}

void TopLevel::Release() {
    LayoutScope::Forget(element_);
    if (surface_) surface_->SetBackdrop(nullptr);
    QPointer<QWidget> const window = std::exchange(window_, nullptr);
    if (!window) return;
    window->hide();
    if (window) DeleteWhenIdle(*window);
}

void TopLevel::SetTitle(String const& key) {
    if (window_)
        window_->setWindowTitle(ToShownText(Utilities::LanguageServiceInterface::GetTranslation(key)));
}

void TopLevel::AddBar(QWidget& bar, Qt::Edge edge) {
    if (!window_) return;
    QSize const client = GetClientSize();
    EnterBar(bar, edge);
    Resize(client);
    element_.RecalculateSize();
}

void TopLevel::EnterBar(QWidget& bar, Qt::Edge edge) {
    bar.setParent(window_);
    if (surface_) surface_->Dress(bar);
    bars_.push_back({&bar, edge});
    bar.show();
}

Menu* TopLevel::FindMenu(GUIElement const& window) {
    for (auto it = window.GetChildrenList().Begin(); it.IsValid(); ++it)
        if (auto* const menu = dynamic_cast<Menu*>(it.Current().Get()); menu && !menu->IsPopup()) return menu;
    return nullptr;
}

Utilities::SmartPointer<GUIElement> TopLevel::FindContent(GUIElement const& window) {
    for (auto it = window.GetChildrenList().Begin(); it.IsValid(); ++it)
        if (!dynamic_cast<Menu*>(it.Current().Get())) return it.Current();
    return {};
}

void TopLevel::SetMenu(Menu_PC& menu) {
    QWidget& bar = menu.MakeBar();
    if (!window_ || menuBar_ == &bar) return;
    if (menuBar_) menuBar_->hide();
    menuBar_ = &bar;
    AddBar(bar, Qt::TopEdge);
}

void TopLevel::ShowDescribedMenu() {
    auto* const menu = dynamic_cast<Menu_PC*>(FindMenu(element_));
    if (!menu || !window_) return;
    CallScope const call(element_);
    menuBar_ = &menu->MakeBar();
    if (!call.IsAttached() || !menuBar_ || !window_) return;
    EnterBar(*menuBar_, Qt::TopEdge);
    Application& application = Application::Instance();
    if (application.GetMainWindow() == &element_ && application.FindImplementation())
        application.FindImplementation()->BuildAccelerators(*menu);
}

int TopLevel::GetBarHeight() const {
    int height = 0;
    for (Bar const& bar : bars_)
        if (bar.widget && !bar.widget->isHidden()) height += HeightOf(*bar.widget);
    return height;
}

void TopLevel::LayOutBars() {
    if (!window_ || !surface_) return;
    QRect area = window_->rect();
    for (Bar const& bar : bars_) {
        if (!bar.widget || bar.widget->isHidden()) continue;
        int const height = HeightOf(*bar.widget);
        if (bar.edge == Qt::TopEdge) {
            bar.widget->setGeometry(area.left(), area.top(), area.width(), height);
            area.setTop(area.top() + height);
        } else {
            bar.widget->setGeometry(area.left(), area.bottom() + 1 - height, area.width(), height);
            area.setBottom(area.bottom() - height);
        }
    }
    surface_->setGeometry(area);
}

QSize TopLevel::GetClientSize() const {
    return window_ ? QSize(window_->width(), window_->height() - GetBarHeight()) : QSize();
}

void TopLevel::Resize(QSize const& client) {
    if (!window_) return;
    QSize const size(client.width(), client.height() + GetBarHeight());
    if (window_->size() != size) window_->resize(size);
}

void TopLevel::SetFixedSize(QSize const& client) {
    if (window_) window_->setFixedSize(client.width(), client.height() + GetBarHeight());
}

void TopLevel::ApplyLimits(SizeRange const& range, bool resizeable) {
    if (!window_) return;
    if (!resizeable) return window_->setFixedSize(window_->size());
    int const bars = GetBarHeight();
    auto const bounded = [](unsigned long pixels) {
        return static_cast<int>(std::min<unsigned long>(pixels, QWIDGETSIZE_MAX));
    };
    QSize const smallest(bounded(range.minimalWidth),
                         bounded(range.minimalHeight + static_cast<unsigned long>(bars)));
    QSize const largest(bounded(range.maximalWidth),
                        bounded(range.maximalHeight + static_cast<unsigned long>(bars)));
    window_->setMinimumSize(smallest);
    window_->setMaximumSize(largest.boundedTo(DesktopSize(*window_)).expandedTo(smallest));
}

void TopLevel::MoveTo(WindowPlace const& place) {
    // Enough of the title must show to take hold of the window.
    QPoint const handle(place.x + 40, place.y + 10);
    auto const screens = QGuiApplication::screens();
    bool const visible = std::any_of(screens.begin(), screens.end(), [handle](QScreen const* screen) {
        return screen->availableGeometry().contains(handle);
    });
    if (visible && window_) window_->move(place.x, place.y);
}

void TopLevel::LayOut() {
    if (!window_) return;
    LayOutBars();
    if (auto const child = FindContent(element_); !child.IsNull()) {
        QSize const size = GetClientSize();
        LayoutScope const layout;
        child->SetPosition(0, 0);
        child->SetSize(static_cast<unsigned long>(size.width()), static_cast<unsigned long>(size.height()));
    }
    if (surface_) surface_->Settle();
}

void TopLevel::PaintBackground(PlatformIndependentDeviceContext& context) {
    if (backgroundBitmap_.Length() != 0) context.DrawImage(0, 0, backgroundBitmap_);
}

void TopLevel::RepaintAll() const {
    if (surface_) surface_->RepaintNow({0, 0, surface_->width(), surface_->height()});
}

void TopLevel::PaintDecorators(PlatformIndependentDeviceContext& context) {
    CallScope const call(element_);
    element_.OnPaintWindowDecorators(context, element_);
}

bool TopLevel::TakeKey(QKeyEvent const& event) {
    if (event.key() == Qt::Key_F1)
        ShowHelp(event.modifiers().testFlag(Qt::ShiftModifier));
    else if (event.key() == Qt::Key_F7 && surface_ && surface_->GetTheme())
        TakeNextSurround();
    else
        return false;
    return true;
}

void TopLevel::ShowHelp(bool shift) {
    Application& application = Application::Instance();
    GUIElement* const first = application.GetFirstDialog();
    GUIElement* const last = application.GetLastDialog();
    String file;
    unsigned long topic = 0;
    bool found = false;
    if (shift)
        found = first && IsVisible(*first) && first->GetHelpInfo(file, topic, 0, 0);
    else
        found =
            (last && FindHelpAtMouse(*last, file, topic)) || (first && FindHelpAtMouse(*first, file, topic));
    if (found && file.Length() != 0) application.ShowHelp(file, topic, 1);
}

bool TopLevel::CloseMainWindow() {
    Application& application = Application::Instance();
    if (!application.MayClose()) return false;
    application.SetMainWindow(nullptr);
    application.Quit(0);
    return true;
}

} // namespace GUI
