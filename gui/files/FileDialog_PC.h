#pragma once

#include "gui/elements/application/FileDialog.h"
#include "gui/elements/description/Attributes.h"
#include "gui/files/CNorvelianFileDialog.h"

#include <QObject>
#include <QPointer>

namespace GUI {

/// Shows the dialog in a `CNorvelianFileDialog`, over the window that it was initialised with.
class FileDialog_PC : public FileDialog {
public:
    static constexpr Attribute modeAttribute{"Mode", AttributeType::Text, "Open",
                                             "What is chosen: Open, Save or Directory"};
    static constexpr Attribute captionAttribute{"Caption", AttributeType::Text, "",
                                                "Title; a key of the language service; empty: the mode's"};
    static constexpr Attribute filtersAttribute{
        "Filters", AttributeType::Text, "",
        "Kinds of files with ';' between, each a name, '|' and patterns with blanks between; names are keys"};
    static constexpr Attribute severalAttribute{"Several", AttributeType::Flag, "No",
                                                "Whether several files can be opened"};
    static constexpr Attribute suffixAttribute{"Suffix", AttributeType::Text, "",
                                               "What a name without a suffix is saved with"};
    static constexpr Attribute platformAttribute{"Platform", AttributeType::Flag, "No",
                                                 "Whether the desktop's own dialog is shown"};
    static constexpr Attribute previewAttribute{"Preview", AttributeType::Flag, "No",
                                                "Whether the first samples of a file are shown beside it"};
    static constexpr Attribute directoryAttribute{"Directory", AttributeType::Text, "",
                                                  "Where it begins the first time"};
    static constexpr Attribute settingsAttribute{"Settings", AttributeType::Text, "",
                                                 "Key of the preferences that keeps the last directory; "
                                                 "empty: the element's name; None: it isn't kept"};
    static constexpr Attribute attributes[] = {modeAttribute,    captionAttribute,   filtersAttribute,
                                               severalAttribute, suffixAttribute,    platformAttribute,
                                               previewAttribute, directoryAttribute, settingsAttribute};

    Diagnostics::String GetValueString() override { return "FileDialog_PC"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void Open() override;
    bool IsOpen() const override;
    void Cancel() override;

    /// Null while it isn't open.
    CNorvelianFileDialog* GetDialog() const { return dialog_; }

protected:
    void OnDetach() override;

private:
    void SetUp();
    Utilities::String GetSettingsKey();
    void OnFinished(bool accepted);
    void KeepDirectory(Utilities::String const& directory);

    DescriptionTree description_;
    QPointer<QWidget> parent_;
    QPointer<CNorvelianFileDialog> dialog_;
    QObject receiver_;
};

} // namespace GUI
