// The cube root that every Lab value needs three times.
#ifndef MEASDATA_COLORTYPES_CUBE_ROOT_H
#define MEASDATA_COLORTYPES_CUBE_ROOT_H

#include "base/arithmetic.h"

#include <bit>
#include <cmath>
#include <cstdint>

namespace vantor::ColorTypes {

/// The range of firstCubeRootGuess.
inline constexpr double kSmallestForGuess = 1e-200;
inline constexpr double kLargestForGuess = 1e200;

/// x^(-1/3) within 3.5 percent. The bits of a double are nearly its logarithm; the constant makes
/// the largest error of a period of three octaves as small as it can be.
inline double firstCubeRootGuess(double x) {
  constexpr std::uint64_t kOffset = 0x553EF0EFD793CEFBU;
  return std::bit_cast<double>(kOffset - std::bit_cast<std::uint64_t>(x) / 3);
}

/// The cube root from a guess of its reciprocal, within one unit in the last place and exact for 1.
/// Divides by nothing and branches nowhere; `Number` is a double or Lanes of them.
template <typename Number>
Number refineCubeRoot(const Number& x, Number y) {
  // Terms of the series of (1 - e)^(-1/3), e being how far x y^3 is from 1.
  Number e = 1.0 - x * y * (y * y);
  y += y * e * (1.0 / 3.0 + e * (2.0 / 9.0 + e * (14.0 / 81.0)));
  e = 1.0 - x * y * (y * y);
  y += y * e * (1.0 / 3.0 + e * (2.0 / 9.0));
  const Number root = x * (y * y);
  return root - (root * root * root - x) * (y * y * (1.0 / 3.0));
}

/// The cube root of any number, several times as fast as std::pow for those of colours.
inline double cubeRoot(double x) {
  if (!(x > kSmallestForGuess && x < kLargestForGuess)) return std::cbrt(x);
  return refineCubeRoot(x, firstCubeRootGuess(x));
}

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_CUBE_ROOT_H
