#include "kit/colour/tone_value.h"

#include "colortypes/conversions.h"

#include <array>
#include <cmath>

namespace measkit {
namespace {

// V for X, Y and Z, from Lab without a detour: L* = 116 f(Y/Yn) - 16, a* = 500 (f(X) - f(Y)), b* =
// 200 (f(Y) - f(Z)).
std::array<double, 3> v_of(const Lab& lab) {
  return {lab.l + 116.0 / 500.0 * lab.a, lab.l, lab.l - 116.0 / 200.0 * lab.b};
}

double squared_distance(const Lab& first, const Lab& second) {
  const std::array<double, 3> v1 = v_of(first), v2 = v_of(second);
  double sum = 0.0;
  for (std::size_t i = 0; i < v1.size(); ++i) sum += (v1[i] - v2[i]) * (v1[i] - v2[i]);
  return sum;
}

}  // namespace

double tone_value(double paper, double tint, double solid) {
  return 100.0 * (paper - tint) / (paper - solid);
}

double spot_colour_tone_value(const Lab& paper, const Lab& tint, const Lab& solid) {
  return 100.0 * std::sqrt(squared_distance(tint, paper) / squared_distance(solid, paper));
}

XyzComponent component_of_ink(std::string_view device_set, std::size_t channel,
                              std::string_view name) {
  constexpr std::array<XyzComponent, 4> kComponents = {&Tristimulus::x, &Tristimulus::y,
                                                       &Tristimulus::z, &Tristimulus::y};
  constexpr std::array<std::string_view, 4> kNames = {"Cyan", "Magenta", "Yellow", "Black"};
  if (device_set == "GRAY") return &Tristimulus::y;
  const bool is_known = device_set == "CMYK" || device_set == "CMY";
  if (is_known && channel < kComponents.size()) return kComponents[channel];
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (name == kNames[i]) return kComponents[i];
  }
  return nullptr;
}

ToneValue tone_of(const Lab& paper, const Lab& tint, const Lab& solid, XyzComponent component) {
  ToneValue tone;
  tone.spot = spot_colour_tone_value(paper, tint, solid);
  if (component == nullptr) return tone;
  const auto of = [component](const Lab& lab) {
    return vantor::ColorTypes::labToXyz(lab, vantor::ColorTypes::kD50White).*component;
  };
  tone.value = tone_value(of(paper), of(tint), of(solid));
  return tone;
}

}  // namespace measkit
