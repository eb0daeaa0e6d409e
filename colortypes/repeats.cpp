#include "colortypes/repeats.h"

#include "colortypes/difference.h"
#include "colortypes/value_hash.h"

#include <algorithm>
#include <bit>

namespace vantor::ColorTypes {
namespace {

constexpr std::uint32_t kFree = std::numeric_limits<std::uint32_t>::max();

bool areEqual(std::span<const double> a, std::span<const double> b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!(a[i] == b[i])) return false;
  }
  return true;
}

// For every row the number of its entry; `first_rows` receives the first row of each entry. Open
// addressing: a slot holds the entry, whose first row is looked at to tell whether it is the one.
std::vector<std::uint32_t> findEntries(const ValueTable& rows,
                                       std::vector<std::uint32_t>& first_rows) {
  std::vector<std::uint32_t> entry_of_row(rows.rows());
  std::vector<std::uint32_t> slots(std::bit_ceil(2 * rows.rows() + 1), kFree);
  const std::size_t mask = slots.size() - 1;
  const std::uint64_t seed = hashSeed();
  for (std::size_t row = 0; row < rows.rows(); ++row) {
    const std::span<const double> values = rows.row(row);
    const auto new_entry = static_cast<std::uint32_t>(first_rows.size());
    std::uint32_t entry = new_entry;
    if (areEqual(values, values)) {  // else it holds a not-a-number, which nothing equals
      std::size_t slot = hashValues(values, seed) & mask;
      while (slots[slot] != kFree && !areEqual(values, rows.row(first_rows[slots[slot]]))) {
        slot = (slot + 1) & mask;
      }
      if (slots[slot] == kFree) slots[slot] = new_entry;
      entry = slots[slot];
    }
    if (entry == new_entry) first_rows.push_back(static_cast<std::uint32_t>(row));
    entry_of_row[row] = entry;
  }
  return entry_of_row;
}

}  // namespace

RepeatGroups::RepeatGroups(const ValueTable& rows) {
  std::vector<std::uint32_t> first_rows;
  const std::vector<std::uint32_t> entry_of_row = findEntries(rows, first_rows);
  // A counting sort of the rows by entry keeps their order within each.
  starts_.assign(first_rows.size() + 1, 0);
  for (const std::uint32_t entry : entry_of_row) ++starts_[entry + 1];
  for (std::size_t entry = 0; entry < first_rows.size(); ++entry) {
    starts_[entry + 1] += starts_[entry];
  }
  std::vector<std::uint32_t> next(starts_.begin(), starts_.end() - 1);
  members_.resize(entry_of_row.size());
  for (std::size_t row = 0; row < entry_of_row.size(); ++row) {
    members_[next[entry_of_row[row]]++] = static_cast<std::uint32_t>(row);
  }
}

Distances pairwiseDistances(const ValueTable& rows) {
  Distances distances;
  double sum = 0.0;
  for (std::size_t k = 1; k < rows.rows(); ++k) {
    const std::span<const double> row = rows.row(k);
    for (std::size_t j = 0; j < k; ++j) {
      const double distance = vectorDistance(row, rows.row(j));
      sum += distance;
      if (distance > distances.max) distances.max = distance;
    }
  }
  const auto count = static_cast<double>(rows.rows());
  if (rows.rows() > 1) distances.mean = sum / (0.5 * count * (count - 1.0));
  return distances;
}

void meanOfRows(const ValueTable& table, std::span<const std::uint32_t> rows,
                std::span<double> mean) {
  std::ranges::fill(mean, 0.0);
  for (const std::uint32_t row : rows) {
    const std::span<const double> values = table.row(row);
    for (std::size_t i = 0; i < mean.size(); ++i) mean[i] += values[i];
  }
  for (double& value : mean) value /= static_cast<double>(rows.size());
}

}  // namespace vantor::ColorTypes
