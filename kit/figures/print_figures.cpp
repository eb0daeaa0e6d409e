#include "kit/figures/print_figures.h"

#include "colortypes/conversions.h"
#include "kit/chart/device_space.h"
#include "kit/figures/grey_balance.h"
#include "kit/figures/merged_lab.h"
#include "kit/preflight/lab_columns.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace measkit {
namespace {

// Black over the colours is black, whatever they are.
bool holds_black(const Chart& chart, std::span<const double> device) {
  return chart.device_set == "CMYK" && device[3] != 0.0;
}

std::ptrdiff_t inks_of(std::span<const double> device) {
  return std::ssize(device) - std::ranges::count(device, 0.0);
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
    if (inks_of(device) > kMostInks || !space.is_overprint(device) || holds_black(chart, device))
      continue;
    if (merged_lab(chart, i)) overprints.push_back({name_of_overprint(chart, device), i});
  }
  std::ranges::stable_sort(overprints, {}, [&chart](const NamedPatch& patch) {
    return inks_of(chart.merged.device.row(patch.index));
  });
  return overprints;
}

// The file's own XYZ go before Lab that were not computed from spectra: both are rounded, and files
// exist whose Lab and XYZ disagree.
bool takes_xyz(const Chart& chart) {
  return !chart.xyz.empty() && !chart.is_display &&
         chart.lab_source != LabSource::weighting_table &&
         chart.lab_source != LabSource::integration;
}

std::optional<Lab> tone_lab(const Chart& chart, std::size_t index) {
  const auto lab = merged_lab(chart, index);
  if (!lab) return std::nullopt;
  if (!takes_xyz(chart)) return Lab{(*lab)[0], (*lab)[1], (*lab)[2]};
  Tristimulus mean{};
  const auto patches = chart.merged.patches_of(index);
  const auto share = 1.0 / static_cast<double>(patches.size());
  for (const std::uint32_t patch : patches) {
    const Triple xyz = triple_at(chart.xyz, patch);
    mean.x += share * xyz[0];
    mean.y += share * xyz[1];
    mean.z += share * xyz[2];
  }
  const Lab own = vantor::ColorTypes::xyzToLab(
      mean, white_of(chart.conditions.illuminant, chart.conditions.observer));
  return std::isfinite(own.l + own.a + own.b) ? std::optional(own) : std::nullopt;
}

// The library knows solids at 100 alone.
std::optional<std::size_t> solid_of(const Chart& chart, const DeviceSpace& space,
                                    std::size_t channel) {
  const Channel& ink = chart.channels[channel];
  const auto is_full = [&](std::size_t index) {
    return space.is_full(chart.merged.device.row(index)[channel]);
  };
  if (ink.solid && is_full(*ink.solid)) return ink.solid;
  return ink.wedge.empty() || !is_full(ink.wedge.back()) ? std::nullopt
                                                         : std::optional(ink.wedge.back());
}

std::optional<InkCurve> curve_of(const Chart& chart, const DeviceSpace& space,
                                 std::size_t channel) {
  const auto index_of_solid = solid_of(chart, space, channel);
  const auto paper = tone_lab(chart, *chart.paper_white);
  const auto solid = index_of_solid ? tone_lab(chart, *index_of_solid) : std::nullopt;
  if (!paper || !solid) return std::nullopt;
  InkCurve curve = {channel, {}};
  const XyzComponent component =
      component_of_ink(chart.device_set, channel, chart.channels[channel].name);
  for (const std::size_t index : chart.channels[channel].wedge) {
    const auto tint = tone_lab(chart, index);
    const double nominal = 100.0 * chart.merged.device.row(index)[channel] / space.full();
    if (!tint || !(nominal > 0.0 && nominal <= 100.0)) continue;
    const ToneValue tone = tone_of(*paper, *tint, *solid, component);
    if (std::isfinite(tone.usual())) curve.steps.push_back({nominal, index, tone});
  }
  return curve.steps.empty() ? std::nullopt : std::optional(std::move(curve));
}

// Twice the area of the triangle: positive for a turn to the left.
double turn(const Triple& first, const Triple& second, const Triple& third) {
  return (second[1] - first[1]) * (third[2] - first[2]) -
         (second[2] - first[2]) * (third[1] - first[1]);
}

// The convex hull in a* and b*, by Andrew's monotone chain: lower side, then upper side.
std::vector<NamedPatch> hull_of(const Chart& chart, std::vector<NamedPatch> corners) {
  const auto lab_of = [&chart](const NamedPatch& corner) {
    return *merged_lab(chart, corner.index);
  };
  std::ranges::sort(corners, {}, [&](const NamedPatch& corner) {
    const Triple lab = lab_of(corner);
    return std::pair(lab[1], lab[2]);
  });
  std::vector<NamedPatch> hull;
  for (int side = 0; side < 2; ++side) {
    const std::size_t start = hull.size() + 1;
    for (const NamedPatch& corner : corners) {
      while (hull.size() > start &&
             turn(lab_of(hull[hull.size() - 2]), lab_of(hull.back()), lab_of(corner)) <= 0.0) {
        hull.pop_back();
      }
      hull.push_back(corner);
    }
    if (!hull.empty()) hull.pop_back();  // the first of the other side
    std::ranges::reverse(corners);
  }
  return hull;
}

std::vector<NamedPatch> outline_of(const Chart& chart, const PrintFigures& figures) {
  std::vector<NamedPatch> corners;
  for (const Landmark& landmark : chart.landmarks) {
    const bool is_corner = landmark.kind == LandmarkKind::primary ||
                           landmark.kind == LandmarkKind::secondary ||
                           landmark.kind == LandmarkKind::solid;
    if (is_corner && merged_lab(chart, landmark.index)) {
      corners.push_back({landmark.name, landmark.index});
    }
  }
  corners.insert(corners.end(), figures.overprints.begin(), figures.overprints.end());
  std::vector<NamedPatch> hull = hull_of(chart, std::move(corners));
  constexpr std::size_t kLeastCorners = 3;
  if (hull.size() < kLeastCorners) hull.clear();
  return hull;
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
