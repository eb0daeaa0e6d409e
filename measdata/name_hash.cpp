#include "measdata/name_hash.h"

#include <algorithm>
#include <chrono>
#include <cstring>

namespace vantor::MeasData {
namespace {

// Every bit of the input reaches every bit of the result, and no difference of two inputs leads to
// a difference that is known beforehand.
std::uint64_t mix(std::uint64_t hash) {
  hash ^= hash >> 32U;
  hash *= 0xD6E8FEB86659FD93U;
  hash ^= hash >> 32U;
  hash *= 0xD6E8FEB86659FD93U;
  return hash ^ (hash >> 32U);
}

}  // namespace

// The time and the place of the object in memory are not known to whoever writes a file.
NameHash::NameHash()
    : seed_(mix(
          static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
          mix(reinterpret_cast<std::uintptr_t>(this)))) {}

std::size_t NameHash::operator()(std::string_view name) const {
  std::uint64_t hash = mix(seed_ ^ name.size());
  while (!name.empty()) {
    std::uint64_t word = 0;
    const std::size_t length = std::min(name.size(), sizeof word);
    std::memcpy(&word, name.data(), length);
    hash = mix(hash ^ word);
    name.remove_prefix(length);
  }
  return static_cast<std::size_t>(hash);
}

}  // namespace vantor::MeasData
