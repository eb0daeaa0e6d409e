// What the device values of a chart tell about its structure.
#ifndef MEASDATA_COLORTYPES_CHART_ANALYSIS_H
#define MEASDATA_COLORTYPES_CHART_ANALYSIS_H

#include "colortypes/value_table.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vantor::ColorTypes {

/// The values that a channel takes, ascending, and how many rows have each.
struct DistinctValues {
  std::vector<double> values;
  std::vector<std::int32_t> counts;
};

/// Values count as the same when they are equal as doubles. A not-a-number is no value.
DistinctValues collectDistinctValues(const ValueTable& device_values, std::size_t channel);

/// The rows in which at most one channel is above 0, in order. Only they can be paper white or a
/// step of a wedge, which is sought among these few.
std::vector<std::int32_t> rowsOfOneInk(const ValueTable& device_values);

/// Those of the rows in which every channel is 0.
std::vector<std::int32_t> findPaperWhite(const ValueTable& device_values,
                                         std::span<const std::int32_t> rows);

enum class ZeroSteps { keep, skip };

/// Those of the rows in which no channel but this one is above 0, by ascending value of the
/// channel; rows of equal value stay in order, rows without a number come first. `zeros` tells
/// whether rows in which the channel is 0, too, are steps of the wedge.
std::vector<std::int32_t> collectWedge(const ValueTable& device_values,
                                       std::span<const std::int32_t> rows, std::size_t channel,
                                       ZeroSteps zeros);

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_CHART_ANALYSIS_H
