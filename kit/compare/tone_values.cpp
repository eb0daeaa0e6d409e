#include "kit/compare/tone_values.h"

#include "kit/chart/device_space.h"
#include "kit/compare/colour_groups.h"

#include <algorithm>
#include <cmath>

namespace measkit {
namespace {

struct Step {
  double value;
  std::size_t pair;
};

bool is_measured(const Lab& lab) { return !std::isnan(lab.l + lab.a + lab.b); }

}  // namespace

std::vector<WedgeTones> wedge_tones(const Matching& matching, const AveragedSide& reference,
                                    const AveragedSide& sample) {
  const AveragedSide* const side = side_with_device(reference, sample);
  if (side == nullptr || side->chart().is_rgb) return {};
  const Chart& chart = side->chart();
  const DeviceSpace space(chart);
  std::vector<std::vector<Step>> wedges(chart.device.width());
  std::optional<std::size_t> paper;
  for (std::size_t pair = 0; pair < matching.pairs.size(); ++pair) {
    const auto [first, second] = matching.pairs[pair];
    if (!is_measured(reference.lab(first)) || !is_measured(sample.lab(second))) continue;
    const auto device = chart.device.row(side->first_patch(side == &reference ? first : second));
    if (space.is_paper(device) && !paper) paper = pair;
    if (!DeviceSpace::is_wedge(device)) continue;
    const auto channel = std::ranges::find_if(device, [](double value) { return value != 0.0; });
    wedges[static_cast<std::size_t>(channel - device.begin())].push_back({*channel, pair});
  }
  std::vector<WedgeTones> tones;
  if (!paper || space.full() == 0.0) return tones;
  for (std::size_t channel = 0; channel < wedges.size(); ++channel) {
    std::vector<Step>& steps = wedges[channel];
    std::ranges::stable_sort(steps, {}, &Step::value);
    if (steps.empty() || !space.is_full(steps.back().value)) continue;
    WedgeTones wedge{chart.channels[channel].name, channel, {}};
    const auto component = component_of_ink(chart.device_set, channel, wedge.ink);
    const auto tone_in = [&](const AveragedSide& of, auto group_of, std::size_t pair) {
      return tone_of(of.lab(group_of(*paper)), of.lab(group_of(pair)),
                     of.lab(group_of(steps.back().pair)), component);
    };
    const auto first_of = [&](std::size_t pair) { return matching.pairs[pair].first; };
    const auto second_of = [&](std::size_t pair) { return matching.pairs[pair].second; };
    for (const Step& step : steps) {
      wedge.steps.push_back({100.0 * step.value / space.full(), step.pair,
                             tone_in(reference, first_of, step.pair),
                             tone_in(sample, second_of, step.pair)});
    }
    tones.push_back(std::move(wedge));
  }
  return tones;
}

}  // namespace measkit
