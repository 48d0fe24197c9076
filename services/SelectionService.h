#pragma once

#include "gui/elements/SelectionServiceInterface.h"

#include <map>
#include <string>
#include <vector>

namespace GUI {

/// The component "SelectionService", as its interface describes it.
class SelectionService : public SelectionServiceInterface {
public:
    void SetSelection(Utilities::String const& topic, SelectableObject* object) override;
    SelectableObject* GetSelection(Utilities::String const& topic) override;
    Utilities::String Advise(Utilities::String const& topic, Utilities::Callback const& callback) override;
    void Unadvise(Utilities::String const& cookie) override;
    DataAccess* GetDataAccess(Utilities::String const& topic) override;
    Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample>
    GetSelectedSample(Utilities::String const& topic) override;
    void Clear() override;
    void Notify(Utilities::String const& topic) override;

    bool PrepareForUnload() override;
    virtual Diagnostics::String GetValueString() { return "SelectionService"; }

private:
    /// Ordered, since the order of the cookies is the order of notification.
    using Subscribers = std::map<std::string, Utilities::Callback>;

    bool IsPending(std::string const& cookie) const;
    void RemovePending(Subscribers& subscribers);

    std::map<std::string, Subscribers> advised_;
    Utilities::Map<Utilities::String, SelectableObject*> selected_;
    unsigned long nextCookie_ = 0;
    std::vector<std::string> pending_;
    bool notifying_ = false;
};

} // namespace GUI
