#include "kit/compare/averaged_side.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace measkit {

double average_of(std::vector<double>& values, Averaging averaging) {
  std::erase_if(values, [](double value) { return std::isnan(value); });
  if (values.empty()) return std::numeric_limits<double>::quiet_NaN();
  if (averaging == Averaging::mean) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
  }
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  if (values.size() % 2 == 1) return *middle;
  return (*std::max_element(values.begin(), middle) + *middle) / 2.0;
}

void average_rows(const Values& values, std::span<const std::uint32_t> patches, Averaging averaging,
                  double* average) {
  if (patches.size() == 1) {
    std::ranges::copy(values.row(patches.front()), average);
    return;
  }
  std::vector<double> column;
  for (std::size_t i = 0; i < values.width(); ++i) {
    column.clear();
    for (const std::uint32_t patch : patches) column.push_back(values.row(patch)[i]);
    average[i] = average_of(column, averaging);
  }
}

AveragedSide::AveragedSide(const Chart& chart, const PatchGroups& groups, Averaging averaging)
    : chart_(chart), groups_(groups), averaging_(averaging), lab_(groups.size()) {
  constexpr double kNotMeasured = std::numeric_limits<double>::quiet_NaN();
  for (std::size_t group = 0; group < groups.size(); ++group) {
    std::array<double, 3> lab = {kNotMeasured, kNotMeasured, kNotMeasured};
    if (!chart.lab.empty())
      average_rows(chart.lab, groups.patches_of(group), averaging, lab.data());
    lab_[group] = {lab[0], lab[1], lab[2]};
  }
}

std::span<const double> AveragedSide::spectrum(std::size_t group) const {
  const std::span<const std::uint32_t> patches = groups_.patches_of(group);
  if (chart_.spectra.empty()) return {};
  if (patches.size() == 1) return chart_.spectra.row(patches.front());
  spectrum_.resize(chart_.spectra.width());
  average_rows(chart_.spectra, patches, averaging_, spectrum_.data());
  return spectrum_;
}

}  // namespace measkit
