#include "kit/write/html/repeat_bands.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <span>

namespace measkit::html {
namespace {

const Values& spectra_of(const Chart& chart) {
  return chart.spectra.empty() ? chart.emission : chart.spectra;
}

// Two passes: a difference of squares would lose the small deviations.
RepeatBand band_of(const Values& spectra, std::size_t index,
                   std::span<const std::uint32_t> patches) {
  const std::size_t bands = spectra.width();
  RepeatBand band = {index, patches.size(), std::vector<double>(bands), std::vector<double>(bands)};
  const auto count = static_cast<double>(patches.size());
  for (const std::uint32_t patch : patches) {
    for (std::size_t i = 0; i < bands; ++i) band.mean[i] += spectra.row(patch)[i] / count;
  }
  for (const std::uint32_t patch : patches) {
    for (std::size_t i = 0; i < bands; ++i) {
      const double difference = spectra.row(patch)[i] - band.mean[i];
      band.deviation[i] += difference * difference;
    }
  }
  for (double& sum : band.deviation) sum = std::sqrt(sum / (count - 1.0));
  return band;
}

template <typename Use>
void for_each_band(const View& chart, Use use) {
  const Chart& of = *chart.chart;
  const Values& spectra = spectra_of(of);
  if (spectra.empty() || of.merged.device.empty()) return;
  for (std::size_t i = 0; i < of.merged.count; ++i) {
    const auto patches = of.merged.patches_of(i);
    if (patches.size() < 2) continue;
    RepeatBand band = band_of(spectra, i, patches);
    const double sum = std::accumulate(band.deviation.begin(), band.deviation.end(), 0.0);
    if (std::isfinite(sum)) use(std::move(band), sum);
  }
}

}  // namespace

std::vector<RepeatBand> repeat_bands(const View& chart, std::size_t most) {
  std::vector<std::pair<double, RepeatBand>> bands;
  const auto scatter = &std::pair<double, RepeatBand>::first;
  for_each_band(chart, [&](RepeatBand&& band, double sum) {
    bands.emplace_back(sum, std::move(band));
    if (bands.size() < 2 * most) return;
    std::ranges::nth_element(bands, bands.begin() + static_cast<std::ptrdiff_t>(most),
                             std::ranges::greater(), scatter);
    bands.resize(most);
  });
  std::ranges::stable_sort(bands, std::ranges::greater(), scatter);
  std::vector<RepeatBand> shown;
  for (auto& [sum, band] : std::span(bands).first(std::min(most, bands.size()))) {
    shown.push_back(std::move(band));
  }
  return shown;
}

std::vector<double> pooled_deviation(const View& chart) {
  std::vector<double> sums;
  double degrees = 0.0;
  for_each_band(chart, [&](RepeatBand&& band, double /*sum*/) {
    const auto weight = static_cast<double>(band.readings - 1);
    sums.resize(band.deviation.size());
    for (std::size_t i = 0; i < sums.size(); ++i) {
      sums[i] += weight * band.deviation[i] * band.deviation[i];
    }
    degrees += weight;
  });
  for (double& sum : sums) sum = std::sqrt(sum / degrees);
  return sums;
}

}  // namespace measkit::html
