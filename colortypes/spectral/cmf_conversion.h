// Spectrum to Lab by integration with the colour-matching functions, for grids that no weighting
// table fits.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_CMF_CONVERSION_H
#define MEASDATA_COLORTYPES_SPECTRAL_CMF_CONVERSION_H

#include "colortypes/spectral/spectral_conversion.h"
#include "colortypes/spectral/weighted_sums.h"

#include <cstdint>

namespace vantor::ColorTypes::Spectral {

/// Integrates with the CIE 1931 colour-matching functions and D50 from 360 to 830 nm by 5 nm. The
/// spectrum is resampled to these wavelengths: a coarse one by a cubic through the four nearest
/// samples (a parabola in the first and last interval), a finer one by weighted averages around
/// each wavelength, so that no sample is left out. Outside the measured range its ends are
/// repeated.
///
/// Resampling and integration are both linear, so configure() folds them into one set of weights.
class CmfSpectralConversion final : public ISpectralToLabConversion {
 public:
  /// Prepares the converter for spectra of `count` values from `start` nm in steps of `step` nm,
  /// which may be negative. False, and nothing changed, for a step of 0 or fewer than two values.
  bool configure(std::int32_t start, std::int32_t step, std::int32_t count);

  void spectralToLab(const double* spectrum, double& l, double& a, double& b) const override;

 private:
  WeightedSums sums_;
};

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_CMF_CONVERSION_H
