#include "kit/preflight/scale_evidence.h"

#include "colortypes/conversions.h"
#include "kit/preflight/spectral_luminance.h"

#include <algorithm>
#include <cmath>

namespace measkit {
namespace {

// A factor of 100 lies between the readings; noise of the estimate stays far below a factor of 3.
bool is_near(double ratio, double expected) {
  constexpr double kTolerance = 3.0;
  return ratio > expected / kTolerance && ratio < expected * kTolerance;
}

std::vector<double> own_luminance(Table& table, const Roles& roles) {
  if (!roles.has_xyz()) {
    return roles.has_lab() ? luminance_from_lab(table, roles) : std::vector<double>();
  }
  std::vector<double> y = table.numbers(roles.xyz[1]);
  const double largest = y.empty() ? 0.0 : *std::max_element(y.begin(), y.end());
  // XYZ on a scale of 0 to 1 proves nothing unless it has a light colour; then it is the same proof
  // as on a scale of 100.
  if (largest > 0.0 && largest <= 1.5) {
    if (largest < 0.2) return {};
    for (double& value : y) value *= 100.0;
  }
  return y;
}

}  // namespace

double median_ratio(const std::vector<double>& numerators,
                    const std::vector<double>& denominators) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < std::min(numerators.size(), denominators.size()); ++i) {
    if (numerators[i] > 0.0 && denominators[i] > 0.0) {
      ratios.push_back(numerators[i] / denominators[i]);
    }
  }
  if (ratios.empty()) return 0.0;
  const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
  std::nth_element(ratios.begin(), middle, ratios.end());
  return *middle;
}

std::vector<double> luminance_from_lab(Table& table, const Roles& roles) {
  std::vector<double> y = table.numbers(roles.lab[0]);
  for (double& value : y) {
    value = vantor::ColorTypes::labToXyz({value, 0.0, 0.0}, vantor::ColorTypes::kD50White).y;
  }
  return y;
}

std::vector<double> luminance_from_spectra(Table& table, const Roles& roles) {
  std::vector<double> wavelengths;
  wavelengths.reserve(roles.spectra.size());
  for (const SpectralField& spectral : roles.spectra) wavelengths.push_back(spectral.nm);
  if (!std::is_sorted(wavelengths.begin(), wavelengths.end())) return {};
  const SpectralLuminance luminance(wavelengths);
  SpectralRows spectra(table, roles);
  constexpr std::size_t kRows = 1000;  // are enough for a median
  const std::size_t step = spectra.size() / kRows + 1;
  std::vector<double> y(spectra.size());
  for (std::size_t row = 0; row < y.size(); row += step) y[row] = luminance.of(spectra.row(row));
  return y;
}

Agreement compare_spectra_with_colours(Table& table, const Roles& roles) {
  const std::vector<double> own = own_luminance(table, roles);
  if (own.empty()) return Agreement::none;
  const double ratio = median_ratio(luminance_from_spectra(table, roles), own);
  if (is_near(ratio, 1.0)) return Agreement::as_factor;
  if (is_near(ratio, 100.0)) return Agreement::as_percent;
  return Agreement::none;
}

}  // namespace measkit
