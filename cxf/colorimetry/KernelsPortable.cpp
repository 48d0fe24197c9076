#include "cxf/colorimetry/KernelBodies.inc"

namespace Norvelian::Tristim::Kernels {

Table const& Portable() {
    static constexpr Table table{SpectraToXYZ, SpectraToLab, DeltaE2000};
    return table;
}

} // namespace Norvelian::Tristim::Kernels
