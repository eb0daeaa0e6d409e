// The arithmetic that all spectral conversions share once their weights are known.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_WEIGHTED_SUMS_H
#define MEASDATA_COLORTYPES_SPECTRAL_WEIGHTED_SUMS_H

#include "colortypes/tristimulus.h"

#include <cstddef>
#include <vector>

namespace vantor::ColorTypes::Spectral {

/// X, Y and Z as sums of a spectrum's values, each times its weights.
class WeightedSums {
 public:
  /// No weights: every sum is 0.
  WeightedSums() = default;
  explicit WeightedSums(std::size_t samples)
      : weightsX_(samples), weightsY_(samples), weightsZ_(samples) {}

  /// Adds to the weights of a sample.
  void add(std::size_t sample, double x, double y, double z) {
    weightsX_[sample] += x;
    weightsY_[sample] += y;
    weightsZ_[sample] += z;
  }

  /// From now on a spectrum of `white_value` throughout gives `white` exactly.
  void normalise(double white_value, const Tristimulus& white);
  /// From now on sums are divided by `divisor`.
  void divideBy(double divisor);

  /// The plain sums of a spectrum of `value` throughout.
  Tristimulus plainSums(double value) const;
  Tristimulus xyzOf(const double* spectrum) const;

 private:
  Tristimulus plainSums(const double* spectrum) const;

  std::vector<double> weightsX_, weightsY_, weightsZ_;
  // A sum becomes X, Y or Z as sum / divisor * factor: in this order a perfect white, whose sum is
  // the divisor, gives the factor without a rounding error.
  Tristimulus divisor_ = {1.0, 1.0, 1.0};
  Tristimulus factor_ = {1.0, 1.0, 1.0};
};

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_WEIGHTED_SUMS_H
