// Spectrum to XYZ and Lab by the weighting tables of ASTM E308.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_ASTM_CONVERSION_H
#define MEASDATA_COLORTYPES_SPECTRAL_ASTM_CONVERSION_H

#include "colortypes/spectral/illuminants.h"
#include "colortypes/spectral/spectral_conversion.h"
#include "colortypes/spectral/weighted_sums.h"

#include <cstdint>

namespace vantor::ColorTypes::Spectral {

/// Which spectra a converter takes, and how it weighs them. The defaults fit reflectance factors
/// under D50 for the 2 degree observer, against the library's white.
struct AstmParameters {
  std::int32_t startNm = 380;     ///< wavelength of the first sample
  std::int32_t stepNm = 10;       ///< sampling interval, nm
  std::int32_t sampleCount = 36;  ///< samples in a spectrum
  double whiteValue = 1.0;        ///< spectral value of the perfect diffuser
  std::int32_t illuminant = static_cast<std::int32_t>(Illuminant::D50);
  std::int32_t observer = static_cast<std::int32_t>(Observer::Cie1931_2deg);
  bool useTable5 = true;         ///< Table 5, else Table 6
  bool foldEnds = true;          ///< unmeasured wavelengths count with the nearest measured one
  bool normaliseToWhite = true;  ///< scale so that a perfect white gives the white point exactly
  bool keepWhitePoint = true;    ///< else Lab refers to the plain sums of the weights
  bool useCustomWhite = true;    ///< customWhite instead of the table's white point
  Tristimulus customWhite = kD50White;
};

/// configure() lays the weights of one table onto the wavelengths of a spectrum; after that each
/// spectrum takes three weighted sums. A fresh converter holds no weights and gives X = Y = Z = 0.
class ASTMSpectralConversion final : public ISpectralToLabConversion {
 public:
  /// False, and nothing changed, for a grid that no table fits. Throws std::invalid_argument, and
  /// nothing changed, for a light, observer and table type that have no table.
  bool configure(const AstmParameters& parameters);

  /// X, Y and Z of a spectrum of `sampleCount` values.
  void spectralToXYZ(const double* spectrum, double& x, double& y, double& z) const;

  void spectralToLab(const double* spectrum, double& l, double& a, double& b) const override;

 private:
  WeightedSums sums_;
  // What fractions of the sums' divisors are multiplied with to become fractions of the white to
  // which Lab refers; exactly 1 where XYZ refers to the same.
  Tristimulus lab_scale_ = {0.0, 0.0, 0.0};
};

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_ASTM_CONVERSION_H
