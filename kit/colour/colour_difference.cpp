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

// The mean of two hue angles on the shorter arc; their sum when one colour is neutral.
double mean_hue(double first, double second, bool is_neutral) {
  if (is_neutral) return first + second;
  if (std::abs(first - second) <= 180.0) return (first + second) / 2.0;
  return (first + second + (first + second < 360.0 ? 360.0 : -360.0)) / 2.0;
}

double hue_difference(double from, double to) {
  const double difference = to - from;
  if (difference > 180.0) return difference - 360.0;
  return difference < -180.0 ? difference + 360.0 : difference;
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
  const double h1 = hue_of(a1, reference.b), h2 = hue_of(a2, sample.b);
  const bool is_neutral = c1 * c2 == 0.0;

  const double lightness = sample.l - reference.l;
  const double chroma = c2 - c1;
  const double hue_step = is_neutral ? 0.0 : hue_difference(h1, h2);
  const double hue = 2.0 * std::sqrt(c1 * c2) * std::sin(hue_step / 2.0 * kRadians);

  const double l = (reference.l + sample.l) / 2.0;
  const double c = (c1 + c2) / 2.0;
  const double h = mean_hue(h1, h2, is_neutral);
  const double t = 1.0 - 0.17 * cosine(h - 30.0) + 0.24 * cosine(2.0 * h) +
                   0.32 * cosine(3.0 * h + 6.0) - 0.20 * cosine(4.0 * h - 63.0);
  const double from_middle = square(l - 50.0);
  const double lightness_weight = 1.0 + 0.015 * from_middle / std::sqrt(20.0 + from_middle);
  const double chroma_weight = 1.0 + 0.045 * c;
  const double hue_weight = 1.0 + 0.015 * c * t;
  const double turn = 60.0 * std::exp(-square((h - 275.0) / 25.0));  // degrees, about blue
  const double rotation = -std::sin(turn * kRadians) * 2.0 * share_of_chroma(c);

  const double dl = lightness / lightness_weight;
  const double dc = chroma / chroma_weight;
  const double dh = hue / hue_weight;
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
