#include "kit/compare/colour_groups.h"

#include "colortypes/conversions.h"
#include "kit/colour/colour_difference.h"
#include "kit/preflight/device_columns.h"

#include <algorithm>
#include <cmath>

namespace measkit {
namespace {

using vantor::ColorTypes::kD50White;
using vantor::ColorTypes::Tristimulus;

std::ptrdiff_t count_not_zero(std::span<const double> device) {
  return std::ranges::count_if(device, [](double value) { return value != 0.0; });
}

// Lab of a colour to eyes for which the paper is white.
Lab relative_to(const Tristimulus& paper, const Lab& lab) {
  const Tristimulus xyz = vantor::ColorTypes::labToXyz(lab, kD50White);
  return vantor::ColorTypes::xyzToLab(xyz, paper);
}

}  // namespace

DeviceSpace::DeviceSpace(const Chart& chart)
    : is_rgb_(chart.is_rgb),
      is_cmy_(chart.device_set == "CMY"),
      is_cmyk_(chart.device_set == "CMYK"),
      full_(chart.full_scale) {
  if (is_rgb_) return;
  double largest = 0.0;
  for (const double value : chart.device.values()) largest = std::max(largest, value);
  full_ = full_scale(largest);
}

bool DeviceSpace::is_full(double value) const {
  constexpr double kTolerance = 1e-6;  // of the scale
  return full_ > 0.0 && std::abs(value - full_) <= kTolerance * full_;
}

bool DeviceSpace::is_paper(std::span<const double> device) const {
  if (is_rgb_) return std::ranges::all_of(device, [this](double value) { return is_full(value); });
  return count_not_zero(device) == 0;
}

bool DeviceSpace::is_wedge(std::span<const double> device) { return count_not_zero(device) == 1; }

bool DeviceSpace::is_solid(std::span<const double> device) const {
  return is_wedge(device) && is_full(*std::ranges::max_element(device));
}

bool DeviceSpace::is_overprint(std::span<const double> device) const {
  return count_not_zero(device) > 1 && !is_paper(device) &&
         std::ranges::all_of(device, [this](double value) { return is_at_end(value); });
}

bool DeviceSpace::is_surface(std::span<const double> device) const {
  const auto has_end = [this](std::span<const double> values) {
    return std::ranges::any_of(values, [this](double value) { return is_at_end(value); });
  };
  if (is_rgb_ || is_cmy_) return has_end(device);
  return is_cmyk_ && device[3] == 0.0 && has_end(device.first(3));
}

const AveragedSide* side_with_device(const AveragedSide& reference, const AveragedSide& sample) {
  if (!reference.chart().device.empty()) return &reference;
  return sample.chart().device.empty() ? nullptr : &sample;
}

std::array<std::vector<std::uint32_t>, kColourGroups> colour_groups(const Matching& matching,
                                                                    const AveragedSide& reference,
                                                                    const AveragedSide& sample) {
  constexpr double kGreyChroma = 6.0;
  std::array<std::vector<std::uint32_t>, kColourGroups> groups;
  const auto add = [&groups](ColourGroup group, std::size_t pair) {
    groups[static_cast<std::size_t>(group)].push_back(static_cast<std::uint32_t>(pair));
  };
  Tristimulus paper = kD50White;
  const AveragedSide* const side = side_with_device(reference, sample);
  const DeviceSpace space(side == nullptr ? reference.chart() : side->chart());
  for (std::size_t pair = 0; pair < matching.pairs.size(); ++pair) {
    add(ColourGroup::all, pair);
    if (side == nullptr) continue;
    const auto [first, second] = matching.pairs[pair];
    const std::uint32_t group = side == &reference ? first : second;
    const std::span<const double> device = side->chart().device.row(side->first_patch(group));
    if (space.is_paper(device)) {
      add(ColourGroup::paper, pair);
      const Lab& lab = reference.lab(first);
      if (groups[static_cast<std::size_t>(ColourGroup::paper)].size() == 1 && lab.l > 0.0)
        paper = vantor::ColorTypes::labToXyz(lab, kD50White);
    }
    if (space.is_solid(device)) add(ColourGroup::solids, pair);
    if (space.is_wedge(device)) add(ColourGroup::wedges, pair);
    if (space.is_overprint(device)) add(ColourGroup::overprints, pair);
    if (space.is_surface(device)) add(ColourGroup::surface, pair);
  }
  for (std::size_t pair = 0; pair < matching.pairs.size(); ++pair) {
    const Lab relative = relative_to(paper, reference.lab(matching.pairs[pair].first));
    if (chroma_of(relative) <= kGreyChroma) add(ColourGroup::greys, pair);
  }
  return groups;
}

}  // namespace measkit
