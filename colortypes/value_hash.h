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

/// The bits of a value, folded because round numbers have none below. 0.0 and -0.0 count as the
/// same.
inline std::uint64_t foldedBits(double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);  // -0.0 + 0.0 is 0.0
  return bits ^ (bits >> 32U);
}

class ValueHash {
 public:
  /// A number of `bits` bits, 1 to 64.
  std::size_t operator()(double value, unsigned bits) const {
    return static_cast<std::size_t>((foldedBits(value) * factor_) >> (64U - bits));
  }

 private:
  std::uint64_t factor_ = Base::hash_seed() | 1U;
};

/// Hashes rows of one width.
class RowHash {
 public:
  explicit RowHash(std::size_t width) : seed_(Base::hash_seed()), factors_(width) {
    std::uint64_t state = seed_;
    for (std::uint64_t& factor : factors_) factor = (state = Base::mix(state + 1)) | 1U;
  }

  // One multiplication a value, none of which waits for another.
  std::uint64_t operator()(std::span<const double> row) const {
    std::uint64_t sum = seed_;
    for (std::size_t i = 0; i < factors_.size(); ++i) sum += foldedBits(row[i]) * factors_[i];
    return Base::mix(sum);
  }

 private:
  std::uint64_t seed_;
  std::vector<std::uint64_t> factors_;
};

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_VALUE_HASH_H
