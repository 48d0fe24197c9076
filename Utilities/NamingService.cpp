#include "Utilities/NamingService.h"

#include <algorithm>

namespace Utilities {

NamingService* NamingService::Instance() {
    // Creators of this and other modules unregister while statics are destroyed, so the directory outlives
    // them.
    static auto* const service = std::make_unique<NamingService>().release();
    return service;
}

void NamingService::RegisterComponent(ComponentCreatorBase* creator) {
    byName_[creator->GetDescriptor().at("name").GetString()].push_back(creator);
    inOrder_.push_back(creator);
}

void NamingService::UnRegisterComponent(ComponentCreatorBase* creator) {
    std::erase(inOrder_, creator);
    for (auto entry = byName_.begin(); entry != byName_.end();) {
        std::erase(entry->second, creator);
        entry = entry->second.empty() ? byName_.erase(entry) : std::next(entry);
    }
}

void NamingService::Resolve(std::string const& name, SmartPointer<Component>& result) {
    auto const entry = byName_.find(name);
    if (entry == byName_.end())
        throw Norvelian::Utilities::Exceptions::ResourceNotAvailableException(
            "There is no component named \"" + name + "\"");
    entry->second.front()->Create(result);
}

bool NamingService::IsRegistered(std::string_view name) const { return byName_.contains(name); }

} // namespace Utilities
