#include "kit/figures/neutral_ramp.h"

#include "colortypes/conversions.h"
#include "kit/figures/merged_lab.h"

#include <algorithm>
#include <cmath>

namespace measkit {
namespace {

double luminance_of(const Triple& lab) {
  return vantor::ColorTypes::labToXyz({lab[0], lab[1], lab[2]}, vantor::ColorTypes::kD50White).y;
}

// Through the point of white. Shadows and lights say little: noise and rounding rule there.
std::optional<double> gamma_of(const std::vector<RampStep>& steps) {
  constexpr double kLeast = 0.1, kMost = 0.95;
  constexpr int kFewestSteps = 3;
  double products = 0.0, squares = 0.0;
  int count = 0;
  for (const RampStep& step : steps) {
    if (step.device < kLeast || step.device > kMost || step.luminance <= 0.0) continue;
    const double x = std::log(step.device);
    products += x * std::log(step.luminance);
    squares += x * x;
    ++count;
  }
  return count < kFewestSteps ? std::nullopt : std::optional(products / squares);
}

}  // namespace

NeutralRamp neutral_ramp_of(const Chart& chart) {
  NeutralRamp ramp;
  if (!chart.is_rgb || chart.full_scale <= 0.0) return ramp;
  for (std::size_t i = 0; i < chart.merged.count; ++i) {
    const auto device = chart.merged.device.row(i);
    const bool is_neutral = device[0] == device[1] && device[1] == device[2];
    const auto lab = merged_lab(chart, i);
    if (is_neutral && lab) {
      ramp.steps.push_back({device[0] / chart.full_scale, luminance_of(*lab), i});
    }
  }
  std::ranges::sort(ramp.steps, {}, &RampStep::device);
  const auto reaches_ends = [](const std::vector<RampStep>& steps) {
    return steps.size() > 2 && steps.front().device == 0.0 && steps.back().device == 1.0 &&
           steps.back().luminance > steps.front().luminance;
  };
  if (!reaches_ends(ramp.steps)) return {};
  const double black = ramp.steps.front().luminance, white = ramp.steps.back().luminance;
  for (RampStep& step : ramp.steps) step.luminance = (step.luminance - black) / (white - black);
  ramp.gamma = gamma_of(ramp.steps);
  return ramp;
}

}  // namespace measkit
