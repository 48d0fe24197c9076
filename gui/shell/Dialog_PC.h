#pragma once

#include "gui/elements/DecoratedWindow.h"
#include "gui/elements/OwnedCallback.h"
#include "gui/elements/application/Dialog.h"
#include "gui/shell/CNorvelianDialog.h"
#include "gui/shell/TopLevel_PC.h"

namespace GUI {

/// A dialog: the root of a description.
///
/// Attributes: "ElementName" (mandatory), "Caption" ("No caption in the Dialog description"), "X" (20) and
/// "Y" (0) from the inside of the parent window, "Width" and "Height" of the inside (mandatory),
/// "Resizeable" (No), "Closeable" (Yes), "TitleBar" (Yes), "EscKeyElementName" (none), "BackgroundColor",
/// "BackgroundBitmap" (none; name of an image of the image service, drawn under the elements at its own size
/// from the top left corner), "EnterKeyElementName" (none), "ConfirmDiscard" (No) and "KeepPlace" (No: it
/// opens at "X" and "Y"; else where it was when it was open last, kept by its element name as windows keep
/// theirs).
///
/// Esc and Enter run the callback "OnClick" of the elements that "EscKeyElementName" and
/// "EnterKeyElementName" name; Enter comes after the control that has the focus, and without that attribute
/// it clicks the button with "Default". With "ConfirmDiscard" Esc and closing by the window ask the user
/// first if something would be lost. Whether it would is the data source's "HasChanges" (bool) for the
/// dialog; without an answer it is so when the user has typed into a field whose text wasn't set since.
///
/// Another description, for a dialog that has its window, changes "Caption", "Resizeable", the keys'
/// elements, "ConfirmDiscard" and the background, and replaces the elements.
///
/// The position is the window's outer corner on the screen, whose coordinates may be negative and then
/// come as large numbers. The first child is the root element that a `DialogObserver` is given.
///
/// Closing it by its window runs the data source's callback "OnClose" of the dialog's name; the dialog
/// enters one that closes it.
class Dialog_PC : public Dialog, public DecoratedWindow {
public:
    ~Dialog_PC() override;

    Diagnostics::String GetValueString() override { return "Dialog_PC"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override {
        Initialize(parent, description, dataSource, false);
    }
    /// Throws `RuntimeException` "Dialog: Couldn't init Dialog".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource, bool modeless) override;
    long RunModal() override;
    void Close(long result) override;
    bool HasWindow() const override;
    void OnInitDialog() override;
    void SetGUIDescriptionTree(DescriptionTree const& description) override;
    long OnClose(Utilities::Anything const& argument) override;

    void SetPosition(unsigned long x, unsigned long y) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;
    void RecalculateSize() override;
    void OnLanguageChanged() override;
    void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override;
    void RepaintDecorations() const override { top_.RepaintAll(); }
    bool IsCloseable() const { return closeable_; }
    /// Switches resizing by the user on and off.
    void SetResizeable(bool resizeable);

    /// @name What the platform window tells
    /// @{
    void OnEscape();
    /// False without an element for the key.
    bool OnEnter();
    void OnMoved(int x, int y);
    void OnResized();
    void OnCloseRequest();
    /// @}
    /// For those that add bars.
    TopLevel& GetTopLevel() { return top_; }

protected:
    void OnDetach() override;

private:
    bool KeepsPlace() const;
    /// What another description may change.
    void ReadAttributes();
    void ShowCaption();
    void CreateContents();
    void ReleaseContents();
    void ForgetRootElement();
    void LayOutContents();
    /// False if the user wants to keep what he has entered, or has let the dialog go.
    bool MayDiscard();
    bool HasChanges();
    CNorvelianDialog* GetDialog() const { return static_cast<CNorvelianDialog*>(top_.GetWindow()); }

    TopLevel top_{*this};
    DescriptionTree description_;
    Utilities::String escKeyElementName_;
    Utilities::String enterKeyElementName_;
    bool confirmDiscard_ = false;
    long x_ = 20;
    long y_ = 0;
    unsigned long width_ = 10;
    unsigned long height_ = 10;
    bool modeless_ = false;
    bool closeable_ = true;
    bool fixedSize_ = true;
    OwnedCallback<Dialog_PC> onClose_{this, &Dialog_PC::OnClose};
};

} // namespace GUI
