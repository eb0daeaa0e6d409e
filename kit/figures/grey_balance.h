// How near to grey a chart's near-neutral patches of cyan, magenta and yellow are.
#ifndef MEASDATA_KIT_FIGURES_GREY_BALANCE_H
#define MEASDATA_KIT_FIGURES_GREY_BALANCE_H

#include "kit/chart/device_space.h"
#include "kit/figures/print_figures.h"

#include <vector>

namespace measkit {

/// The usual balance patches (25/19/19, 50/40/40, 75/66/66 %), and the patches of all three inks
/// without black that are the nearest to grey, one for each step of lightness between the paper and
/// the overprint of the three solids (or the darkest such patch).
/// Grey is what ISO 12647-2 takes for it: the a* and b* of the paper, of which 15 % are left at the
/// lightness of the overprint.
std::vector<GreyStep> grey_balance_of(const Chart& chart, const DeviceSpace& space);

}  // namespace measkit

#endif  // MEASDATA_KIT_FIGURES_GREY_BALANCE_H
