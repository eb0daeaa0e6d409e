// The codes by which a weighting table is chosen, and the white point that goes with each table.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_ILLUMINANTS_H
#define MEASDATA_COLORTYPES_SPECTRAL_ILLUMINANTS_H

#include "colortypes/tristimulus.h"

namespace vantor::ColorTypes::Spectral {

/// Lights with weighting tables. The order is fixed: the numbers are codes that callers pass.
enum class Illuminant {
  A,
  C,
  D50,
  D55,
  D65,
  D75,
  F2,
  F7,
  F11,
  UL35,
  UL30,
  LedB1,
  LedB2,
  LedB3,
  LedB4,
  LedB5,
  LedT8G,   ///< retail lighting, Walmart
  LedU35T,  ///< retail lighting, Target
};
inline constexpr int kIlluminantCount = 18;

enum class Observer { Cie1931_2deg, Cie1964_10deg };

/// Table 5 is for spectra already corrected for the instrument's passband, Table 6 for others.
enum class TableType { Table5, Table6 };

/// The white point of a table, Y = 100. Constants of their own: several differ in the last digit
/// from the sums of the rounded weights. Only for combinations that have a table.
Tristimulus tableWhitePoint(Illuminant illuminant, Observer observer, TableType type);

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_ILLUMINANTS_H
