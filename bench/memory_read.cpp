#include "bench/memory_read.h"

namespace Bench {

double SumOf(float const* values, std::size_t count) {
    float sums[16] = {};
    for (std::size_t i = 0; i + 16 <= count; i += 16)
        for (std::size_t k = 0; k < 16; ++k) sums[k] += values[i + k];
    double total = 0;
    for (float const sum : sums) total += static_cast<double>(sum);
    return total;
}

} // namespace Bench
