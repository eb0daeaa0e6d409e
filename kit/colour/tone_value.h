// Tone values: how much of a tint's paper the ink seems to cover.
#ifndef MEASDATA_KIT_COLOUR_TONE_VALUE_H
#define MEASDATA_KIT_COLOUR_TONE_VALUE_H

#include "colortypes/tristimulus.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace measkit {

using vantor::ColorTypes::Lab;
using vantor::ColorTypes::Tristimulus;

/// Percent. Not a number where paper and solid do not differ.
struct ToneValue {
  std::optional<double> value;  ///< by reflectance in X, Y or Z; none for spot colours
  double spot;                  ///< spot colour tone value of ISO 20654

  /// The one that the ink is judged by.
  double usual() const { return value.value_or(spot); }
};

/// 100 (P - T) / (P - S) of paper, tint and solid in one of X, Y and Z.
double tone_value(double paper, double tint, double solid);

/// ISO 20654: the distance of tint and paper over that of solid and paper, both in V = 116 f(t /
/// tn) - 16 for X, Y and Z, as percent.
double spot_colour_tone_value(const Lab& paper, const Lab& tint, const Lab& solid);

/// Which of X, Y and Z an ink absorbs most: those of CMYK, CMY and GRAY by their place, others by
/// the names Cyan, Magenta, Yellow and Black; null for other inks.
using XyzComponent = double Tristimulus::*;
XyzComponent component_of_ink(std::string_view device_set, std::size_t channel,
                              std::string_view name);

ToneValue tone_of(const Lab& paper, const Lab& tint, const Lab& solid, XyzComponent component);

}  // namespace measkit

#endif  // MEASDATA_KIT_COLOUR_TONE_VALUE_H
