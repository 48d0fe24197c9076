#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace Norvelian::Tristim {

/// One number of this library beside a published one.
struct VerificationCheck {
    std::string name;
    std::string source; ///< who published the expected number
    double expected;
    double computed;
    double tolerance;

    /// False for a number that isn't finite, too.
    bool Passed() const;
};

/// Computes every reference that the library knows. The numbers come from the files below
/// `data/verification` and from the publications that each check names.
std::vector<VerificationCheck> RunVerification();

/// Writes a line for each check and a summary; true if all passed.
bool PrintVerification(std::ostream& stream);

} // namespace Norvelian::Tristim
