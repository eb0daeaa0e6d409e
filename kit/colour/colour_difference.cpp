#include "kit/colour/colour_difference.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace measkit {
namespace {

constexpr double kRadians = std::numbers::pi / 180.0;

double square(double value) { return value * value; }

double hypotenuse(double a, double b) { return std::sqrt(a * a + b * b); }

// The hue angle in degrees, 0 to below 360; 0 for neutral colours.
double hue_of(double a, double b) {
  const double degrees = std::atan2(b, a) / kRadians;
  return degrees < 0.0 ? degrees + 360.0 : degrees;
}

double cosine(double degrees) { return std::cos(degrees * kRadians); }

// The weight of chroma in CIEDE2000 grows from 0 to 1 about C* = 25.
double share_of_chroma(double chroma) {
  constexpr double kPower = 6103515625.0;  // 25 to the power of 7
  const double third = chroma * chroma * chroma;
  const double seventh = third * third * chroma;
  return std::sqrt(seventh / (seventh + kPower));
}

// How two hues of CIEDE2000 lie to each other.
struct Hues {
  double cosine, sine;  ///< of the mean hue angle
  double difference;    ///< Delta H'
};

// By the angles themselves: for opposite hues, whose mean is a matter of definition.
Hues opposite_hues(double a1, double b1, double a2, double b2, double product) {
  const double h1 = hue_of(a1, b1), h2 = hue_of(a2, b2);
  const bool is_far = std::abs(h1 - h2) > 180.0;
  const double mean = (h1 + h2 + (!is_far ? 0.0 : h1 + h2 < 360.0 ? 360.0 : -360.0)) / 2.0;
  const double step = h2 - h1 + (!is_far ? 0.0 : h2 > h1 ? -360.0 : 360.0);
  return {cosine(mean), std::sin(mean * kRadians),
          2.0 * std::sqrt(product) * std::sin(step / 2.0 * kRadians)};
}

// By products of the components, which take no angle. `product` is that of the chromas.
Hues hues_of(double a1, double b1, double a2, double b2, double c1, double c2) {
  const double product = c1 * c2;
  // The mean of two unit vectors points to the mean angle on the shorter arc. A neutral colour has
  // no hue: the other's counts.
  const double x = product == 0.0 ? a1 + a2 : a1 * c2 + a2 * c1;
  const double y = product == 0.0 ? b1 + b2 : b1 * c2 + b2 * c1;
  const double length = hypotenuse(x, y);
  if (product == 0.0)
    return length == 0.0 ? Hues{1.0, 0.0, 0.0} : Hues{x / length, y / length, 0.0};
  constexpr double kNearlyOpposite = 1e-9;
  if (length <= kNearlyOpposite * product) return opposite_hues(a1, b1, a2, b2, product);
  const double along = a1 * a2 + b1 * b2;
  const double across = a1 * b2 - b1 * a2;
  // Both are 2 sqrt(product) sin(step / 2); each is exact where the other cancels.
  const double step = along >= 0.0 ? across / std::sqrt((product + along) / 2.0)
                                   : std::copysign(std::sqrt(2.0 * (product - along)), across);
  return {x / length, y / length, step};
}

// The weight of hue, T. cos n h and sin n h follow from cos h and sin h.
double hue_term(double c, double s) {
  constexpr double kCos30 = 0.86602540378443865, kSin30 = 0.5;
  constexpr double kCos6 = 0.99452189536827333, kSin6 = 0.10452846326765347;
  constexpr double kCos63 = 0.45399049973954675, kSin63 = 0.89100652418836786;
  const double c2 = c * c - s * s, s2 = 2.0 * s * c;
  const double c3 = c2 * c - s2 * s, s3 = s2 * c + c2 * s;
  const double c4 = c2 * c2 - s2 * s2, s4 = 2.0 * s2 * c2;
  return 1.0 - 0.17 * (c * kCos30 + s * kSin30) + 0.24 * c2 + 0.32 * (c3 * kCos6 - s3 * kSin6) -
         0.20 * (c4 * kCos63 + s4 * kSin63);
}

// Weights of the three differences in a formula.
double weighted(const ComponentDifferences& d, double lightness, double chroma, double hue) {
  return std::sqrt(square(d.lightness / lightness) + square(d.chroma / chroma) +
                   square(d.hue / hue));
}

}  // namespace

