#include "base/hashing.h"

#include <chrono>
#include <exception>
#include <random>

namespace vantor::Base {
namespace {

// Random bits of this process, drawn once. A system without a source of them leaves the place and
// the time of each table.
std::uint64_t random_bits() {
  try {
    std::random_device device;
    const std::uint64_t high = device();
    return high << 32U ^ device();
  } catch (const std::exception&) {
    return 0;
  }
}

}  // namespace

std::uint64_t hash_seed() {
  static const std::uint64_t bits = random_bits();
  const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
  return mix(static_cast<std::uint64_t>(time) ^
             mix(bits ^ reinterpret_cast<std::uintptr_t>(&time)));
}

}  // namespace vantor::Base
