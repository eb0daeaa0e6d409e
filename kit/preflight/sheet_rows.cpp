#include "kit/preflight/sheet_rows.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/line_cursor.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace measkit {
namespace {

bool is_cut(const Column& column) {
  return column.kind == Column::Kind::wavelength &&
         (column.nm < kShortestWavelength || column.nm > kLongestWavelength);
}

// The columns that become fields. Wavelengths that fall are put into rising order.
std::vector<std::size_t> kept_columns(const std::vector<Column>& columns) {
  std::vector<std::size_t> kept, spectral;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (is_cut(columns[i])) continue;
    if (columns[i].kind == Column::Kind::wavelength) spectral.push_back(kept.size());
    kept.push_back(i);
  }
  const bool is_falling =
      spectral.size() > 1 && columns[kept[spectral.front()]].nm > columns[kept[spectral.back()]].nm;
  for (std::size_t i = 0, j = spectral.size(); is_falling && i + 1 < j; ++i) {
    --j;
    std::swap(kept[spectral[i]], kept[spectral[j]]);
  }
  return kept;
}

// What did not come out as it stood. Each is counted, and the first is told.
struct Losses {
  std::size_t rows = 0;
  std::size_t left_out = 0, left_out_line = 0, left_out_width = 0;
  std::size_t too_long = 0, too_long_line = 0;
  std::size_t no_numbers = 0, no_number_line = 0;
  std::string no_number;
};

class RowReader {
 public:
  RowReader(const Sheet& sheet, Table& table)
      : sheet_(sheet), table_(table), kept_(kept_columns(sheet.columns)) {}

  SheetEnd read(std::string_view text) {
    SheetEnd end = {text.size(), 0};
    SheetCells cells;
    bool is_behind_gap = false;
    for (LineCursor lines(text.substr(sheet_.data_start), sheet_.data_line); lines.next();) {
      const std::string_view line = without_blanks(lines.line());
      if (line.starts_with('%')) continue;
      cut_cells(lines.line(), sheet_.delimiter, table_.pool, cells);
      if (filled_width(cells) == 0) {
        is_behind_gap = true;
        continue;
      }
      const bool has_other_width = is_behind_gap && filled_width(cells) > sheet_.columns.size();
      if (has_other_width || !fits(cells)) {
        const Names names = names_in(cells, std::exchange(is_behind_gap, false));
        if (names == Names::own) continue;
        if (names == Names::of_other_table) {
          end = {sheet_.data_start + lines.start(), lines.number()};
          break;
        }
      }
      is_behind_gap = false;
      if (sheet_.delimiter == Delimiter::blanks) join_words(lines.line(), cells);
      take(cells, line.front() == '#', lines.number());
    }
    tell();
    finish(text.substr(0, end.position));
    return end;
  }

 private:
  bool fits(const SheetCells& cells) const {
    return cells.size() >= sheet_.columns.size() && has_numbers(cells);
  }

  // Blanks cut a name into words, which the cells on both sides leave over. Rows with other cells
  // too many are emptied.
  void join_words(std::string_view line, SheetCells& cells) const {
    const std::size_t width = sheet_.columns.size();
    if (cells.size() <= width) return;
    std::size_t name = 0;
    while (name < width && sheet_.columns[name].kind != Column::Kind::text) ++name;
    for (std::size_t i = name; i < width; ++i) {
      if (sheet_.columns[i].name == "SAMPLE_NAME") name = i;
    }
    const std::size_t surplus = cells.size() - width;
    // A cell with doubled quotes lies elsewhere.
    const auto is_in_line = [line](std::string_view cell) {
      return !std::less<>()(cell.data(), line.data()) &&
             !std::less<>()(line.data() + line.size(), cell.data() + cell.size());
    };
    const bool are_words =
        name < width && is_in_line(cells[name]) && is_in_line(cells[name + surplus]) &&
        std::all_of(cells.begin() + static_cast<std::ptrdiff_t>(name + surplus + 1), cells.end(),
                    is_number_or_missing);
    if (!are_words) {
      cells.clear();
      return;
    }
    const std::string_view last = cells[name + surplus];
    cells[name] = {cells[name].data(),
                   static_cast<std::size_t>(last.data() + last.size() - cells[name].data())};
    const auto rest = cells.begin() + static_cast<std::ptrdiff_t>(name + 1);
    cells.erase(rest, rest + static_cast<std::ptrdiff_t>(surplus));
  }

  // What a line that is no row names: these columns again, those of another table, or nothing.
  // Numbers name wavelengths at most behind a gap.
  enum class Names { none, own, of_other_table };
  Names names_in(SheetCells cells, bool is_behind_gap) {
    constexpr std::size_t kLeast = 2, kMost = 2000;
    cells.resize(filled_width(cells));
    const bool is_likely = cells.size() >= kLeast && cells.size() <= cells_to_name_ &&
                           (is_behind_gap || std::none_of(cells.begin(), cells.end(), is_number));
    if (!is_likely || cells.size() > kMost) return Names::none;
    cells_to_name_ -= cells.size();
    const std::vector<Column> columns = columns_named(cells);
    if (columns.empty()) return Names::none;
    const bool is_own =
        std::equal(columns.rbegin(), columns.rend(), sheet_.columns.rbegin(),
                   sheet_.columns.rbegin() +
                       static_cast<std::ptrdiff_t>(std::min(columns.size(), sheet_.columns.size())),
                   [](const Column& a, const Column& b) { return a.name == b.name; });
    return is_own ? Names::own : Names::of_other_table;
  }

