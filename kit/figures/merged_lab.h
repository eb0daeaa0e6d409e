// Lab of merged patches, as far as they are numbers.
#ifndef MEASDATA_KIT_FIGURES_MERGED_LAB_H
#define MEASDATA_KIT_FIGURES_MERGED_LAB_H

#include "kit/chart/chart.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace measkit {

inline std::optional<Triple> merged_lab(const Chart& chart, std::size_t index) {
  if (chart.merged.lab.empty()) return std::nullopt;
  const Triple lab = triple_at(chart.merged.lab, index);
  const bool is_measured = std::ranges::all_of(lab, [](double v) { return std::isfinite(v); });
  return is_measured ? std::optional(lab) : std::nullopt;
}

}  // namespace measkit

#endif  // MEASDATA_KIT_FIGURES_MERGED_LAB_H
