#include "kit/write/html/histogram.h"

#include <algorithm>
#include <cmath>

namespace measkit::html {

std::vector<std::size_t> histogram_of(std::span<const double> values, double width,
                                      std::size_t classes) {
  std::vector<std::size_t> counts(classes, 0);
  const double end = static_cast<double>(classes) * width;
  for (const double value : values) {
    if (!(value >= 0.0 && value <= end)) continue;
    ++counts[std::min(static_cast<std::size_t>(value / width), classes - 1)];
  }
  return counts;
}

double quantile_of(std::vector<double> values, double share) {
  if (values.empty()) return 0.0;
  std::ranges::sort(values);
  const double rank = std::ceil(share * static_cast<double>(values.size()));
  return values[static_cast<std::size_t>(std::max(rank, 1.0)) - 1];
}

}  // namespace measkit::html
