#include "measdata/name_hash.h"

#include <algorithm>
#include <cstring>

namespace vantor::MeasData {

std::size_t NameHash::operator()(std::string_view name) const {
  std::uint64_t hash = Base::mix(seed_ ^ name.size());
  while (!name.empty()) {
    std::uint64_t word = 0;
    const std::size_t length = std::min(name.size(), sizeof word);
    std::memcpy(&word, name.data(), length);
    hash = Base::mix(hash ^ word);
    name.remove_prefix(length);
  }
  return static_cast<std::size_t>(hash);
}

}  // namespace vantor::MeasData
