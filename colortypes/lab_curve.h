// The curve of CIELAB.
#ifndef MEASDATA_COLORTYPES_LAB_CURVE_H
#define MEASDATA_COLORTYPES_LAB_CURVE_H

#include "colortypes/cube_root.h"
#include "colortypes/lanes.h"
#include "colortypes/tristimulus.h"

namespace vantor::ColorTypes {

inline constexpr double labEpsilon = 0.008856451679035631;  // (6/29)^3
inline constexpr double labKappaSlope = 7.787037037037037;  // (29/6)^2 / 3
inline constexpr double labOffset = 0.13793103448275862;    // 4/29

inline double labCurve(double ratio) {
  return ratio > labEpsilon ? cubeRoot(ratio) : labKappaSlope * ratio + labOffset;
}

/// The curve for X, Y and Z; for nearly all colours two at once.
inline Tristimulus labCurve(const Tristimulus& ratios) {
  const auto is_light = [](double ratio) { return ratio > labEpsilon && ratio < kLargestForGuess; };
  if (!is_light(ratios.x) || !is_light(ratios.y) || !is_light(ratios.z)) {
    return {labCurve(ratios.x), labCurve(ratios.y), labCurve(ratios.z)};
  }
  const Lanes roots = refineCubeRoot(
      Lanes{ratios.x, ratios.y}, Lanes{firstCubeRootGuess(ratios.x), firstCubeRootGuess(ratios.y)});
  return {roots[0], roots[1], refineCubeRoot(ratios.z, firstCubeRootGuess(ratios.z))};
}

/// CIELAB of a colour whose X, Y and Z are given as fractions of the white's (CIE 15).
inline Lab ratiosToLab(const Tristimulus& ratios) {
  const Tristimulus f = labCurve(ratios);
  return {116.0 * f.y - 16.0, 500.0 * (f.x - f.y), 200.0 * (f.y - f.z)};
}

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_LAB_CURVE_H
