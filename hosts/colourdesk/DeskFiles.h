#pragma once

#include "gui/elements/DialogHandler.h"
#include "gui/elements/application/FileDialog.h"

#include <functional>

namespace ColourDesk {

/// Colour Desk's dialogs for files, and what is chosen in them.
class DeskFiles : public GUI::DialogHandler {
public:
    using Handler = std::function<void(Utilities::String const& file)>;

    ~DeskFiles() override { Close(); }

    Diagnostics::String GetValueString() override { return "DeskFiles"; }
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& key) override;
    Utilities::Callback GetCallback(Utilities::String const& element,
                                    Utilities::String const& event) override;

    /// Both return at once; the handler is called when a file was chosen.
    void Open(GUI::PlatformIndependentWindowID const& parent, Handler handler);
    void SaveAs(GUI::PlatformIndependentWindowID const& parent, std::string const& proposed, Handler handler);
    void Close() { dialog_ = nullptr; }

private:
    void Show(GUI::PlatformIndependentWindowID const& parent, bool saves, Handler handler);
    long OnFileChosen(Utilities::Anything const& file);

    Utilities::SmartPointer<GUI::FileDialog> dialog_;
    std::string proposed_;
    Handler handler_;
};

} // namespace ColourDesk
