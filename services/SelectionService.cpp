#include "services/SelectionService.h"

#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/SupportsPropertyInspector.h"
#include "gui/elements/Topics.h"

#include <algorithm>

namespace GUI {

using Utilities::Callback;
using Utilities::String;

namespace {

Utilities::ComponentCreatorSingleton<SelectionService> creator({"SelectionService", "$Revision: 1.12.2.1 $",
                                                                "GUI"});

} // namespace

void SelectionService::SetSelection(String const& topic, SelectableObject* object) {
    selected_[topic] = object;
    auto const advised = advised_.find(topic.GetStdString());
    if (advised == advised_.end() || advised->second.empty()) return;
    Notify(topic);
    if (auto const found = advised_.find(topic.GetStdString()); found != advised_.end())
        RemovePending(found->second);
}

SelectableObject* SelectionService::GetSelection(String const& topic) {
    auto const found = selected_.Find(topic);
    return found.IsValid() ? found.GetValue() : nullptr;
}

String SelectionService::Advise(String const& topic, Callback const& callback) {
    String cookie(nextCookie_++);
    advised_[topic.GetStdString()][cookie.GetStdString()] = callback;
    return cookie;
}

void SelectionService::Unadvise(String const& cookie) {
    for (auto& [topic, subscribers] : advised_) {
        auto const found = subscribers.find(cookie.GetStdString());
        if (found == subscribers.end()) continue;
        if (!notifying_)
            subscribers.erase(found);
        else if (!IsPending(found->first))
            pending_.push_back(found->first);
        return;
    }
    throw Norvelian::Utilities::Exceptions::OutOfRangeException(
        "SelectionService::Unadvise(): Callback method referenced by cookie not found.");
}

DataAccess* SelectionService::GetDataAccess(String const& topic) {
    auto* const inspected = dynamic_cast<SupportsPropertyInspector*>(GetSelection(topic));
    return inspected ? inspected->GetPropertyInspectorHandler() : nullptr;
}

Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample>
SelectionService::GetSelectedSample(String const& topic) {
    auto* const access = dynamic_cast<CXFAccess*>(GetDataAccess(topic));
    auto* const inspected = dynamic_cast<SupportsPropertyInspector*>(GetSelection(Topics::propertyInspector));
    if (!access || !inspected) return {};
    return access->GetSample(inspected->GetPropertyInspectorData());
}

void SelectionService::Clear() { advised_.clear(); }

void SelectionService::Notify(String const& topic) {
    notifying_ = true;
    // Callbacks add and remove subscribers, so each step looks for the next cookie afresh.
    std::string last;
    for (;;) {
        auto const subscribers = advised_.find(topic.GetStdString());
        if (subscribers == advised_.end()) break;
        auto const next = subscribers->second.upper_bound(last);
        if (next == subscribers->second.end()) break;
        last = next->first;
        if (IsPending(last)) continue;
        // The callback may be gone from the table before it returns.
        Callback const running = next->second;
        running.Execute(topic);
    }
    notifying_ = false;
}

bool SelectionService::PrepareForUnload() {
    Clear();
    return true;
}

bool SelectionService::IsPending(std::string const& cookie) const {
    return std::find(pending_.begin(), pending_.end(), cookie) != pending_.end();
}

void SelectionService::RemovePending(Subscribers& subscribers) {
    std::erase_if(pending_, [&](std::string const& cookie) { return subscribers.erase(cookie) != 0; });
}

} // namespace GUI
