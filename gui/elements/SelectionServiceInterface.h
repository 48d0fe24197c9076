#pragma once

#include "core/base/String.h"
#include "core/component/Component.h"
#include "core/values/Callback.h"
#include "gui/elements/DataAccess.h"
#include "gui/elements/SelectableObject.h"

namespace GUI {

/// Tells who holds the selection: what everybody uses of the component "SelectionService". GUI thread only.
///
/// A selection is kept for each topic, a free text such as "PropertyInspector". Who is selected
/// publishes itself under the topic, whoever advised the topic is called back, and anybody may ask. The
/// selected objects aren't owned and the service isn't told when one is destroyed: it clears its selection
/// first. Subscribers end their subscription before they are destroyed.
class SelectionServiceInterface : public Utilities::Component {
public:
    /// Null is a legal object. Subscribers see the new selection when they are called, each with the
    /// topic's text, in the order of their cookies as text ("10" comes before "2"). An exception of one
    /// passes: the others aren't called, and the service believes itself notifying until the next
    /// notification ends.
    virtual void SetSelection(Utilities::String const& topic, SelectableObject* object) = 0;
    /// Null for a topic that never had one.
    virtual SelectableObject* GetSelection(Utilities::String const& topic) = 0;

    /// Returns the cookie of the subscription: decimal numbers from "0" on, over all topics.
    virtual Utilities::String Advise(Utilities::String const& topic, Utilities::Callback const& callback) = 0;
    /// During a notification the subscription only counts as ended: it is skipped from then on, and
    /// removed when the next `SetSelection` of its own topic is done. Throws `OutOfRangeException` for a
    /// cookie that no topic holds.
    virtual void Unadvise(Utilities::String const& cookie) = 0;

    /// What the selected object of the topic gives as its handler; null if there is none.
    virtual DataAccess* GetDataAccess(Utilities::String const& topic) = 0;
    /// The sample of the object selected under "PropertyInspector", from the topic's data access; null
    /// if either is missing.
    virtual Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample>
    GetSelectedSample(Utilities::String const& topic) = 0;

    /// Removes all subscribers and keeps the selections.
    virtual void Clear() = 0;
    /// Calls the subscribers as `SetSelection` does, without a change.
    virtual void Notify(Utilities::String const& topic) = 0;
};

} // namespace GUI
