#include "core/base/TypeName.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>

namespace Norvelian::Utilities {

std::string TypeName(std::type_info const& type) {
    int status = 0;
    std::unique_ptr<char, decltype(&std::free)> const readable(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    return status == 0 && readable ? readable.get() : type.name();
}

} // namespace Norvelian::Utilities
