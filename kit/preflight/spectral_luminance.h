// Estimates Y of a spectrum on any wavelengths, to judge the scale of its numbers.
#ifndef MEASDATA_KIT_PREFLIGHT_SPECTRAL_LUMINANCE_H
#define MEASDATA_KIT_PREFLIGHT_SPECTRAL_LUMINANCE_H

#include <span>
#include <vector>

namespace measkit {

/// Interpolates linearly: good to a few percent, which tells factors from percent.
class SpectralLuminance {
 public:
  /// `wavelengths` in nm, ascending.
  explicit SpectralLuminance(const std::vector<double>& wavelengths);

  /// Y under D50 for the 2 degree observer: 100 for a spectrum of 1 throughout.
  double of(std::span<const double> spectrum) const;

 private:
  std::vector<double> weights_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SPECTRAL_LUMINANCE_H
