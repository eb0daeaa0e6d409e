#include "base/hashing.h"

#include <atomic>
#include <chrono>
#include <exception>
#include <random>

namespace vantor::Base {
namespace {

// A system without a source of random bits leaves the place and the time of each table.
std::uint64_t draw_random_bits() {
  try {
    std::random_device device;
    const std::uint64_t high = device();
    return high << 32U ^ device();
  } catch (const std::exception&) {
    return 0;
  }
}

// Random bits of this process. Threads that come first at once may draw several times; the last
// ones stay. No initialisation runs, so that the library can be loaded again in its old place.
std::uint64_t random_bits() {
  static constinit std::atomic<std::uint64_t> known{0};
  std::uint64_t bits = known.load(std::memory_order_relaxed);
  if (bits != 0) return bits;
  bits = draw_random_bits();
  known.store(bits, std::memory_order_relaxed);
  return bits;
}

}  // namespace

std::uint64_t hash_seed() {
  const std::uint64_t bits = random_bits();
  const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
  return mix(static_cast<std::uint64_t>(time) ^
             mix(bits ^ reinterpret_cast<std::uintptr_t>(&time)));
}

}  // namespace vantor::Base
