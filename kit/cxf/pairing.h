// Which objects of a document are one patch, and which patches are one set of readings.
#ifndef MEASDATA_KIT_CXF_PAIRING_H
#define MEASDATA_KIT_CXF_PAIRING_H

#include "kit/cxf/document.h"
#include "kit/finding.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace measkit::cxf {

inline constexpr std::size_t kNoObject = static_cast<std::size_t>(-1);

/// Indices into Document::objects; both are the same for an object with both.
struct Patch {
  std::size_t device = kNoObject, colours = kNoObject;

  std::size_t any() const { return device != kNoObject ? device : colours; }
};

struct PatchSet {
  std::string_view type;  ///< of the readings; empty for objects of several types
  std::vector<Patch> patches;
  /// Without lines; about how readings and targets were paired.
  Findings findings;
};

/// "M0" to "M3" where a text such as "M1_Daylight" or "M2_Measurement" begins so; else empty.
std::string_view m_condition_at_start(std::string_view text);

/// Readings of one type are a set, paired with the targets that they are of; all other objects are
/// one set. Readings beyond the last set that is allowed are counted in `left_out`.
std::vector<PatchSet> patch_sets_of(const Document& document, std::size_t most_sets,
                                    std::size_t& left_out);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_PAIRING_H
