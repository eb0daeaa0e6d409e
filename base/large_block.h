// Memory for many things of a kind.
#ifndef MEASDATA_BASE_LARGE_BLOCK_H
#define MEASDATA_BASE_LARGE_BLOCK_H

#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <vector>

namespace vantor::Base {

/// Blocks of many megabytes are asked for in large pages where the system has them: getting memory
/// in small ones takes longer than filling it, and finding a place in it, too.
void* allocate_block(std::size_t size);
void release_block(void* block, std::size_t size) noexcept;

/// The same for the containers of the standard library.
template <typename Value>
class LargeBlockAllocator {
 public:
  using value_type = Value;

  LargeBlockAllocator() = default;
  template <typename Other>
  LargeBlockAllocator(const LargeBlockAllocator<Other>&) {}  // NOLINT(google-explicit-constructor)

  Value* allocate(std::size_t count) {
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(Value)) throw std::bad_alloc();
    return static_cast<Value*>(allocate_block(count * sizeof(Value)));
  }
  void deallocate(Value* values, std::size_t count) noexcept {
    release_block(values, count * sizeof(Value));
  }
  template <typename Other>
  bool operator==(const LargeBlockAllocator<Other>&) const {
    return true;
  }
};

template <typename Value>
using LargeVector = std::vector<Value, LargeBlockAllocator<Value>>;

/// Room for `count` numbers, not zeroed.
inline std::shared_ptr<double[]> allocate_numbers(std::size_t count) {
  double* const numbers = LargeBlockAllocator<double>().allocate(count);
  return {numbers,
          [count](double* block) { LargeBlockAllocator<double>().deallocate(block, count); }};
}

}  // namespace vantor::Base

#endif  // MEASDATA_BASE_LARGE_BLOCK_H
