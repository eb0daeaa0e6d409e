// Numbers that are calculated with at once.
#ifndef MEASDATA_COLORTYPES_LANES_H
#define MEASDATA_COLORTYPES_LANES_H

#include <cstddef>
#include <cstring>

namespace vantor::ColorTypes {

/// Two fit a register of every 64-bit processor.
inline constexpr std::size_t kLanes = 2;

#if defined(__GNUC__)

/// Sums, differences and products work lane by lane.
using Lanes = double __attribute__((vector_size(kLanes * sizeof(double))));

/// Of each lane the larger; the second where the first is no number.
inline Lanes largerOf(Lanes a, Lanes b) { return a > b ? a : b; }

#else

struct Lanes {
  double values[kLanes] = {};

  Lanes() = default;
  Lanes(double value) {  // NOLINT(google-explicit-constructor): numbers mix with lanes
    for (double& lane : values) lane = value;
  }
  Lanes(double first, double second) : values{first, second} {}
  double operator[](std::size_t lane) const { return values[lane]; }
  friend Lanes operator+(Lanes a, const Lanes& b) {
    for (std::size_t i = 0; i < kLanes; ++i) a.values[i] += b.values[i];
    return a;
  }
  friend Lanes operator-(Lanes a, const Lanes& b) {
    for (std::size_t i = 0; i < kLanes; ++i) a.values[i] -= b.values[i];
    return a;
  }
  friend Lanes operator*(Lanes a, const Lanes& b) {
    for (std::size_t i = 0; i < kLanes; ++i) a.values[i] *= b.values[i];
    return a;
  }
  Lanes& operator+=(const Lanes& other) { return *this = *this + other; }
};

inline Lanes largerOf(Lanes a, const Lanes& b) {
  for (std::size_t i = 0; i < kLanes; ++i) a.values[i] = a[i] > b[i] ? a[i] : b[i];
  return a;
}

#endif

inline Lanes loadLanes(const double* numbers) {
  Lanes lanes;
  std::memcpy(&lanes, numbers, sizeof lanes);
  return lanes;
}

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_LANES_H
