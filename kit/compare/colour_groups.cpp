#include "kit/compare/colour_groups.h"

#include "colortypes/conversions.h"
#include "kit/chart/device_space.h"
#include "kit/colour/colour_difference.h"

#include <algorithm>
#include <cmath>

namespace measkit {
namespace {

using vantor::ColorTypes::kD50White;
using vantor::ColorTypes::Tristimulus;

// Lab of a colour to eyes for which the paper is white.
Lab relative_to(const Tristimulus& paper, const Lab& lab) {
  const Tristimulus xyz = vantor::ColorTypes::labToXyz(lab, kD50White);
  return vantor::ColorTypes::xyzToLab(xyz, paper);
}

}  // namespace

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
