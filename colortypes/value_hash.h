// Hashes of doubles that are equal where the doubles are.
#ifndef MEASDATA_COLORTYPES_VALUE_HASH_H
#define MEASDATA_COLORTYPES_VALUE_HASH_H

#include "base/hashing.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vantor::ColorTypes {

/// Whatever the rounding mode, 0.0 and -0.0 count as the same.
inline std::uint64_t hashValue(double value, std::uint64_t seed) {
  return Base::mix((value == 0.0 ? 0 : std::bit_cast<std::uint64_t>(value)) ^ seed);
}

/// Hashes rows of one width.
class RowHash {
 public:
  explicit RowHash(std::size_t width) : seeds_(width) {
    std::uint64_t state = Base::hash_seed();
    for (std::uint64_t& seed : seeds_) seed = state = Base::mix(state + 1);
  }

  // No value waits for another.
  std::uint64_t operator()(std::span<const double> row) const {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < seeds_.size(); ++i) sum += hashValue(row[i], seeds_[i]);
    return sum;
  }

 private:
  std::vector<std::uint64_t> seeds_;
};

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_VALUE_HASH_H
