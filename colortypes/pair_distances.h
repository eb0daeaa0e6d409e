// How far measurements of the same patch lie apart.
#ifndef MEASDATA_COLORTYPES_PAIR_DISTANCES_H
#define MEASDATA_COLORTYPES_PAIR_DISTANCES_H

#include "colortypes/value_table.h"

#include <cstdint>
#include <limits>
#include <span>

namespace vantor::ColorTypes {

/// The largest distance of a single measurement, which has none: the lowest finite double.
inline constexpr double kNoDistance = std::numeric_limits<double>::lowest();

struct Distances {
  double mean = 0.0;
  double max = kNoDistance;
};

/// Mean and maximum of the distances (vectorDistance) between all pairs of the given rows of a
/// table. The time grows with the square of the number of different rows: equal rows are compared
/// with the others once, and their distances count as often as there are such rows.
Distances pairwiseDistances(const ValueTable& table, std::span<const std::uint32_t> rows);

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_PAIR_DISTANCES_H
