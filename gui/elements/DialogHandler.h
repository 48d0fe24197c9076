#pragma once

#include "gui/elements/CallbackTable.h"
#include "gui/elements/DialogObserver.h"

namespace GUI {

/// The logic behind a dialog: a host derives from it, answers `GetValue`, and gives or registers
/// callbacks. This base keeps the callbacks that elements register and the handlers by element name;
/// it has no values of its own.
class DialogHandler : public DialogObserver, public DialogDataSource, public Utilities::Component {
public:
    ~DialogHandler() override = default;

    void Invariant() const override {}
    virtual Diagnostics::String GetValueString() { return "DialogHandler"; }
    bool PrepareForUnload() override { return true; }

    void Initialize() override {}
    void DeleteAllCallbacks() override { callbacks_.Clear(); }
    /// The callback's result; 0 if there is none.
    long ExecuteCallback(Utilities::String const& element, Utilities::String const& name,
                         Utilities::Anything const& argument) override;
    long OnHelp(Utilities::Anything const& argument) override;
    void RegisterDropHandler(Utilities::String const& element, DropHandlerBase& handler) override;
    void UnregisterDropHandler(Utilities::String const& element) override;
    DropHandlerBase* GetDropHandler(Utilities::String const& element) override;
    void RegisterCopyPasteHandler(Utilities::String const& element, SupportsCopyPaste& handler) override;
    void UnregisterCopyPasteHandler(Utilities::String const& element) override;
    void SetRootElement(Utilities::SmartPointer<GUIElement>& root) override { rootElement_ = root; }
    Utilities::SmartPointer<GUIElement> GetRootElement() override { return rootElement_; }

    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override;
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;
    void RemoveAllCallbacks(Utilities::String const& element) override;
    SupportsCopyPaste& GetCopyPasteHandler(Utilities::String const& element) override;

    virtual bool OnDrop(PlatformIndependentWindowID const& window, DropDataObject const& data,
                        DropEffect effect, long x, long y);
    virtual DropEffect OnDragOver(PlatformIndependentWindowID const& window, DropDataObject const& data,
                                  KeyState const& keyState, long x, long y);

private:
    CallbackTable callbacks_;
    Utilities::Map<Utilities::String, DropHandlerBase*> dropHandlers_;
    Utilities::Map<Utilities::String, SupportsCopyPaste*> copyPasteHandlers_;
    Utilities::SmartPointer<GUIElement> rootElement_;
};

} // namespace GUI
