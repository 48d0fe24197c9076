#include "cxf/verification/Verification.h"

#include <iostream>

/// Prints every published reference with expected, computed, difference and tolerance; fails on any miss.
int main() { return Norvelian::Tristim::PrintVerification(std::cout) ? 0 : 1; }
