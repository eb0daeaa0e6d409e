#include "kit/preflight/spectral_luminance.h"

#include "colortypes/spectral/cie_data.h"

#include <algorithm>
#include <cstddef>

namespace measkit {

SpectralLuminance::SpectralLuminance(const std::vector<double>& wavelengths)
    : weights_(wavelengths.size()) {
  if (wavelengths.empty()) return;
  double sum = 0.0;
  for (const auto& row : vantor::ColorTypes::Spectral::cieData()) {
    const double weight = row.y * row.d50;
    sum += weight;
    const auto above = std::upper_bound(wavelengths.begin(), wavelengths.end(), row.nm);
    const auto upper = static_cast<std::size_t>(above - wavelengths.begin());
    if (upper == 0 || upper == wavelengths.size()) {
      weights_[upper == 0 ? 0 : upper - 1] += weight;
      continue;
    }
    const double t =
        (row.nm - wavelengths[upper - 1]) / (wavelengths[upper] - wavelengths[upper - 1]);
    weights_[upper - 1] += weight * (1.0 - t);
    weights_[upper] += weight * t;
  }
  for (double& weight : weights_) weight *= 100.0 / sum;
}

double SpectralLuminance::of(std::span<const double> spectrum) const {
  double y = 0.0;
  for (std::size_t i = 0; i < weights_.size(); ++i) y += weights_[i] * spectrum[i];
  return y;
}

}  // namespace measkit
