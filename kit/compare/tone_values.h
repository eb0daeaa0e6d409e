// Tone values of the wedges of two charts.
#ifndef MEASDATA_KIT_COMPARE_TONE_VALUES_H
#define MEASDATA_KIT_COMPARE_TONE_VALUES_H

#include "kit/compare/averaged_side.h"
#include "kit/compare/matching.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace measkit {

/// Percent. Not a number where paper and solid do not differ.
struct ToneValue {
  std::optional<double> value;  ///< by reflectance in X, Y or Z; none for spot colours
  double spot;                  ///< spot colour tone value of ISO 20654
};

/// 100 (P - T) / (P - S) of paper, tint and solid in one of X, Y and Z.
double tone_value(double paper, double tint, double solid);

/// ISO 20654: the distance of tint and paper over that of solid and paper, both in V = 116 f(t /
/// tn)
/// - 16 for X, Y and Z, as percent.
double spot_colour_tone_value(const Lab& paper, const Lab& tint, const Lab& solid);

struct WedgeStepTones {
  double nominal;    ///< percent
  std::size_t pair;  ///< in Matching::pairs
  ToneValue reference, sample;
};

struct WedgeTones {
  std::string ink;
  std::size_t channel = 0;
  std::vector<WedgeStepTones> steps;  ///< ascending, without paper, up to the solid
};

/// One for each ink whose paper and solid both charts hold. None for RGB.
std::vector<WedgeTones> wedge_tones(const Matching& matching, const AveragedSide& reference,
                                    const AveragedSide& sample);

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_TONE_VALUES_H
