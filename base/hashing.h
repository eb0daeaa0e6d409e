// Hashes that whoever writes a file cannot foresee.
#ifndef MEASDATA_BASE_HASHING_H
#define MEASDATA_BASE_HASHING_H

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

/// A start for the hashes of one table. It has to withstand somebody who writes a file, or many
/// files for the same process, so that all names or values meet in one place of a table, which
/// would make a load quadratic. He knows the source code, but neither the 64 random bits of the
/// process nor the place and time of the table, and no answer of the library depends on them.
///
/// It does not withstand somebody who can measure single searches from within the process: the
/// hashes mix well but are no cryptography.
std::uint64_t hash_seed();

}  // namespace vantor::Base

#endif  // MEASDATA_BASE_HASHING_H
