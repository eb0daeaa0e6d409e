#include "base/large_block.h"

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace vantor::Base {
namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20U;  // of x86-64 and most of ARM
constexpr std::size_t kFewestPages = 4;
constexpr std::align_val_t kAlignment{kLargePage};

bool is_large(std::size_t size) { return size >= kFewestPages * kLargePage; }

}  // namespace

void* allocate_block(std::size_t size) {
  if (!is_large(size)) return ::operator new(size);
  void* const block = ::operator new(size, kAlignment);
#ifdef MADV_HUGEPAGE
  madvise(block, size, MADV_HUGEPAGE);  // refused: then they are small
#endif
  return block;
}

void release_block(void* block, std::size_t size) noexcept {
  if (is_large(size)) {
    ::operator delete(block, kAlignment);
  } else {
    ::operator delete(block);
  }
}

}  // namespace vantor::Base
