// Spectra of two charts on the wavelengths that both hold.
#ifndef MEASDATA_KIT_COMPARE_COMMON_SPECTRA_H
#define MEASDATA_KIT_COMPARE_COMMON_SPECTRA_H

#include "colortypes/spectral/astm_conversion.h"
#include "kit/chart/chart.h"
#include "kit/colour/colour_difference.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace measkit {

class CommonSpectra {
 public:
  /// Looks for the common wavelengths: at least eight, evenly spaced in nm. Only reflectances and
  /// transmittances are compared, each with its like.
  CommonSpectra(const Chart& reference, const Chart& sample);

  bool exist() const { return !reference_bands_.empty(); }
  /// Why there are none, where both charts hold spectra; else empty.
  const std::string& reason() const { return reason_; }
  const std::vector<double>& wavelengths() const { return wavelengths_; }
  /// True when a weighting table fits the wavelengths, so that there is Lab under other lights.
  bool have_lights() const { return have_lights_; }

  /// The root of the mean squared difference of two spectra, as reflectance factors.
  double rms(std::span<const double> reference, std::span<const double> sample) const;

  /// CIEDE2000 of two spectra under illuminants A and F11, for the 2 degree observer.
  struct Metamerism {
    double a, f11;
  };
  Metamerism under_other_lights(std::span<const double> reference, std::span<const double> sample);

 private:
  std::vector<double> wavelengths_;
  std::vector<std::size_t> reference_bands_, sample_bands_;  // of each wavelength
  std::string reason_;
  bool have_lights_ = false;
  vantor::ColorTypes::Spectral::ASTMSpectralConversion a_, f11_;
  std::vector<double> first_, second_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_COMMON_SPECTRA_H
