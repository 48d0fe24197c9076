#pragma once

#include "Utilities/NamingService.h"
#include "gui/elements/GUIElement.h"

#include <algorithm>
#include <string>
#include <vector>

namespace TestSupport {

/// All components that are elements, the tests' own left out.
inline std::vector<std::string> ElementNames() {
    std::vector<std::string> names;
    for (auto* const creator : Utilities::NamingService::Instance()->GetCreators()) {
        Utilities::SmartPointer<Utilities::Component> component;
        try {
            creator->Create(component);
        } catch (...) {
            continue;
        }
        std::string const name = creator->GetDescriptor().at("name").GetString();
        if (dynamic_cast<GUI::GUIElement*>(component.Get()) && name != "Leaf") names.push_back(name);
    }
    // A component may be registered twice.
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

} // namespace TestSupport
