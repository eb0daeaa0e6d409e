// Hashes that whoever writes a file cannot foresee.
#ifndef MEASDATA_BASE_HASHING_H
#define MEASDATA_BASE_HASHING_H

#include <chrono>
#include <cstdint>

namespace vantor::Base {

/// Every bit of the input reaches every bit of the result.
constexpr std::uint64_t mix(std::uint64_t hash) {
  hash ^= hash >> 32U;
  hash *= 0xD6E8FEB86659FD93U;
  hash ^= hash >> 32U;
  hash *= 0xD6E8FEB86659FD93U;
  return hash ^ (hash >> 32U);
}

/// A start for hashes, made of the time and a place in memory, so that nobody can write a file
/// whose names or values all meet in one place of a table.
inline std::uint64_t hash_seed() {
  const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
  return mix(static_cast<std::uint64_t>(time) ^ mix(reinterpret_cast<std::uintptr_t>(&time)));
}

}  // namespace vantor::Base

#endif  // MEASDATA_BASE_HASHING_H
