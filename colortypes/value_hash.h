// Hashes of doubles that are equal where the doubles are.
#ifndef MEASDATA_COLORTYPES_VALUE_HASH_H
#define MEASDATA_COLORTYPES_VALUE_HASH_H

#include <bit>
#include <chrono>
#include <cstdint>
#include <span>

namespace vantor::ColorTypes {

/// A start for hashes that whoever writes a file cannot know, so that nobody can write one whose
/// values all meet in one place of a table.
inline std::uint64_t hashSeed() {
  const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
  return static_cast<std::uint64_t>(time) ^ reinterpret_cast<std::uintptr_t>(&time);
}

/// Continues a hash, at first a seed, with one more value. 0.0 and -0.0 count as the same.
constexpr std::uint64_t hashValue(double value, std::uint64_t hash) {
  hash ^= std::bit_cast<std::uint64_t>(value + 0.0);  // -0.0 + 0.0 is 0.0
  // The finalizer of a 64-bit mixing function: every bit of the input reaches every bit of the
  // hash.
  hash ^= hash >> 32U;
  hash *= 0xD6E8FEB86659FD93U;
  hash ^= hash >> 32U;
  hash *= 0xD6E8FEB86659FD93U;
  return hash ^ (hash >> 32U);
}

inline std::uint64_t hashValues(std::span<const double> values, std::uint64_t hash) {
  for (const double value : values) hash = hashValue(value, hash);
  return hash;
}

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_VALUE_HASH_H
