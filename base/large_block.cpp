#include "base/large_block.h"

#include <limits>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace vantor::Base {
namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20U;  // of x86-64 and most of ARM
constexpr std::size_t kFewestPages = 4;

void ask_for_large_pages([[maybe_unused]] void* block, [[maybe_unused]] std::size_t size) {
#ifdef MADV_HUGEPAGE
  madvise(block, size, MADV_HUGEPAGE);  // refused: then they are small
#endif
}

}  // namespace

std::shared_ptr<double[]> allocate_numbers(std::size_t count) {
  if (count > std::numeric_limits<std::size_t>::max() / sizeof(double)) throw std::bad_alloc();
  const std::size_t size = count * sizeof(double);
  if (size < kFewestPages * kLargePage) return std::shared_ptr<double[]>(new double[count]);
  constexpr std::align_val_t alignment{kLargePage};
  void* const block = ::operator new(size, alignment);
  const auto release = [](double* numbers) { ::operator delete(numbers, alignment); };
  std::shared_ptr<double[]> numbers(static_cast<double*>(block), release);
  ask_for_large_pages(block, size);
  return numbers;
}

}  // namespace vantor::Base
