#include "kit/compare/patch_groups.h"

#include <utility>

namespace measkit {

PatchGroups::PatchGroups(const std::vector<std::string>& keys) {
  std::vector<std::uint32_t> groups(keys.size(), kNone);
  starts_.clear();
  for (std::size_t patch = 0; patch < keys.size(); ++patch) {
    const std::string& key = keys[patch];
    if (key.empty()) continue;
    groups[patch] = table_.find_or_add(hash_(key), keys_.size(),
                                       [&](std::uint32_t group) { return keys_[group] == key; });
    if (groups[patch] == keys_.size()) {
      keys_.push_back(key);
      starts_.push_back(0);
    }
    ++starts_[groups[patch]];
  }
  std::uint32_t count = 0;
  for (std::uint32_t& start : starts_) count += std::exchange(start, count);
  members_.resize(count);
  for (std::size_t patch = 0; patch < groups.size(); ++patch) {
    if (groups[patch] != kNone)
      members_[starts_[groups[patch]]++] = static_cast<std::uint32_t>(patch);
  }
  // Each start now stands at the end of its group.
  starts_.insert(starts_.begin(), 0);
}

std::uint32_t PatchGroups::find(std::string_view key) const {
  return table_.find(hash_(key), [&](std::uint32_t group) { return keys_[group] == key; });
}

}  // namespace measkit
