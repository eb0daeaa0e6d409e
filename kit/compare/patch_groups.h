// The patches of a chart sorted by a key.
#ifndef MEASDATA_KIT_COMPARE_PATCH_GROUPS_H
#define MEASDATA_KIT_COMPARE_PATCH_GROUPS_H

#include "base/position_table.h"
#include "measdata/name_hash.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// Groups stand in the order of their first patches.
class PatchGroups {
 public:
  static constexpr std::uint32_t kNone = vantor::Base::PositionTable::kNone;

  PatchGroups() = default;
  /// One key a patch. A patch with an empty key belongs to no group.
  explicit PatchGroups(const std::vector<std::string>& keys);

  std::size_t size() const { return keys_.size(); }
  /// Patches with a key.
  std::size_t patch_count() const { return members_.size(); }
  bool has_repeats() const { return size() != patch_count(); }
  std::span<const std::uint32_t> patches_of(std::size_t group) const {
    return std::span(members_).subspan(starts_[group], starts_[group + 1] - starts_[group]);
  }
  std::string_view key(std::size_t group) const { return keys_[group]; }
  /// The group with a key; kNone without one.
  std::uint32_t find(std::string_view key) const;

 private:
  vantor::MeasData::NameHash hash_;
  vantor::Base::PositionTable table_;
  std::vector<std::string> keys_;
  std::vector<std::uint32_t> members_;  // group by group
  std::vector<std::uint32_t> starts_ = {0};
};

}  // namespace measkit

#endif  // MEASDATA_KIT_COMPARE_PATCH_GROUPS_H
