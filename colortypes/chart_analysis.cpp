#include "colortypes/chart_analysis.h"

#include "colortypes/value_hash.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <unordered_map>
#include <utility>

namespace vantor::ColorTypes {
namespace {

struct HashOfDouble {
  std::uint64_t seed = hashSeed();
  std::size_t operator()(double value) const {
    return static_cast<std::size_t>(hashValue(value, seed));
  }
};

bool isInWedge(std::span<const double> row, std::size_t channel, ZeroSteps zeros) {
  for (std::size_t other = 0; other < row.size(); ++other) {
    if (other != channel && row[other] > 0.0) return false;
  }
  return zeros == ZeroSteps::keep || row[channel] != 0.0;
}

}  // namespace

DistinctValues collectDistinctValues(const ValueTable& device_values, std::size_t channel) {
  std::unordered_map<double, std::int32_t, HashOfDouble> counts;
  for (std::size_t row = 0; row < device_values.rows(); ++row) {
    const double value = device_values.row(row)[channel];
    if (!std::isnan(value)) ++counts[value];
  }
  std::vector<std::pair<double, std::int32_t>> sorted(counts.begin(), counts.end());
  std::sort(sorted.begin(), sorted.end());
  DistinctValues distinct;
  for (const auto& [value, count] : sorted) {
    distinct.values.push_back(value);
    distinct.counts.push_back(count);
  }
  return distinct;
}

std::vector<std::int32_t> findPaperWhite(const ValueTable& device_values) {
  std::vector<std::int32_t> found;
  for (std::size_t row = 0; row < device_values.rows(); ++row) {
    const bool is_blank =
        std::ranges::all_of(device_values.row(row), [](double value) { return value == 0.0; });
    if (is_blank) found.push_back(static_cast<std::int32_t>(row));
  }
  return found;
}

std::vector<std::int32_t> collectWedge(const ValueTable& device_values, std::size_t channel,
                                       ZeroSteps zeros) {
  std::vector<std::int32_t> wedge;
  for (std::size_t row = 0; row < device_values.rows(); ++row) {
    if (isInWedge(device_values.row(row), channel, zeros)) {
      wedge.push_back(static_cast<std::int32_t>(row));
    }
  }
  const auto value_of = [&device_values, channel](std::int32_t row) {
    return device_values.row(static_cast<std::size_t>(row))[channel];
  };
  std::stable_sort(wedge.begin(), wedge.end(), [&value_of](std::int32_t a, std::int32_t b) {
    const double left = value_of(a);
    const double right = value_of(b);
    return left < right || (std::isnan(left) && !std::isnan(right));
  });
  return wedge;
}

}  // namespace vantor::ColorTypes
