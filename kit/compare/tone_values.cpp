#include "kit/compare/tone_values.h"

#include "colortypes/conversions.h"
#include "kit/compare/colour_groups.h"
#include "kit/preflight/device_columns.h"

#include <algorithm>
#include <cmath>

namespace measkit {
namespace {

using vantor::ColorTypes::kD50White;
using vantor::ColorTypes::Tristimulus;

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

// Which of X, Y and Z an ink absorbs most: by the letter of its field, CMYK and CMY only.
double Tristimulus::*component_of(const Chart& chart, std::size_t channel) {
  if (chart.device_set != "CMYK" && chart.device_set != "CMY") return nullptr;
  constexpr std::array<double Tristimulus::*, 4> kComponents = {&Tristimulus::x, &Tristimulus::y,
                                                                &Tristimulus::z, &Tristimulus::y};
  return kComponents[channel];
}

ToneValue tone_of(const Lab& paper, const Lab& tint, const Lab& solid,
                  double Tristimulus::*component) {
  ToneValue tone;
  tone.spot = spot_colour_tone_value(paper, tint, solid);
  if (component == nullptr) return tone;
  const auto of = [component](const Lab& lab) {
    return vantor::ColorTypes::labToXyz(lab, kD50White).*component;
  };
  tone.value = tone_value(of(paper), of(tint), of(solid));
  return tone;
}

struct Step {
  double value;
  std::size_t pair;
};

bool is_measured(const Lab& lab) { return !std::isnan(lab.l + lab.a + lab.b); }

}  // namespace

double tone_value(double paper, double tint, double solid) {
  return 100.0 * (paper - tint) / (paper - solid);
}

double spot_colour_tone_value(const Lab& paper, const Lab& tint, const Lab& solid) {
  return 100.0 * std::sqrt(squared_distance(tint, paper) / squared_distance(solid, paper));
}

std::vector<WedgeTones> wedge_tones(const Matching& matching, const AveragedSide& reference,
                                    const AveragedSide& sample) {
  const AveragedSide* const side = side_with_device(reference, sample);
  if (side == nullptr || side->chart().is_rgb) return {};
  const Chart& chart = side->chart();
  const DeviceSpace space(chart);
  std::vector<std::vector<Step>> wedges(chart.device.width());
  std::optional<std::size_t> paper;
  double full = 0.0;
  for (std::size_t pair = 0; pair < matching.pairs.size(); ++pair) {
    const auto [first, second] = matching.pairs[pair];
    if (!is_measured(reference.lab(first)) || !is_measured(sample.lab(second))) continue;
    const auto device = chart.device.row(side->first_patch(side == &reference ? first : second));
    if (space.is_paper(device) && !paper) paper = pair;
    if (!DeviceSpace::is_wedge(device)) continue;
    const auto channel = std::ranges::find_if(device, [](double value) { return value != 0.0; });
    wedges[static_cast<std::size_t>(channel - device.begin())].push_back({*channel, pair});
    if (space.is_solid(device)) full = *channel;
  }
  std::vector<WedgeTones> tones;
  if (!paper || full == 0.0) return tones;
  for (std::size_t channel = 0; channel < wedges.size(); ++channel) {
    std::vector<Step>& steps = wedges[channel];
    std::ranges::stable_sort(steps, {}, &Step::value);
    if (steps.empty() || std::abs(steps.back().value - full) > 1e-6 * full) continue;
    WedgeTones wedge{chart.channels[channel].name, channel, {}};
    const auto component = component_of(chart, channel);
    const auto tone_in = [&](const AveragedSide& of, auto group_of, std::size_t pair) {
      return tone_of(of.lab(group_of(*paper)), of.lab(group_of(pair)),
                     of.lab(group_of(steps.back().pair)), component);
    };
    const auto first_of = [&](std::size_t pair) { return matching.pairs[pair].first; };
    const auto second_of = [&](std::size_t pair) { return matching.pairs[pair].second; };
    for (const Step& step : steps) {
      wedge.steps.push_back({100.0 * step.value / full, step.pair,
                             tone_in(reference, first_of, step.pair),
                             tone_in(sample, second_of, step.pair)});
    }
    tones.push_back(std::move(wedge));
  }
  return tones;
}

}  // namespace measkit
