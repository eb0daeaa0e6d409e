// The distance of two colours or spectra.
#ifndef MEASDATA_COLORTYPES_DIFFERENCE_H
#define MEASDATA_COLORTYPES_DIFFERENCE_H

#include <cmath>
#include <cstddef>
#include <span>

namespace vantor::ColorTypes {

/// The Euclidean distance of two sequences; the second must be at least as long as the first. Of
/// two Lab triples it is the colour difference Delta E*ab (CIE 1976).
inline double vectorDistance(std::span<const double> a, std::span<const double> b) {
  double sum = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const double difference = a[i] - b[i];
    sum += difference * difference;
  }
  return std::sqrt(sum);
}

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_DIFFERENCE_H
