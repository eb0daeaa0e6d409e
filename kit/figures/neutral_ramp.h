// The greys of an RGB chart, and the gamma that their luminance follows.
#ifndef MEASDATA_KIT_FIGURES_NEUTRAL_RAMP_H
#define MEASDATA_KIT_FIGURES_NEUTRAL_RAMP_H

#include "kit/chart/chart.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace measkit {

struct RampStep {
  double device;     ///< share of full, 0 to 1
  double luminance;  ///< share of the way from black to white, 0 to 1
  std::size_t index;
};

struct NeutralRamp {
  std::vector<RampStep> steps;  ///< ascending
  std::optional<double> gamma;  ///< luminance = device ^ gamma, by least squares of the logarithms
};

/// Patches whose red, green and blue are equal. No steps unless they reach from black to white.
NeutralRamp neutral_ramp_of(const Chart& chart);

}  // namespace measkit

#endif  // MEASDATA_KIT_FIGURES_NEUTRAL_RAMP_H
