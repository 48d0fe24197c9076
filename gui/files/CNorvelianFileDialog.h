#pragma once

#include "gui/files/SamplePreview.h"

#include <QFileDialog>

namespace GUI {

class CNorvelianSamplePreview;

/// The library's own dialog for files, and the front of the desktop's.
class CNorvelianFileDialog : public QFileDialog {
public:
    /// `parent` may be null. The platform's own has neither our theme nor a preview.
    CNorvelianFileDialog(QWidget* parent, bool platform);

    /// To be called once all is set up.
    void TakeTexts(bool saves);
    void AddPreview();
    /// What the preview shows of the file that is selected.
    SamplePreview const* GetPreview() const;

    void done(int result) override;

protected:
    void accept() override;

private:
    void TakeTheme();
    /// Asks before files are replaced; true if none is.
    bool MayReplace();

    CNorvelianSamplePreview* preview_ = nullptr;
    bool mayReplace_ = false;
};

} // namespace GUI
