#include "colortypes/repeats.h"

#include "base/position_table.h"
#include "colortypes/value_hash.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace vantor::ColorTypes {
namespace {

bool areEqual(std::span<const double> a, std::span<const double> b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!(a[i] == b[i])) return false;
  }
  return true;
}

// Sorts rows into entries, numbered in the order of their first rows. As long as no row repeats
// another, row and entry have the same number and nothing is written down.
class EntryFinder {
 public:
  explicit EntryFinder(const ValueTable& rows) : rows_(rows) {}

  void findAll() {
    const RowHash hash(rows_.width());
    // In groups: the searches of a group wait for memory all at once, not one after the other.
    std::array<std::uint64_t, 32> hashes{};
    for (std::size_t first = 0; first < rows_.rows(); first += hashes.size()) {
      const std::size_t count = std::min(hashes.size(), rows_.rows() - first);
      if (first == kFirstRows && 2 * entry_count_ > kFirstRows) table_.reserve(rows_.rows());
      for (std::size_t i = 0; i < count; ++i) {
        hashes[i] = hash(rows_.row(first + i));
        table_.prefetch(hashes[i]);
      }
      for (std::size_t i = 0; i < count; ++i) find(first + i, hashes[i]);
    }
  }

  std::size_t entryCount() const { return entry_count_; }
  /// For every row the number of its entry; nothing when no row repeats.
  const std::vector<std::uint32_t>& entryOfRow() const { return entry_of_row_; }

 private:
  // When most of them differ, room is made for all rows at once.
  static constexpr std::size_t kFirstRows = 1024;

  void find(std::size_t row, std::uint64_t hash) {
    const std::span<const double> values = rows_.row(row);
    auto entry = static_cast<std::uint32_t>(entry_count_);
    if (areEqual(values, values)) {  // else it holds a not-a-number, which nothing equals
      entry = table_.find_or_add(hash, entry_count_, [&](std::uint32_t other) {
        return areEqual(values, rows_.row(firstRow(other)));
      });
    }
    if (entry == row) {
      ++entry_count_;
      return;
    }
    if (entry_of_row_.empty()) writeDown(row);
    if (entry == entry_count_) {
      first_rows_.push_back(static_cast<std::uint32_t>(row));
      ++entry_count_;
    }
    entry_of_row_.push_back(entry);
  }

  std::size_t firstRow(std::uint32_t entry) const {
    return entry_of_row_.empty() ? entry : first_rows_[entry];
  }

  // Called for the first row that repeats another.
  void writeDown(std::size_t row) {
    entry_of_row_.reserve(rows_.rows());
    first_rows_.resize(row);
    std::iota(first_rows_.begin(), first_rows_.end(), 0U);
    entry_of_row_ = first_rows_;
  }

  const ValueTable& rows_;
  Base::PositionTable table_;
  std::size_t entry_count_ = 0;
  std::vector<std::uint32_t> first_rows_;
  std::vector<std::uint32_t> entry_of_row_;
};

}  // namespace

RepeatGroups::RepeatGroups(const ValueTable& rows) {
  EntryFinder finder(rows);
  finder.findAll();
  size_ = finder.entryCount();
  const std::vector<std::uint32_t>& entry_of_row = finder.entryOfRow();
  if (entry_of_row.empty()) return;
  // A counting sort of the rows by entry keeps their order within each.
  starts_.assign(size_ + 1, 0);
  for (const std::uint32_t entry : entry_of_row) ++starts_[entry + 1];
  for (std::size_t entry = 0; entry < size_; ++entry) starts_[entry + 1] += starts_[entry];
  std::vector<std::uint32_t> next = starts_;
  members_.resize(entry_of_row.size());
  for (std::size_t row = 0; row < entry_of_row.size(); ++row) {
    members_[next[entry_of_row[row]]++] = static_cast<std::uint32_t>(row);
  }
}

void meanOfRows(const ValueTable& table, std::span<const std::uint32_t> rows, double* mean) {
  const std::span<double> sums(mean, table.width());
  std::ranges::fill(sums, 0.0);
  for (const std::uint32_t row : rows) {
    const std::span<const double> values = table.row(row);
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += values[i];
  }
  for (double& value : sums) value /= static_cast<double>(rows.size());
}

}  // namespace vantor::ColorTypes
