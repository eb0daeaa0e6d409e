// Hashes of names from files.
#ifndef MEASDATA_MEASDATA_NAME_HASH_H
#define MEASDATA_MEASDATA_NAME_HASH_H

#include "base/hashing.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vantor::MeasData {

/// Each hash object starts from a value of its own, so that nobody can write a file whose names all
/// meet in one bucket of a table.
class NameHash {
 public:
  std::size_t operator()(std::string_view name) const;

 private:
  std::uint64_t seed_ = Base::hash_seed();
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_NAME_HASH_H
