#include "kit/compare/figures.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace measkit {
namespace {

double mean_of_first(const std::vector<double>& values, std::size_t count) {
  const auto end = values.begin() + static_cast<std::ptrdiff_t>(count);
  return std::accumulate(values.begin(), end, 0.0) / static_cast<double>(count);
}

// By the nearest rank; whole percents, so that no rounding moves the rank.
double percentile_of(const std::vector<double>& sorted, std::size_t percent) {
  return sorted[(sorted.size() * percent + 99) / 100 - 1];
}

}  // namespace

Figures figures_of(std::vector<double> values) {
  std::erase_if(values, [](double value) { return std::isnan(value); });
  Figures figures;
  figures.count = values.size();
  if (values.empty()) return figures;
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  figures.mean = mean_of_first(values, values.size());
  figures.median =
      values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
  figures.p90 = percentile_of(values, 90);
  figures.p95 = percentile_of(values, 95);
  figures.max = -values.front() > values.back() ? values.front() : values.back();
  figures.best90 = mean_of_first(values, std::max<std::size_t>(1, values.size() * 9 / 10));
  if (values.size() > 1) {
    double sum = 0.0;
    for (const double value : values) sum += (value - figures.mean) * (value - figures.mean);
    figures.std = std::sqrt(sum / static_cast<double>(values.size() - 1));
  }
  return figures;
}

}  // namespace measkit
