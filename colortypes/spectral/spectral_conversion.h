// What every way from a spectrum to Lab offers.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_SPECTRAL_CONVERSION_H
#define MEASDATA_COLORTYPES_SPECTRAL_SPECTRAL_CONVERSION_H

#include "colortypes/tristimulus.h"

namespace vantor::ColorTypes::Spectral {

class ISpectralToLabConversion {
 public:
  ISpectralToLabConversion() = default;
  virtual ~ISpectralToLabConversion() = default;

  /// Lab of a spectrum on the grid that the conversion was configured for.
  virtual void spectralToLab(const double* spectrum, double& l, double& a, double& b) const = 0;

 protected:
  ISpectralToLabConversion(const ISpectralToLabConversion&) = default;
  ISpectralToLabConversion(ISpectralToLabConversion&&) = default;
  ISpectralToLabConversion& operator=(const ISpectralToLabConversion&) = default;
  ISpectralToLabConversion& operator=(ISpectralToLabConversion&&) = default;
};

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_SPECTRAL_CONVERSION_H
