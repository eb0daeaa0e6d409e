#include "kit/colour/adaptation.h"

#include <array>

namespace measkit {
namespace {

using Row = std::array<double, 3>;
using Matrix = std::array<Row, 3>;

// From XYZ to the sharpened cone responses (K. M. Lam, 1985).
constexpr Matrix kBradford = {
    {{0.8951, 0.2664, -0.1614}, {-0.7502, 1.7135, 0.0367}, {0.0389, -0.0685, 1.0296}}};

constexpr Matrix inverse(const Matrix& m) {
  const auto cofactor = [&m](std::size_t i, std::size_t j) {
    const std::size_t r1 = (i + 1) % 3, r2 = (i + 2) % 3;
    const std::size_t c1 = (j + 1) % 3, c2 = (j + 2) % 3;
    return m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
  };
  const double determinant =
      m[0][0] * cofactor(0, 0) + m[0][1] * cofactor(0, 1) + m[0][2] * cofactor(0, 2);
  Matrix result{};
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      result[row][column] = cofactor(column, row) / determinant;
    }
  }
  return result;
}

constexpr Matrix kFromBradford = inverse(kBradford);

Row times(const Matrix& m, const Row& v) {
  Row result{};
  for (std::size_t row = 0; row < 3; ++row) {
    result[row] = m[row][0] * v[0] + m[row][1] * v[1] + m[row][2] * v[2];
  }
  return result;
}

}  // namespace

Tristimulus adapt_bradford(const Tristimulus& xyz, const Tristimulus& from, const Tristimulus& to) {
  Row cones = times(kBradford, {xyz.x, xyz.y, xyz.z});
  const Row from_cones = times(kBradford, {from.x, from.y, from.z});
  const Row to_cones = times(kBradford, {to.x, to.y, to.z});
  for (std::size_t i = 0; i < 3; ++i) cones[i] *= to_cones[i] / from_cones[i];
  const Row result = times(kFromBradford, cones);
  return {result[0], result[1], result[2]};
}

}  // namespace measkit
