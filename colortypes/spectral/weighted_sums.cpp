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

Tristimulus WeightedSums::xyzOf(const double* spectrum) const {
  const Tristimulus fractions = fractionsOf(spectrum);
  return {fractions.x * factor_.x, fractions.y * factor_.y, fractions.z * factor_.z};
}

}  // namespace vantor::ColorTypes::Spectral
