#pragma once

#include <optional>
#include <string>

namespace InformationServices {

/// A package of the distribution, as its data base tells of it.
struct DistributionPackage {
    std::string name;
    std::string version;
    std::string maintainer;
    std::string description;

    /// The installed package that the file is in; nothing if there is none, or no data base that is known
    /// here (Debian's: `root` is /var/lib/dpkg). Reads the lists of all packages: tens of milliseconds.
    static std::optional<DistributionPackage> FindOwner(std::string const& path,
                                                        std::string const& root = "/var/lib/dpkg");
};

} // namespace InformationServices
