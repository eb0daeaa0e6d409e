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

/// What device values say of a colour.
class DeviceSpace {
 public:
  explicit DeviceSpace(const Chart& chart);

  /// Inks: no ink. RGB: all channels at full.
  bool is_paper(std::span<const double> device) const;
  /// One channel alone is not 0.
  static bool is_wedge(std::span<const double> device);
  /// One channel alone, at full: an ink or a primary.
  bool is_solid(std::span<const double> device) const;
  /// Two or more channels at full, the others at 0: inks over each other or a secondary.
  bool is_overprint(std::span<const double> device) const;
  /// On the surface of the device space. RGB and CMY: a channel at either end. CMYK: no black, and
  /// one of the others at either end. No colour of other devices is.
  bool is_surface(std::span<const double> device) const;

 private:
  bool is_full(double value) const;
  bool is_at_end(double value) const { return value == 0.0 || is_full(value); }

  bool is_rgb_, is_cmy_, is_cmyk_;
  double full_;  ///< 0 when the values do not tell
};

/// Positions of pairs in each group. Without device values there are no groups but `all` and
/// `greys`: colours with a chroma of at most 6 when the paper is taken as white.
std::array<std::vector<std::uint32_t>, kColourGroups> colour_groups(const Matching& matching,
                                                                    const AveragedSide& reference,
                                                                    const AveragedSide& sample);

/// The side whose device values stand for a pair: the reference where it has some; null without.
const AveragedSide* side_with_device(const AveragedSide& reference, const AveragedSide& sample);

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_COLOUR_GROUPS_H
