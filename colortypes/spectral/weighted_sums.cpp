#include "colortypes/spectral/weighted_sums.h"

namespace vantor::ColorTypes::Spectral {

void WeightedSums::normalise(double white_value, const Tristimulus& white) {
  divisor_ = plainSums(white_value);
  factor_ = white;
}

void WeightedSums::divideBy(double divisor) {
  divisor_ = {divisor, divisor, divisor};
  factor_ = {1.0, 1.0, 1.0};
}

Tristimulus WeightedSums::plainSums(double value) const {
  return plainSums(std::vector<double>(weightsX_.size(), value).data());
}

Tristimulus WeightedSums::plainSums(const double* spectrum) const {
  Tristimulus sums = {0.0, 0.0, 0.0};
  for (std::size_t i = 0; i < weightsX_.size(); ++i) {
    sums.x += spectrum[i] * weightsX_[i];
    sums.y += spectrum[i] * weightsY_[i];
    sums.z += spectrum[i] * weightsZ_[i];
  }
  return sums;
}

Tristimulus WeightedSums::xyzOf(const double* spectrum) const {
  const Tristimulus sums = plainSums(spectrum);
  return {sums.x / divisor_.x * factor_.x, sums.y / divisor_.y * factor_.y,
          sums.z / divisor_.z * factor_.z};
}

}  // namespace vantor::ColorTypes::Spectral
