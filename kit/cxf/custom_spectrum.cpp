#include "kit/cxf/custom_spectrum.h"

#include "kit/cxf/numbers.h"
#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace measkit::cxf {

std::optional<std::array<std::string_view, 3>> even_spectrum(
    const std::vector<SpectralPoint>& points, TextPool& pool) {
  constexpr double kTolerance = 1e-6;  // nm
  std::vector<std::pair<double, std::string_view>> sorted;
  for (const SpectralPoint& point : points) {
    const std::optional<double> nm = number_of(point.wavelength);
    if (!nm || point.value.empty()) return std::nullopt;
    sorted.emplace_back(*nm, point.value);
  }
  if (sorted.empty()) return std::nullopt;
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  constexpr double kAnyStep = 10.0;
  const double step = sorted.size() == 1 ? kAnyStep : sorted[1].first - sorted[0].first;
  if (!(step > kTolerance)) return std::nullopt;
  std::string values;
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    const double even = sorted[0].first + static_cast<double>(i) * step;
    if (!(std::abs(sorted[i].first - even) <= kTolerance)) return std::nullopt;
    values.append(i == 0 ? "" : " ").append(sorted[i].second);
  }
  return std::array{pool.add(values), text_of(sorted[0].first, pool), text_of(step, pool)};
}

}  // namespace measkit::cxf
