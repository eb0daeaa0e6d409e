// The memory that a process needs.
#ifndef MEASDATA_BENCH_PEAK_MEMORY_H
#define MEASDATA_BENCH_PEAK_MEMORY_H

#include <functional>

namespace bench {

/// The most bytes that a child process which does nothing but `work` ever holds. Call it while this
/// process is small: the child begins with what its parent has.
double peak_bytes(const std::function<void()>& work);

}  // namespace bench

#endif  // MEASDATA_BENCH_PEAK_MEMORY_H
