// Memory for many numbers.
#ifndef MEASDATA_BASE_LARGE_BLOCK_H
#define MEASDATA_BASE_LARGE_BLOCK_H

#include <cstddef>
#include <memory>

namespace vantor::Base {

/// Room for `count` numbers, not zeroed. Memory of many megabytes is asked for in large pages where
/// the system has them: getting it in small ones takes longer than filling it.
std::shared_ptr<double[]> allocate_numbers(std::size_t count);

}  // namespace vantor::Base

#endif  // MEASDATA_BASE_LARGE_BLOCK_H
