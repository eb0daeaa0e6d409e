// Tone values of the wedges of two charts.
#ifndef MEASDATA_KIT_COMPARE_TONE_VALUES_H
#define MEASDATA_KIT_COMPARE_TONE_VALUES_H

#include "kit/colour/tone_value.h"
#include "kit/compare/averaged_side.h"
#include "kit/compare/matching.h"

#include <cstddef>
#include <string>
#include <vector>

namespace measkit {

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
