#pragma once

#include "gui/elements/CallbackTable.h"
#include "gui/elements/DialogDataSource.h"
#include "hosts/colourdesk/SampleWindow.h"

#include <string>

namespace ColourDesk {

/// The report on a window's samples: what the description "Report" asks for. Its charts are those of the
/// window, without what is selected there.
class SampleReport : public GUI::DialogDataSource {
public:
    explicit SampleReport(SampleWindow& window);

    /// Writes a PDF; false if the file can't be written.
    bool Save(std::string const& fileName);
    /// In the user's folder of documents, or at home without one: "name.pdf", or "name 2.pdf" and so on, so
    /// that no file is replaced. Empty without a home.
    static std::string ProposeFile(std::string const& sampleFile);

    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override;
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;
    void RemoveAllCallbacks(Utilities::String const& element) override { callbacks_.Remove(element); }

private:
    Utilities::Anything GetFacts() const;
    Utilities::Anything GetRow(std::size_t sample) const;

    SampleWindow& window_;
    /// What all samples hold under; empty if that differs.
    std::string condition_;
    GUI::CallbackTable callbacks_;
};

} // namespace ColourDesk
