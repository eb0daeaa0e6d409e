// The CIE data that a spectrum is integrated with: standard observer and light.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_CIE_DATA_H
#define MEASDATA_COLORTYPES_SPECTRAL_CIE_DATA_H

#include <array>
#include <cstddef>

namespace vantor::ColorTypes::Spectral {

inline constexpr int kCieStartNm = 360;
inline constexpr int kCieStepNm = 5;
inline constexpr std::size_t kCieCount = 95;  // to 830 nm

/// One wavelength of the CIE 1931 colour-matching functions and of illuminant D50.
struct CieRow {
  int nm;
  double x, y, z;
  double d50;
};

using CieRows = std::array<CieRow, kCieCount>;

const CieRows& cieData();

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_CIE_DATA_H
