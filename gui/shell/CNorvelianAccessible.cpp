#include "gui/shell/CNorvelianAccessible.h"

#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/CNorvelianAdvancedControl.h"
#include "gui/shell/EventGuard_PC.h"
#include "gui/shell/NativeControl_PC.h"

#include <QAccessible>
#include <algorithm>

namespace GUI {

namespace {

QAccessibleInterface* InterfaceOf(LightWindow* window) {
    if (!window) return nullptr;
    if (auto* const control = dynamic_cast<CNorvelianAdvancedControl*>(window->GetOwner()))
        return CNorvelianAccessiblePane::Of(*control);
    auto* const native = dynamic_cast<NativeControl*>(window->GetOwner());
    return native && native->GetWidget() ? QAccessible::queryAccessibleInterface(native->GetWidget())
                                         : nullptr;
}

QAccessible::Role ToRole(Accessible::Role role) {
    switch (role) {
    case Accessible::Role::Graphic:
        return QAccessible::Graphic;
    case Accessible::Role::Button:
        return QAccessible::Button;
    case Accessible::Role::CheckBox:
        return QAccessible::CheckBox;
    case Accessible::Role::Tab:
        return QAccessible::PageTab;
    case Accessible::Role::ListItem:
        return QAccessible::ListItem;
    case Accessible::Role::Text:
        return QAccessible::StaticText;
    default:
        return QAccessible::Grouping;
    }
}

QAccessibleInterface* MakeInterface(QString const& /*className*/, QObject* object) {
    auto* const surface = dynamic_cast<CNorvelianSurface*>(object);
    return surface ? new CNorvelianAccessibleSurface(*surface) : nullptr;
}

/// Qt must not call into a module that was unloaded.
class Installed {
public:
    Installed() { QAccessible::installFactory(MakeInterface); }
    ~Installed() { QAccessible::removeFactory(MakeInterface); }
    Installed(Installed const&) = delete;
    Installed& operator=(Installed const&) = delete;
};

/// The deepest interface at a place of the screen, at or below `top`.
QAccessibleInterface* FindAt(CNorvelianSurface& surface, LightWindow const& top, int x, int y) {
    QPoint const place = surface.mapFromGlobal(QPoint(x, y));
    LightWindow* const window = surface.GetTree().FindAt(place.x(), place.y());
    return window && window != &top && window->IsWithin(top) ? InterfaceOf(window) : nullptr;
}

} // namespace

// ------------------------------------------------------------------ children

void AccessibleChildren::Collect() {
    LightWindowTree* const tree = top_.GetTree();
    if (!tree) return windows_.clear();
    if (revision_ == tree->GetRevision()) return;
    revision_ = tree->GetRevision();
    windows_ = tree->GetChildren(top_);
    // A native control is a widget on the surface, whatever pane it is placed in.
    std::erase_if(windows_,
                  [](LightWindow* window) { return window->GetKind() == LightWindow::Kind::Native; });
    if (!natives_) return;
    for (LightWindow* const window : tree->GetShown())
        if (window->GetKind() == LightWindow::Kind::Native) windows_.push_back(window);
}

int AccessibleChildren::GetCount() {
    Collect();
    return static_cast<int>(windows_.size());
}

QAccessibleInterface* AccessibleChildren::Get(int index) {
    Collect();
    bool const isIn = index >= 0 && index < static_cast<int>(windows_.size());
    return isIn ? InterfaceOf(windows_[static_cast<std::size_t>(index)]) : nullptr;
}

int AccessibleChildren::Find(QAccessibleInterface const* child) {
    Collect();
    // Without making the interfaces of all others.
    auto const* const pane = dynamic_cast<CNorvelianAccessiblePane const*>(child);
    LightWindow const* const wanted = pane ? pane->GetWindow() : nullptr;
    auto const found = std::find_if(windows_.begin(), windows_.end(), [child, wanted](LightWindow* window) {
        if (wanted) return window == wanted;
        return window->GetKind() == LightWindow::Kind::Native && InterfaceOf(window) == child;
    });
    return found == windows_.end() ? -1 : static_cast<int>(found - windows_.begin());
}

// ------------------------------------------------------------------ pane

CNorvelianAccessiblePane::CNorvelianAccessiblePane(CNorvelianAdvancedControl& control)
    : control_(control.weak_from_this()), children_(control.GetWindow(), false) {}

QAccessibleInterface* CNorvelianAccessiblePane::Of(CNorvelianAdvancedControl& control) {
    if (control.GetAccessibleId() == 0)
        control.SetAccessibleId(
            QAccessible::registerAccessibleInterface(new CNorvelianAccessiblePane(control)));
    return QAccessible::accessibleInterface(control.GetAccessibleId());
}

Accessible CNorvelianAccessiblePane::Ask() const {
    Control const control = control_.lock();
    return control ? control->GetAccessible() : Accessible();
}

bool CNorvelianAccessiblePane::isValid() const {
    Control const control = control_.lock();
    return control && control->IsAttached();
}

LightWindow const* CNorvelianAccessiblePane::GetWindow() const {
    Control const control = control_.lock();
    return control ? &control->GetWindow() : nullptr;
}

QWindow* CNorvelianAccessiblePane::window() const {
    Control const control = control_.lock();
    return control && control->GetSurface() ? control->GetSurface()->window()->windowHandle() : nullptr;
}

QAccessibleInterface* CNorvelianAccessiblePane::parent() const {
    Control const control = control_.lock();
    if (!control || !control->GetSurface()) return nullptr;
    LightWindow* const parent = control->GetWindow().GetParent();
    if (parent && parent->GetOwner()) return InterfaceOf(parent);
    return QAccessible::queryAccessibleInterface(control->GetSurface());
}

QAccessibleInterface* CNorvelianAccessiblePane::child(int index) const {
    return isValid() ? children_.Get(index) : nullptr;
}

int CNorvelianAccessiblePane::childCount() const { return isValid() ? children_.GetCount() : 0; }

int CNorvelianAccessiblePane::indexOfChild(QAccessibleInterface const* child) const {
    return isValid() ? children_.Find(child) : -1;
}

QAccessibleInterface* CNorvelianAccessiblePane::childAt(int x, int y) const {
    Control const control = control_.lock();
    return control && control->GetSurface() ? FindAt(*control->GetSurface(), control->GetWindow(), x, y)
                                            : nullptr;
}

QRect CNorvelianAccessiblePane::rect() const {
    Control const control = control_.lock();
    if (!control || !control->GetSurface()) return {};
    PixelBox const& box = control->GetWindow().GetBox();
    QPoint const corner = control->GetSurface()->mapToGlobal(QPoint(box.left, box.top));
    return {corner, QSize(box.GetWidth(), box.GetHeight())};
}

QAccessible::Role CNorvelianAccessiblePane::role() const { return ToRole(Ask().role); }

QAccessible::State CNorvelianAccessiblePane::state() const {
    QAccessible::State state;
    Control const control = control_.lock();
    if (!control || !control->IsAttached() || !control->GetSurface()) {
        state.invalid = true;
        return state;
    }
    Accessible const told = Ask();
    state.invisible = control->GetWindow().GetVisibleBox().IsEmpty();
    state.focusable = control->GetWindow().IsTabStop();
    state.focused = control->GetSurface() && control->GetSurface()->HasFocus(*control);
    state.disabled = !told.isEnabled;
    state.checkable = told.role == Accessible::Role::CheckBox;
    state.checked = told.isChecked;
    state.pressed = told.isPressed;
    state.selectable = told.role == Accessible::Role::ListItem || told.role == Accessible::Role::Tab;
    state.selected = told.isSelected;
    return state;
}

QString CNorvelianAccessiblePane::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Name) return ToPlatformText(Ask().name);
    if (kind == QAccessible::Description || kind == QAccessible::Value)
        return ToPlatformText(Ask().description);
    return {};
}

