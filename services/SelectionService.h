#pragma once

#include "core/values/Callback.h"
#include "gui/elements/DataAccess.h"
#include "gui/elements/SelectionServiceInterface.h"

#include <map>
#include <string>
#include <vector>

namespace GUI {

/// Tells who holds the selection: the component "SelectionService". GUI thread only.
///
/// A selection is kept for each topic, a free text such as "PropertyInspector". Who is selected
/// publishes itself under the topic, whoever advised the topic is called back, and anybody may ask. The
/// selected objects aren't owned and the service isn't told when one dies: it clears its selection
/// first. Subscribers end their subscription before they die.
class SelectionService : public SelectionServiceInterface {
public:
    /// Null is a legal object. Subscribers see the new selection when they are called, each with the
    /// topic's text, in the order of their cookies as text ("10" comes before "2"). An exception of one
    /// passes: the others aren't called, and the service believes itself notifying until the next
    /// notification ends.
    void SetSelection(Utilities::String const& topic, SelectableObject* object) override;
    /// Null for a topic that never had one.
    SelectableObject* GetSelection(Utilities::String const& topic) override;

    /// Returns the cookie of the subscription: decimal numbers from "0" on, over all topics.
    virtual Utilities::String Advise(Utilities::String const& topic, Utilities::Callback const& callback);
    /// During a notification the subscription only counts as ended: it is skipped from then on, and
    /// removed when the next `SetSelection` of its own topic is done. Throws `OutOfRangeException` for a
    /// cookie that no topic holds.
    virtual void Unadvise(Utilities::String const& cookie);

    /// What the selected object of the topic gives as its handler; null if there is none.
    virtual DataAccess* GetDataAccess(Utilities::String const& topic);
    /// The sample of the object selected under "PropertyInspector", from the topic's data access; null
    /// if either is missing.
    virtual Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample>
    GetSelectedSample(Utilities::String const& topic);

    /// Removes all subscribers and keeps the selections.
    virtual void Clear();
    /// Calls the subscribers as `SetSelection` does, without a change.
    virtual void Notify(Utilities::String const& topic);

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
