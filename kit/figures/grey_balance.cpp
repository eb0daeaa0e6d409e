#include "kit/figures/grey_balance.h"

#include "kit/figures/merged_lab.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <optional>

namespace measkit {
namespace {

// Whether cyan, magenta and yellow are all printed, and no black.
bool is_three_colour(const Chart& chart, std::span<const double> device) {
  const bool has_black = chart.device_set == "CMYK" && device[3] != 0.0;
  return !has_black && std::ranges::all_of(device.first(3), [](double v) { return v > 0.0; });
}

// The lightness of the three solids over each other, else of the darkest patch of three colours.
double lightness_of_overprint(const Chart& chart, const DeviceSpace& space,
                              std::span<const std::size_t> patches) {
  double darkest = 100.0;
  for (const std::size_t index : patches) {
    const double lightness = (*merged_lab(chart, index))[0];
    if (space.is_overprint(chart.merged.device.row(index))) return lightness;
    darkest = std::min(darkest, lightness);
  }
  return darkest;
}

// The patches by which presses are set up: quarter, middle and three-quarter tone.
bool is_balance_patch(std::span<const double> device, double full) {
  constexpr std::array<std::array<double, 3>, 3> kPercents = {
      {{25.0, 19.0, 19.0}, {50.0, 40.0, 40.0}, {75.0, 66.0, 66.0}}};
  constexpr double kTolerance = 0.5;  // percent: files round
  return std::ranges::any_of(kPercents, [&](const std::array<double, 3>& percents) {
    for (std::size_t i = 0; i < percents.size(); ++i) {
      if (std::abs(100.0 * device[i] / full - percents[i]) > kTolerance) return false;
    }
    return true;
  });
}

Triple grey_on(const Triple& paper, double lightness, double overprint) {
  constexpr double kShareLost = 0.85;
  const double share = 1.0 - kShareLost * (paper[0] - lightness) / (paper[0] - overprint);
  return {lightness, paper[1] * share, paper[2] * share};
}

}  // namespace

std::vector<GreyStep> grey_balance_of(const Chart& chart, const DeviceSpace& space) {
  constexpr double kNearNeutral = 6.0;  // Delta Ch
  constexpr std::size_t kSteps = 12;
  const auto paper = merged_lab(chart, *chart.paper_white);
  if ((chart.device_set != "CMYK" && chart.device_set != "CMY") || !paper) return {};
  std::vector<std::size_t> patches;
  for (std::size_t i = 0; i < chart.merged.count; ++i) {
    if (is_three_colour(chart, chart.merged.device.row(i)) && merged_lab(chart, i)) {
      patches.push_back(i);
    }
  }
  const double overprint = lightness_of_overprint(chart, space, patches);
  if (!(overprint < (*paper)[0])) return {};
  std::array<std::optional<GreyStep>, kSteps> nearest;
  std::vector<GreyStep> steps;
  for (const std::size_t index : patches) {
    const Triple lab = *merged_lab(chart, index);
    const double depth = ((*paper)[0] - lab[0]) / ((*paper)[0] - overprint);
    if (!(depth >= 0.0 && depth <= 1.0)) continue;
    const Triple grey = grey_on(*paper, lab[0], overprint);
    const double error = std::hypot(lab[1] - grey[1], lab[2] - grey[2]);
    if (is_balance_patch(chart.merged.device.row(index), space.full())) {
      steps.push_back({index, grey, error});
      continue;
    }
    auto& step = nearest[std::min(static_cast<std::size_t>(depth * kSteps), kSteps - 1)];
    if (error <= kNearNeutral && (!step || error < step->chroma_error)) {
      step = {index, grey, error};
    }
  }
  for (const auto& step : nearest) {
    if (step) steps.push_back(*step);
  }
  std::ranges::sort(steps, std::ranges::greater(),
                    [](const GreyStep& step) { return step.grey[0]; });
  return steps;
}

}  // namespace measkit
