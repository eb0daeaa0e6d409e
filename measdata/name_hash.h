// Hashes of names from files.
#ifndef MEASDATA_MEASDATA_NAME_HASH_H
#define MEASDATA_MEASDATA_NAME_HASH_H

#include "base/hashing.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace vantor::MeasData {

/// Each hash object starts from a value of its own, so that nobody can write a file whose names all
/// meet in one bucket of a table.
class NameHash {
 public:
  std::size_t operator()(std::string_view name) const;

 private:
  std::uint64_t seed_ = Base::hash_seed();
};

/// Tables of names, which are views into the text of a file.
template <typename Value>
using NameMap = std::unordered_map<std::string_view, Value, NameHash>;
using NameSet = std::unordered_set<std::string_view, NameHash>;

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_NAME_HASH_H
