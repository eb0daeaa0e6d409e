// Measures the memory of a process.
#ifndef MEASDATA_BENCH_PEAK_MEMORY_H
#define MEASDATA_BENCH_PEAK_MEMORY_H

#include <functional>

namespace bench {

/// Returns the peak memory in bytes of a child process that only runs `work`. Call it while this
/// process is small, because the child starts with the memory of its parent.
double peak_bytes(const std::function<void()>& work);

}  // namespace bench

#endif  // MEASDATA_BENCH_PEAK_MEMORY_H
