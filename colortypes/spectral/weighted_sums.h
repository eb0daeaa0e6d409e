// The arithmetic that all spectral conversions share once their weights are known.
#ifndef MEASDATA_COLORTYPES_SPECTRAL_WEIGHTED_SUMS_H
#define MEASDATA_COLORTYPES_SPECTRAL_WEIGHTED_SUMS_H

#include "colortypes/lanes.h"
#include "colortypes/tristimulus.h"

#include <cstddef>
#include <vector>

namespace vantor::ColorTypes::Spectral {

/// X, Y and Z as sums of a spectrum's values, each times its weights.
class WeightedSums {
 public:
  /// No weights: every sum is 0.
  WeightedSums() = default;
  /// Weights for `count` samples from `first` on; all others count for nothing, however many a
  /// spectrum has.
  WeightedSums(std::size_t first, std::size_t count)
      : first_(first), weightsX_(count), weightsY_(count), weightsZ_(count) {}

  /// Adds to the weights of a sample.
  void add(std::size_t sample, double x, double y, double z) {
    weightsX_[sample - first_] += x;
    weightsY_[sample - first_] += y;
    weightsZ_[sample - first_] += z;
  }

  /// From now on a spectrum of `white_value` throughout gives `white` exactly.
  void normalise(double white_value, const Tristimulus& white);
  /// From now on sums are divided by `divisor`.
  void divideBy(double divisor);

  /// The plain sums of a spectrum of `value` throughout.
  Tristimulus plainSums(double value) const;
  /// Sums as fractions of the divisor: 1 for the white that normalise() was given.
  Tristimulus fractionsOf(const double* spectrum) const;
  /// What the fractions are multiplied with to make X, Y and Z.
  const Tristimulus& factor() const { return factor_; }
  Tristimulus xyzOf(const double* spectrum) const;

 private:
  // Takes the spectrum from its first weighted sample on.
  Tristimulus plainSums(const double* weighted_samples) const;

  std::size_t first_ = 0;
  std::vector<double> weightsX_, weightsY_, weightsZ_;
  // A sum becomes X, Y or Z as sum / divisor * factor: in this order a perfect white, whose sum is
  // the divisor, gives the factor without a rounding error.
  Tristimulus divisor_ = {1.0, 1.0, 1.0};
  Tristimulus factor_ = {1.0, 1.0, 1.0};
};

// Two steps a round, so that fewer additions wait for the one before.
inline Tristimulus WeightedSums::plainSums(const double* weighted_samples) const {
  constexpr std::size_t kRound = 2 * kLanes;
  const double* const x = weightsX_.data();
  const double* const y = weightsY_.data();
  const double* const z = weightsZ_.data();
  Lanes x1{}, y1{}, z1{}, x2{}, y2{}, z2{};
  std::size_t i = 0;
  for (; i + kRound <= weightsX_.size(); i += kRound) {
    const Lanes first = loadLanes(weighted_samples + i);
    x1 += first * loadLanes(x + i);
    y1 += first * loadLanes(y + i);
    z1 += first * loadLanes(z + i);
    const Lanes second = loadLanes(weighted_samples + i + kLanes);
    x2 += second * loadLanes(x + i + kLanes);
    y2 += second * loadLanes(y + i + kLanes);
    z2 += second * loadLanes(z + i + kLanes);
  }
  x1 += x2;
  y1 += y2;
  z1 += z2;
  Tristimulus sums = {x1[0] + x1[1], y1[0] + y1[1], z1[0] + z1[1]};
  for (; i < weightsX_.size(); ++i) {
    sums.x += weighted_samples[i] * x[i];
    sums.y += weighted_samples[i] * y[i];
    sums.z += weighted_samples[i] * z[i];
  }
  return sums;
}

inline Tristimulus WeightedSums::fractionsOf(const double* spectrum) const {
  const Tristimulus sums = plainSums(spectrum + first_);
  return {sums.x / divisor_.x, sums.y / divisor_.y, sums.z / divisor_.z};
}

}  // namespace vantor::ColorTypes::Spectral

#endif  // MEASDATA_COLORTYPES_SPECTRAL_WEIGHTED_SUMS_H
