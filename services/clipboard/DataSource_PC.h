#pragma once

#include "gui/elements/application/ClipboardService.h"

#include <memory>

namespace GUI {

class GatheredData;

/// The component "DataSource", as its interface describes it.
class DataSource_PC : public DataSource {
public:
    DataSource_PC();
    DataSource_PC(DataSource_PC const&) = delete;
    DataSource_PC& operator=(DataSource_PC const&) = delete;
    ~DataSource_PC() override;

    Diagnostics::String GetValueString() override { return "DataSource_PC"; }
    DropEffect DoDragDrop(DropEffect effects) override;
    bool AddFile(Utilities::String const& format, Utilities::SmartPointer<Utilities::File> file) override;
    bool AddBitmap(Utilities::String const& format, Utilities::SmartPointer<Bitmap> bitmap) override;
    bool AddText(Utilities::String const& format, Utilities::String const& text) override;
    void SetClipboard() override;
    bool AddLater(Utilities::String const& format, Maker const& maker) override;
    bool AddElement(GUIElement& element) override;

    /// What the platform's clipboard holds of this module's objects, which run its code.
    static long GetLeftBehind();

private:
    GatheredData& GetData();

    std::unique_ptr<GatheredData> data_;
};

} // namespace GUI
