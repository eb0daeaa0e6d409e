// The groups of colours that figures are given for.
#ifndef MEASDATA_KIT_COMPARE_COLOUR_GROUPS_H
#define MEASDATA_KIT_COMPARE_COLOUR_GROUPS_H

#include "kit/compare/averaged_side.h"
#include "kit/compare/matching.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace measkit {

enum class ColourGroup { all, paper, solids, wedges, overprints, greys, surface };
inline constexpr std::size_t kColourGroups = 7;
inline constexpr std::array<std::string_view, kColourGroups> kColourGroupNames = {
    "all", "paper", "solids", "wedges", "overprints", "greys", "surface"};

/// Positions of pairs in each group. Without device values there are no groups but `all` and
/// `greys`: colours with a chroma of at most 6 when the paper is taken as white.
std::array<std::vector<std::uint32_t>, kColourGroups> colour_groups(const Matching& matching,
                                                                    const AveragedSide& reference,
                                                                    const AveragedSide& sample);

/// The side whose device values stand for a pair: the reference where it has some; null without.
const AveragedSide* side_with_device(const AveragedSide& reference, const AveragedSide& sample);

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_COLOUR_GROUPS_H
