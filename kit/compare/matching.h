// Which patches of two charts belong together.
#ifndef MEASDATA_KIT_COMPARE_MATCHING_H
#define MEASDATA_KIT_COMPARE_MATCHING_H

#include "kit/chart/chart.h"
#include "kit/compare/patch_groups.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace measkit {

enum class MatchBy { device, id, name, location, order };

constexpr std::string_view word_of(MatchBy by) {
  switch (by) {
    case MatchBy::device:
      return "device values";
    case MatchBy::id:
      return "ids";
    case MatchBy::name:
      return "names";
    case MatchBy::location:
      return "locations";
    case MatchBy::order:
      break;
  }
  return "order";
}

/// Patches of one chart with the same key are measurements of one colour: a group. Groups of two
/// charts with the same key are a pair.
struct Matching {
  MatchBy by = MatchBy::order;
  std::string sentence;  ///< what was matched and why
  PatchGroups reference, sample;
  std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs;    ///< groups, by the reference
  std::vector<std::uint32_t> only_in_reference, only_in_sample;  ///< groups
};

/// By the key that is asked for or, without one, by the first that both charts hold and that most
/// patches have in common: device values, ids, names, locations, at last the order. Ids, names and
/// locations must be unique then. Gives no pairs, and the reason as the sentence, when nothing
/// fits. Takes time linear in the number of patches.
Matching match(const Chart& reference, const Chart& sample, std::optional<MatchBy> wanted);

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_MATCHING_H
