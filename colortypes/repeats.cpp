#include "colortypes/repeats.h"

#include "base/position_table.h"
#include "colortypes/difference.h"
#include "colortypes/value_hash.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantor::ColorTypes {
namespace {

bool areEqual(std::span<const double> a, std::span<const double> b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!(a[i] == b[i])) return false;
  }
  return true;
}

// For every row the number of its entry; `first_rows` receives the first row of each entry.
std::vector<std::uint32_t> findEntries(const ValueTable& rows,
                                       std::vector<std::uint32_t>& first_rows) {
  std::vector<std::uint32_t> entry_of_row(rows.rows());
  first_rows.reserve(rows.rows());
  Base::PositionTable entries;
  entries.reserve(rows.rows());
  const RowHash hash(rows.width());
  // In groups: the searches of a group wait for memory all at once, not one after the other.
  std::array<std::uint64_t, 32> hashes{};
  for (std::size_t row = 0; row < rows.rows(); ++row) {
    const std::size_t in_group = row % hashes.size();
    if (in_group == 0) {
      const std::size_t count = std::min(hashes.size(), rows.rows() - row);
      for (std::size_t i = 0; i < count; ++i) {
        hashes[i] = hash(rows.row(row + i));
        entries.prefetch(hashes[i]);
      }
    }
    const std::span<const double> values = rows.row(row);
    const std::size_t new_entry = first_rows.size();
    auto entry = static_cast<std::uint32_t>(new_entry);
    if (areEqual(values, values)) {  // else it holds a not-a-number, which nothing equals
      entry = entries.find_or_add(hashes[in_group], new_entry, [&](std::uint32_t other) {
        return areEqual(values, rows.row(first_rows[other]));
      });
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
  if (first_rows.size() == rows.rows()) {
    members_ = std::move(first_rows);
    return;
  }
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
