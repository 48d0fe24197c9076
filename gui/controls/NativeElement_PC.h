#pragma once

#include "gui/controls/ControlAttributes.h"
#include "gui/controls/ControlTexts_PC.h"
#include "gui/elements/Topics.h"
#include "gui/shell/NativeControl_PC.h"

namespace GUI {

/// What all elements with one native control have in common: `Base` is the platform-free class, `Widget` the
/// control's. Place, size, tool tip and accessible name are seen to here.
template <class Base, class Widget> class NativeElement : public Base {
public:
    void SetPosition(unsigned long x, unsigned long y) override {
        if (Base::IfPositionEqual(x, y)) return;
        Base::SetPosition(x, y);
        control_.SetPosition(x, y);
    }
    void SetSize(unsigned long width, unsigned long height) override {
        if (Base::IfSizeEqual(width, height)) return;
        Base::SetSize(width, height);
        control_.SetSize(width, height);
    }
    void Enable(bool enabled) override { control_.Enable(enabled); }
    void OnLanguageChanged() override {
        Base::OnLanguageChanged();
        texts_.Show(control_);
    }

protected:
    void OnDetach() override {
        control_.Release();
        Base::OnDetach();
    }
    /// Null once the element is released.
    Widget* GetControl() const { return static_cast<Widget*>(control_.GetWidget()); }
    /// Reads "ToolTipText" and "AccessibleName"; to be called once the widget is made.
    void ReadTexts(AttributeReader const& reader) {
        texts_.Read(reader);
        texts_.Show(control_);
    }
    /// The element's own tool tip and accessible name.
    void ShowTexts() { texts_.Show(control_); }
    /// Asks for "ToolTipText", "AccessibleName" and "Visible", and for "Enabled" or what the element calls
    /// it.
    void UpdateControl(char const* enabledKey = Values::enabled) {
        using Utilities::Anything;
        if (Anything const value = Base::GetValue(enabledKey); value.IsValid())
            control_.Enable(value.GetBool());
        if (Anything const value = Base::GetValue(Values::toolTipText); value.IsOfTypeString())
            texts_.SetToolTip(control_, value.GetString());
        if (Anything const value = Base::GetValue(Values::accessibleName); value.IsOfTypeString())
            texts_.SetName(control_, value.GetString());
        if (Anything const value = Base::GetValue(Values::visible); value.IsValid())
            control_.Show(value.GetBool());
    }

    NativeControl control_{*this};

private:
    ControlTexts texts_;
};

} // namespace GUI