void* CNorvelianAccessiblePane::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList CNorvelianAccessiblePane::actionNames() const {
    QStringList names;
    Control const control = control_.lock();
    if (!control) return names;
    if (Ask().isPressable) names << pressAction();
    if (control->GetWindow().IsTabStop()) names << setFocusAction();
    return names;
}

void CNorvelianAccessiblePane::doAction(QString const& action) {
    // The click may take the pane away, and this interface with it.
    Control const control = control_.lock();
    if (!control || !control->GetSurface()) return;
    bool const isPress = action == pressAction() && Ask().isPressable;
    RunEvent([&] {
        if (action == setFocusAction()) control->SetFocus();
        if (isPress) control->OnClickKey(false);
    });
}

// ------------------------------------------------------------------ surface

CNorvelianAccessibleSurface::CNorvelianAccessibleSurface(CNorvelianSurface& surface)
    : QAccessibleWidget(&surface, QAccessible::Grouping), children_(surface.GetTree().GetRoot(), true) {}

void CNorvelianAccessibleSurface::Install() { static Installed const installed; }

CNorvelianSurface& CNorvelianAccessibleSurface::GetSurface() const {
    return static_cast<CNorvelianSurface&>(*widget());
}

QAccessibleInterface* CNorvelianAccessibleSurface::child(int index) const { return children_.Get(index); }

int CNorvelianAccessibleSurface::childCount() const { return children_.GetCount(); }

int CNorvelianAccessibleSurface::indexOfChild(QAccessibleInterface const* child) const {
    return children_.Find(child);
}

QAccessibleInterface* CNorvelianAccessibleSurface::childAt(int x, int y) const {
    return FindAt(GetSurface(), GetSurface().GetTree().GetRoot(), x, y);
}

QAccessibleInterface* CNorvelianAccessibleSurface::focusChild() const {
    if (auto const control = GetSurface().GetFocusControl()) return CNorvelianAccessiblePane::Of(*control);
    return QAccessibleWidget::focusChild();
}

QAccessible::State CNorvelianAccessibleSurface::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    // One object has the focus, not the pane and what it is on.
    if (GetSurface().GetFocusControl()) state.focused = false;
    return state;
}

} // namespace GUI
