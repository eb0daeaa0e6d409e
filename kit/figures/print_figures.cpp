#include "kit/figures/print_figures.h"

#include "kit/chart/device_space.h"
#include "kit/figures/grey_balance.h"
#include "kit/figures/merged_lab.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace measkit {
namespace {

// Black over the colours is black, whatever they are.
bool holds_black(const Chart& chart, std::span<const double> device) {
  return chart.device_set == "CMYK" && device[3] != 0.0;
}

std::string name_of_overprint(const Chart& chart, std::span<const double> device) {
  std::string name;
  for (std::size_t channel = 0; channel < device.size(); ++channel) {
    if (device[channel] == 0.0) continue;
    name += (name.empty() ? "" : " + ") + chart.channels[channel].name;
  }
  return name;
}

std::vector<NamedPatch> overprints_of(const Chart& chart, const DeviceSpace& space) {
  constexpr std::ptrdiff_t kMostInks = 3;
  constexpr std::size_t kMostOverprints = 60;  // charts of 15 inks may hold all 560
  std::vector<NamedPatch> overprints;
  for (std::size_t i = 0; i < chart.merged.count && overprints.size() < kMostOverprints; ++i) {
    const std::span<const double> device = chart.merged.device.row(i);
    const std::ptrdiff_t unused = std::ranges::count(device, 0.0);
    const bool has_few_inks = std::ssize(device) - unused <= kMostInks;
    if (!has_few_inks || !space.is_overprint(device) || holds_black(chart, device)) continue;
    if (merged_lab(chart, i)) overprints.push_back({name_of_overprint(chart, device), i});
  }
  const auto inks = [&chart](const NamedPatch& patch) {
    return std::ranges::count_if(chart.merged.device.row(patch.index),
                                 [](double value) { return value != 0.0; });
  };
  std::ranges::stable_sort(overprints, {}, inks);
  return overprints;
}

Lab as_lab(const Triple& lab) { return {lab[0], lab[1], lab[2]}; }

std::optional<InkCurve> curve_of(const Chart& chart, const DeviceSpace& space,
                                 std::size_t channel) {
  const Channel& ink = chart.channels[channel];
  const auto paper = merged_lab(chart, *chart.paper_white);
  const auto solid = ink.solid ? merged_lab(chart, *ink.solid) : std::nullopt;
  if (!paper || !solid || !space.is_full(chart.merged.device.row(*ink.solid)[channel])) {
    return std::nullopt;
  }
  InkCurve curve = {channel, {}};
  const XyzComponent component = component_of_ink(chart.device_set, channel);
  for (const std::size_t index : ink.wedge) {
    const auto tint = merged_lab(chart, index);
    const double nominal = 100.0 * chart.merged.device.row(index)[channel] / space.full();
    if (!tint || !(nominal <= 100.0)) continue;
    const ToneValue tone = tone_of(as_lab(*paper), as_lab(*tint), as_lab(*solid), component);
    if (std::isfinite(tone.usual())) curve.steps.push_back({nominal, index, tone});
  }
  return curve.steps.empty() ? std::nullopt : std::optional(std::move(curve));
}

double hue_of(const Triple& lab) { return std::atan2(lab[2], lab[1]); }

// Solids and overprints of two; black is not at the edge.
std::vector<NamedPatch> outline_of(const Chart& chart, const PrintFigures& figures) {
  std::vector<NamedPatch> corners;
  for (const Landmark& landmark : chart.landmarks) {
    const bool is_corner = landmark.kind == LandmarkKind::primary ||
                           landmark.kind == LandmarkKind::secondary ||
                           landmark.kind == LandmarkKind::solid;
    const bool is_black =
        !chart.is_rgb && holds_black(chart, chart.merged.device.row(landmark.index));
    if (is_corner && !is_black && merged_lab(chart, landmark.index)) {
      corners.push_back({landmark.name, landmark.index});
    }
  }
  for (const NamedPatch& overprint : figures.overprints) {
    if (std::ranges::count(overprint.name, '+') == 1) corners.push_back(overprint);
  }
  std::ranges::sort(corners, {}, [&](const NamedPatch& corner) {
    return hue_of(*merged_lab(chart, corner.index));
  });
  constexpr std::size_t kLeastCorners = 3;
  if (corners.size() < kLeastCorners) corners.clear();
  return corners;
}

std::optional<std::size_t> darkest_of(const Chart& chart) {
  std::optional<std::size_t> darkest;
  double least = 0.0;
  for (std::size_t i = 0; i < chart.merged.count; ++i) {
    const auto lab = merged_lab(chart, i);
    if (!lab || (darkest && (*lab)[0] >= least)) continue;
    darkest = i;
    least = (*lab)[0];
  }
  return darkest;
}

void add_total_ink(PrintFigures& figures, const Chart& chart, const DeviceSpace& space) {
  if (space.full() == 0.0) return;
  for (std::size_t i = 0; i < chart.merged.count; ++i) {
    const std::span<const double> device = chart.merged.device.row(i);
    const double total = 100.0 / space.full() * std::accumulate(device.begin(), device.end(), 0.0);
    if (!std::isfinite(total) || (figures.most_ink && total <= figures.total_ink)) continue;
    figures.most_ink = i;
    figures.total_ink = total;
  }
}

}  // namespace

PrintFigures print_figures_of(const Chart& chart) {
  PrintFigures figures;
  if (chart.merged.count == 0 || chart.merged.device.empty()) return figures;
  const DeviceSpace space(chart);
  if (!chart.is_rgb) {
    figures.overprints = overprints_of(chart, space);
    add_total_ink(figures, chart, space);
    if (chart.paper_white) {
      for (std::size_t channel = 0; channel < chart.channels.size(); ++channel) {
        auto curve = curve_of(chart, space, channel);
        if (curve) figures.curves.push_back(*std::move(curve));
      }
      figures.greys = grey_balance_of(chart, space);
    }
  }
  figures.outline = outline_of(chart, figures);
  figures.darkest = darkest_of(chart);
  return figures;
}

}  // namespace measkit
