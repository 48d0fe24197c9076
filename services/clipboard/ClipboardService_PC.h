#pragma once

#include "gui/elements/application/ClipboardService.h"

namespace GUI {

/// The component "ClipboardService", as its interface describes it.
class ClipboardService_PC : public ClipboardService {
public:
    Diagnostics::String GetValueString() override { return "ClipboardService_PC"; }
    bool IsFormatAvailable(Utilities::String const& format) override;
    Utilities::String GetText(Utilities::String const& format) override;
    Utilities::SmartPointer<Bitmap> GetBitmap() override;
    Utilities::SmartPointer<Bitmap> ReadBitmap() override;
};

} // namespace GUI
