#pragma once

#include "core/base/Exceptions.h"
#include "gui/elements/ElementDrops.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/colour/RGBVector.h"
#include "gui/platform/LightWindow.h"
#include "gui/shell/CNorvelianSurface.h"
#include "gui/shell/EventGuard_PC.h"

#include <QFont>
#include <QPalette>
#include <QPointer>
#include <QPushButton>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace GUI {

/// The Qt widget of a control, as a member of the element that shows it. It places the widget among the
/// panes of its window, keeps it guarded (Qt's parent may delete it first), and lets it go when the element
/// is released: hidden at once, deleted when Qt is done with it.
///
/// An element makes the widget in its `Initialize`, passes its `SetPosition` and `SetSize` on, and calls
/// `Release` in its `OnDetach`. The widget's signals are connected by `Connect`, which keeps the element
/// alive while its handler runs and lets no exception into Qt.
class NativeControl : public LightWindowOwner, private QObject {
public:
    explicit NativeControl(GUIElement& element) : element_(element) {}
    ~NativeControl() override { Release(); }
    NativeControl(NativeControl const&) = delete;
    NativeControl& operator=(NativeControl const&) = delete;

    /// Makes a widget of type `T`. Without a parent window throws `RuntimeException` with `failure`.
    template <class T> T& Make(PlatformIndependentWindowID const& parent, char const* failure) {
        Place const place = FindPlace(parent);
        if (!place.surface) throw Norvelian::Utilities::Exceptions::RuntimeException(failure);
        auto* const widget = new T(place.surface);
        Take(*widget, place);
        return *widget;
    }
    template <class Sender, class Source, class... Arguments, class Handler>
    void Connect(Sender& sender, void (Source::*signal)(Arguments...), Handler handler) {
        connect(&sender, signal, this, [this, handler](Arguments... arguments) {
            // A handler may leave out what it doesn't need of the signal.
            if constexpr (std::is_invocable_v<Handler const&, Arguments...>)
                RunGuardedEvent(element_, [&] { return handler(arguments...), true; });
            else
                RunGuardedEvent(element_, [&] { return handler(), true; });
        });
    }
    /// The control has got or lost the keyboard focus. A menu that opens over it doesn't count.
    void ConnectFocus(std::function<void(bool)> handler) { onFocus_ = std::move(handler); }
    /// Null once the element is released or Qt has deleted the widget.
    QWidget* GetWidget() const { return widget_; }
    LightWindow* GetLightWindow() const { return window_.get(); }
    /// The control that a widget belongs to; null for other widgets.
    static NativeControl* Of(QWidget const& widget);

    void SetPosition(unsigned long x, unsigned long y);
    void SetSize(unsigned long width, unsigned long height);
    void Show(bool visible);
    void Enable(bool enabled);
    void SetFocus();
    /// Whether Tab reaches the control; on at first for widgets that take the keyboard.
    void SetTabStop(bool stop);
    bool CanTakeFocus() const;
    void SetFont(QFont const& font);
    void SetBold(bool bold);
    void SetTextColor(RGBVector const& color);
    void SetBackgroundColor(RGBVector const& color);
    /// The window has another theme: the control takes its style and what colours have a role in it.
    void TakeTheme();
    /// Shown as it is, never as markup.
    void SetToolTip(Utilities::String const& text);
    void Release();

    void OnPlaced(PixelBox const& box, PixelBox const& visible) override;

    /// Something is dragged over the control that it has no use for itself, or dropped on it: `place` is in
    /// it.
    DropEffect OnDragOver(DropDataObject const& data, KeyState keyState, QPoint const& place);
    bool OnDrop(DropDataObject const& data, DropEffect effect, QPoint const& place);
    bool HasDropHandler() const;

private:
    struct Place {
        CNorvelianSurface* surface = nullptr;
        LightWindow* outer = nullptr;
    };
    static Place FindPlace(PlatformIndependentWindowID const& parent);
    void Take(QWidget& widget, Place const& place);
    bool eventFilter(QObject* watched, QEvent* event) override;
    void SettleLater();
    /// The palette's roles of one purpose, in a colour that the window's theme may know.
    void SetPaletteColor(std::initializer_list<QPalette::ColorRole> roles, RGBVector const& color);

    GUIElement& element_;
    std::function<void(bool)> onFocus_;
    std::optional<RGBVector> textColor_;
    std::optional<RGBVector> backgroundColor_;
    QPointer<QWidget> widget_;
    QPointer<CNorvelianSurface> surface_;
    std::shared_ptr<LightWindow> window_;
};

} // namespace GUI