  void take(SheetCells& cells, bool may_be_comment, std::size_t line) {
    const std::size_t width = sheet_.columns.size();
    if (!fits(cells)) {
      if (may_be_comment) return;
      ++losses_.rows;
      if (losses_.left_out++ == 0) {
        losses_.left_out_line = line;
        losses_.left_out_width = cells.size();
      }
      return;
    }
    ++losses_.rows;
    if (filled_width(cells) > width && losses_.too_long++ == 0) losses_.too_long_line = line;
    for (const std::size_t i : kept_) {
      rows_.texts.push_back(sheet_.columns[i].is_measured() ? number(cells[i], line) : cells[i]);
    }
    rows_.lines.push_back(line);
  }

  bool has_numbers(const SheetCells& cells) const {
    for (std::size_t i = 0; i < sheet_.columns.size(); ++i) {
      if (sheet_.columns[i].is_measured() && is_number(cells[i])) return true;
    }
    return false;
  }

  std::string_view number(std::string_view cell, std::size_t line) {
    if (!is_number(cell) && losses_.no_numbers++ == 0) {
      losses_.no_number = cell.substr(0, 40);
      losses_.no_number_line = line;
    }
    return plain_number(cell, table_.pool);
  }

  void tell() {
    Findings& findings = table_.findings;
    const std::string width = std::to_string(sheet_.columns.size());
    if (losses_.left_out != 0) {
      findings.add(Severity::lost, "rows-left-out",
                   std::to_string(losses_.left_out) + " of " + std::to_string(losses_.rows) +
                       " rows left out: the first has " + std::to_string(losses_.left_out_width) +
                       " cells or no numbers, but the table has " + width + " columns.",
                   losses_.left_out_line);
    }
    if (losses_.too_long != 0) {
      findings.add(Severity::lost, "cells-left-out",
                   std::to_string(losses_.too_long) + " of " + std::to_string(losses_.rows) +
                       " rows have more cells than the " + width +
                       " columns: the cells behind are left out.",
                   losses_.too_long_line);
    }
    if (losses_.no_numbers != 0) {
      findings.add(Severity::repaired, "missing-values",
                   std::to_string(losses_.no_numbers) +
                       (losses_.no_numbers == 1 ? " cell holds" : " cells hold") +
                       " no number (the first holds \"" + losses_.no_number +
                       "\"): taken as values that were not measured.",
                   losses_.no_number_line);
    }
  }

  void finish(std::string_view text) {
    double shortest = 0.0, longest = 0.0;
    for (const Column& column : sheet_.columns) {
      if (column.kind != Column::Kind::wavelength) continue;
      shortest = shortest == 0.0 ? column.nm : std::min(shortest, column.nm);
      longest = std::max(longest, column.nm);
    }
    if (kept_.size() != sheet_.columns.size()) {
      table_.findings.add(Severity::repaired, "wavelengths-cut",
                          "Wavelengths go from " + rounded(shortest) + " to " + rounded(longest) +
                              " nm: " + std::to_string(sheet_.columns.size() - kept_.size()) +
                              " of " + std::to_string(sheet_.columns.size()) +
                              " columns are outside the visible range of 360 to 830 nm: left out.",
                          sheet_.header_line);
    }
    table_.text = text;
    table_.identifier = "CGATS.17";
    table_.data = text.substr(sheet_.data_start);
    table_.data_line = sheet_.data_line;
    table_.is_as_it_stands = false;
    for (const std::size_t i : kept_) {
      table_.fields.push_back({sheet_.columns[i].name, static_cast<int>(table_.fields.size())});
    }
    rows_.width = kept_.size();
    table_.set_cells(std::move(rows_));
  }

  const Sheet& sheet_;
  Table& table_;
  std::vector<std::size_t> kept_;
  Cells rows_;
  Losses losses_;
  std::size_t cells_to_name_ = kMostColumns;  // so that no file makes the search long
};

}  // namespace

Table read_rows(std::string_view text, const Sheet& sheet, SheetEnd& end) {
  Table table;
  end = RowReader(sheet, table).read(text);
  return table;
}

std::string_view plain_number(std::string_view cell, TextPool& pool) {
  if (!is_number(cell)) return "nan";
  const std::size_t comma = cell.find(',');
  if (comma == std::string_view::npos) return cell;
  char* const out = pool.room(cell.size());
  std::copy(cell.begin(), cell.end(), out);
  out[comma] = '.';
  return pool.keep(cell.size());
}

}  // namespace measkit