double chroma_of(const Lab& lab) { return hypotenuse(lab.a, lab.b); }

ComponentDifferences component_differences(const Lab& reference, const Lab& sample) {
  const double a = sample.a - reference.a;
  const double b = sample.b - reference.b;
  const double chroma = chroma_of(sample) - chroma_of(reference);
  const double hue = std::sqrt(std::max(0.0, a * a + b * b - chroma * chroma));
  const double turn = reference.a * sample.b - reference.b * sample.a;
  return {sample.l - reference.l, a, b, chroma, turn < 0.0 ? -hue : hue};
}

double delta_e_76(const Lab& reference, const Lab& sample) {
  return std::sqrt(square(sample.l - reference.l) + square(sample.a - reference.a) +
                   square(sample.b - reference.b));
}

double delta_e_94(const Lab& reference, const Lab& sample) {
  const double chroma = chroma_of(reference);
  return weighted(component_differences(reference, sample), 1.0, 1.0 + 0.045 * chroma,
                  1.0 + 0.015 * chroma);
}

// In the notation of Sharma, Wu and Dalal, "The CIEDE2000 color-difference formula: Implementation
// notes", Color Research and Application 30 (2005).
double delta_e_2000(const Lab& reference, const Lab& sample) {
  const double mean_chroma = (chroma_of(reference) + chroma_of(sample)) / 2.0;
  const double stretch = 1.5 - 0.5 * share_of_chroma(mean_chroma);
  const double a1 = reference.a * stretch, a2 = sample.a * stretch;
  const double c1 = hypotenuse(a1, reference.b), c2 = hypotenuse(a2, sample.b);
  const Hues hues = hues_of(a1, reference.b, a2, sample.b, c1, c2);
  const double l = (reference.l + sample.l) / 2.0;
  const double c = (c1 + c2) / 2.0;
  const double h = hue_of(hues.cosine, hues.sine);
  const double t = hue_term(hues.cosine, hues.sine);
  const double from_middle = square(l - 50.0);
  const double lightness_weight = 1.0 + 0.015 * from_middle / std::sqrt(20.0 + from_middle);
  const double chroma_weight = 1.0 + 0.045 * c;
  const double hue_weight = 1.0 + 0.015 * c * t;
  const double turn = 60.0 * std::exp(-square((h - 275.0) / 25.0));  // degrees, about blue
  const double rotation = -std::sin(turn * kRadians) * 2.0 * share_of_chroma(c);

  const double dl = (sample.l - reference.l) / lightness_weight;
  const double dc = (c2 - c1) / chroma_weight;
  const double dh = hues.difference / hue_weight;
  return std::sqrt(std::max(0.0, dl * dl + dc * dc + dh * dh + rotation * dc * dh));
}

double delta_e_cmc(const Lab& reference, const Lab& sample, double lightness, double chroma) {
  const double c = chroma_of(reference);
  const double h = hue_of(reference.a, reference.b);
  const double lightness_weight =
      reference.l < 16.0 ? 0.511 : 0.040975 * reference.l / (1.0 + 0.01765 * reference.l);
  const double chroma_weight = 0.0638 * c / (1.0 + 0.0131 * c) + 0.638;
  const double f = std::sqrt(square(square(c)) / (square(square(c)) + 1900.0));
  const double t = h >= 164.0 && h <= 345.0 ? 0.56 + std::abs(0.2 * cosine(h + 168.0))
                                            : 0.36 + std::abs(0.4 * cosine(h + 35.0));
  const double hue_weight = chroma_weight * (f * t + 1.0 - f);
  return weighted(component_differences(reference, sample), lightness * lightness_weight,
                  chroma * chroma_weight, hue_weight);
}

}  // namespace measkit
