// Finds the patches of a chart that were measured more than once.
#ifndef MEASDATA_COLORTYPES_REPEATS_H
#define MEASDATA_COLORTYPES_REPEATS_H

#include "colortypes/value_table.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vantor::ColorTypes {

/// The rows of a table sorted into entries: all rows of an entry are equal, value for value.
/// Entries and the members of each stand in the order of the rows.
class RepeatGroups {
 public:
  /// Rows that hold a not-a-number equal none, so each is an entry of its own. Takes time linear in
  /// the number of rows.
  explicit RepeatGroups(const ValueTable& rows);
  /// Of no rows.
  RepeatGroups() = default;

  std::size_t size() const { return size_; }
  /// When there are none, every row is an entry of its own, and members() is not to be asked.
  bool hasRepeats() const { return !starts_.empty(); }
  /// The rows of an entry, in order; at least one.
  std::span<const std::uint32_t> members(std::size_t entry) const {
    return std::span(members_).subspan(starts_[entry], starts_[entry + 1] - starts_[entry]);
  }

 private:
  std::size_t size_ = 0;
  // Both empty when no row repeats:
  std::vector<std::uint32_t> members_;  // the entries one behind the other
  std::vector<std::uint32_t> starts_;   // of each entry in members_, and the end
};

/// The mean of the given rows of a table, value by value.
void meanOfRows(const ValueTable& table, std::span<const std::uint32_t> rows, double* mean);

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_REPEATS_H
