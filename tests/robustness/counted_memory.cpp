#include "tests/robustness/counted_memory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

long live = 0;
long until_failure = 0;  // 0: none is to come
bool is_lasting = false;
bool has_failed = false;

void* take(std::size_t size, std::size_t alignment) noexcept {
  if (until_failure > 0 && --until_failure == 0) {
    has_failed = true;
    if (is_lasting) until_failure = 1;
    return nullptr;
  }
  const std::size_t padded = (size / alignment + 1) * alignment;
  void* block = alignment <= alignof(std::max_align_t) ? std::malloc(padded)
                                                       : std::aligned_alloc(alignment, padded);
  if (block != nullptr) ++live;
  return block;
}

void* take_or_throw(std::size_t size, std::size_t alignment) {
  void* block = take(size, alignment);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void give_back(void* block) noexcept {
  if (block != nullptr) --live;
  std::free(block);
}

constexpr std::size_t kUsual = alignof(std::max_align_t);

std::size_t bytes(std::align_val_t alignment) { return static_cast<std::size_t>(alignment); }

}  // namespace

namespace test {

long live_blocks() { return live; }

MemoryShortage::MemoryShortage(long n, Shortage kind) {
  is_lasting = kind == Shortage::lasting;
  has_failed = false;
  until_failure = n;
}

MemoryShortage::~MemoryShortage() { until_failure = 0; }

bool MemoryShortage::has_struck() const { return has_failed; }

}  // namespace test

// Each form by itself: those of a sanitizer do not call one another.
using Align = std::align_val_t;
using NoThrow = const std::nothrow_t&;
void* operator new(std::size_t n) { return take_or_throw(n, kUsual); }
void* operator new[](std::size_t n) { return take_or_throw(n, kUsual); }
void* operator new(std::size_t n, Align a) { return take_or_throw(n, bytes(a)); }
void* operator new[](std::size_t n, Align a) { return take_or_throw(n, bytes(a)); }
void* operator new(std::size_t n, NoThrow) noexcept { return take(n, kUsual); }
void* operator new[](std::size_t n, NoThrow) noexcept { return take(n, kUsual); }
void* operator new(std::size_t n, Align a, NoThrow) noexcept { return take(n, bytes(a)); }
void* operator new[](std::size_t n, Align a, NoThrow) noexcept { return take(n, bytes(a)); }
void operator delete(void* block) noexcept { give_back(block); }
void operator delete[](void* block) noexcept { give_back(block); }
void operator delete(void* block, std::size_t) noexcept { give_back(block); }
void operator delete[](void* block, std::size_t) noexcept { give_back(block); }
void operator delete(void* block, Align) noexcept { give_back(block); }
void operator delete[](void* block, Align) noexcept { give_back(block); }
void operator delete(void* block, std::size_t, Align) noexcept { give_back(block); }
void operator delete[](void* block, std::size_t, Align) noexcept { give_back(block); }
void operator delete(void* block, NoThrow) noexcept { give_back(block); }
void operator delete[](void* block, NoThrow) noexcept { give_back(block); }
void operator delete(void* block, Align, NoThrow) noexcept { give_back(block); }
void operator delete[](void* block, Align, NoThrow) noexcept { give_back(block); }
