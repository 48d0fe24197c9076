#include "cxf/colorimetry/Kernels.h"

namespace Norvelian::Tristim::Kernels {

#ifdef NORVELIAN_KERNELS_AVX2
Table const& Avx2Table();

Table const* Avx2() {
    static bool const supported = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    return supported ? &Avx2Table() : nullptr;
}
#else
Table const* Avx2() { return nullptr; }
#endif

Table const& Best() {
    static Table const& best = Avx2() ? *Avx2() : Portable();
    return best;
}

} // namespace Norvelian::Tristim::Kernels
