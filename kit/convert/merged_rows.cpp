#include "kit/convert/merged_rows.h"

#include "kit/convert/columns.h"
#include "kit/convert/computed_columns.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <string_view>
#include <utility>

namespace measkit {
namespace {

using Members = std::span<const std::uint32_t>;

// The mean of the numbers that were measured; not a number without any.
double mean_of(const std::vector<double>& numbers, Members members) {
  double sum = 0.0;
  std::size_t count = 0;
  for (const std::uint32_t member : members) {
    if (std::isnan(numbers[member])) continue;
    sum += numbers[member];
    ++count;
  }
  return sum / static_cast<double>(count);
}

class Merger {
 public:
  Merger(Table& table, const MergedPatches& merged, int digits)
      : table_(table), merged_(merged), digits_(digits) {
    cells_.width = table.fields.size();
    cells_.texts.resize(merged.count * cells_.width);
    cells_.lines.resize(merged.count);
  }

  void keep_first(std::size_t field) {
    for (std::size_t row = 0; row < merged_.count; ++row) cell(row, field) = first(row, field);
  }

  void average(std::size_t field) { average(field, table_.numbers(static_cast<int>(field))); }

  void average(std::size_t field, const std::vector<double>& numbers) {
    for (std::size_t row = 0; row < merged_.count; ++row) {
      const Members members = merged_.patches_of(row);
      cell(row, field) = members.size() == 1
                             ? first(row, field)
                             : number_text(mean_of(numbers, members), digits_, table_.pool);
    }
  }

  // Angles are averaged as points of the plane, so that 359 and 1 make 0.
  void average_polar(const FieldTriple& lch) {
    const std::vector<double> chroma = table_.numbers(lch[1]), hue = table_.numbers(lch[2]);
    std::vector<double> a, b;
    for (std::size_t i = 0; i < chroma.size(); ++i) {
      const double angle = hue[i] * std::numbers::pi / 180.0;
      a.push_back(chroma[i] * std::cos(angle));
      b.push_back(chroma[i] * std::sin(angle));
    }
    for (std::size_t row = 0; row < merged_.count; ++row) {
      const Members members = merged_.patches_of(row);
      if (members.size() == 1) continue;
      const double mean_a = mean_of(a, members), mean_b = mean_of(b, members);
      const double angle = std::atan2(mean_b, mean_a) * 180.0 / std::numbers::pi;
      cell(row, static_cast<std::size_t>(lch[1])) =
          number_text(std::hypot(mean_a, mean_b), digits_, table_.pool);
      cell(row, static_cast<std::size_t>(lch[2])) =
          number_text(angle < 0.0 ? angle + 360.0 : angle, digits_, table_.pool);
    }
  }

  // True when the patches of every row agree in the field.
  bool is_agreed(std::size_t field) {
    for (std::size_t row = 0; row < merged_.count; ++row) {
      for (const std::uint32_t member : merged_.patches_of(row)) {
        if (table_.cell(member, static_cast<int>(field)) != first(row, field)) return false;
      }
    }
    return true;
  }

  // The table has the merged rows from now on.
  void finish() {
    for (std::size_t i = 0; i < table_.fields.size(); ++i) {
      table_.fields[i] = {std::move(table_.fields[i].name), static_cast<int>(i)};
    }
    table_.data = {};
    table_.set_cells(std::move(cells_));
  }

 private:
  std::string_view& cell(std::size_t row, std::size_t field) {
    return cells_.texts[row * cells_.width + field];
  }
  std::string_view first(std::size_t row, std::size_t field) {
    return table_.cell(merged_.patches_of(row).front(), static_cast<int>(field));
  }

  Table& table_;
  const MergedPatches& merged_;
  int digits_;
  Cells cells_;
};

}  // namespace

void merge_rows(Table& table, const MergedPatches& merged, int digits,
                std::vector<std::string>& left_behind) {
  const std::vector<ColumnGroup> groups = column_groups(table);
  const Roles roles = table.roles();
  Merger merger(table, merged, digits);
  std::vector<int> removed;
  std::vector<std::string> disagreed;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const bool is_unknown = groups[i] == ColumnGroup::unknown;
    if (is_unknown && !merger.is_agreed(i)) {
      removed.push_back(static_cast<int>(i));
      disagreed.push_back(table.fields[i].name);
    }
    if (is_unknown || groups[i] == ColumnGroup::names || groups[i] == ColumnGroup::device) {
      merger.keep_first(i);
    } else {
      merger.average(i);
    }
  }
  if (roles.has_lch()) merger.average_polar(roles.lch);
  merger.finish();
  if (removed.empty()) return;
  table.remove_fields(std::move(removed));
  left_behind.push_back(
      "Columns in which repeats differ and that cannot be averaged: " + name_list(disagreed) + ".");
}

}  // namespace measkit
