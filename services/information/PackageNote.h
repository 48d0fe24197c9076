#pragma once

#include <string>
#include <string_view>

namespace InformationServices {

/// The text under a key of a package's note, a flat object of texts such as
/// {"type":"deb","name":"colourdesk","version":"1.2"}; empty if it isn't there. What follows a fault in the
/// note isn't found.
std::string FindInPackageNote(std::string_view note, std::string_view key);

} // namespace InformationServices
