#include "kit/preflight/structure.h"

#include "kit/preflight/device_columns.h"
#include "kit/preflight/loaded_numbers.h"
#include "kit/preflight/row_cutter.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace measkit {
namespace {

std::optional<long long> declared_count(const Table& table, std::string_view keyword) {
  std::optional<long long> count;
  for (const HeaderLine& line : table.header) {
    if (line.keyword != keyword) continue;
    long long value = -1;
    std::from_chars(line.value.data(), line.value.data() + line.value.size(), value);
    count = value;
  }
  return count;
}

void check_count(Table& table, std::string_view keyword, std::string_view what, std::size_t real) {
  const std::optional<long long> declared = declared_count(table, keyword);
  if (!declared || *declared == static_cast<long long>(real)) return;
  const HeaderLine* line = table.find(keyword);
  table.is_as_it_stands = false;
  table.findings.add(Severity::repaired, "wrong-count",
                     std::string(keyword) + " is " + line->value + ", but there are " +
                         std::to_string(real) + " " + std::string(what) + ".",
                     line->line);
}

// Rows that all have the same width, though not that of the list of fields.
void settle_width(Table& table, std::size_t width) {
  const std::size_t fields = table.fields.size();
  table.is_as_it_stands = false;
  table.findings.add(width > fields ? Severity::repaired : Severity::lost, "wrong-width",
                     "Every row has " + std::to_string(width) + " cells, but the list names " +
                         std::to_string(fields) + " fields: taken from the left.",
                     table.data_line);
  for (std::size_t i = fields; i < width; ++i) {
    table.fields.push_back({"COLUMN_" + std::to_string(i + 1), static_cast<int>(i)});
  }
  table.fields.resize(width);
}

// Names with blanks, between separators that the rows have, too.
void settle_names(Table& table) {
  const std::vector<std::string> names =
      names_at_separator(table.field_list, table.fields.size(), table.data);
  if (names.empty()) return;
  table.fields.clear();
  for (const std::string& name : names) {
    table.fields.push_back({name, static_cast<int>(table.fields.size())});
  }
  table.is_as_it_stands = false;
  table.findings.add(Severity::repaired, "field-names",
                     "The list of fields is cut where the rows are: it has " +
                         std::to_string(names.size()) + " names.",
                     table.data_line);
  use_format_names(table);
}

// True for "1.5", "-,5" and the words of the format for what is no number.
bool begins_with_number(std::string_view cell) {
  if (cell.starts_with('-') || cell.starts_with('+')) cell.remove_prefix(1);
  if (cell.starts_with('.') || cell.starts_with(',')) cell.remove_prefix(1);
  if (cell.empty()) return false;
  static constexpr std::array<std::string_view, 6> kWords = {"nan", "NaN", "NAN",
                                                             "inf", "Inf", "INF"};
  return (cell.front() >= '0' && cell.front() <= '9') ||
         std::find(kWords.begin(), kWords.end(), cell) != kWords.end();
}

// What programs write for "not measured": signs, words, and what the C library of one system prints
// for numbers without a value, such as 1.#QNAN.
bool is_missing(std::string_view cell) {
  return !begins_with_number(cell) || cell.find(".#") != std::string_view::npos;
}

}  // namespace

void settle_structure(Table& table, const char* name) {
  if (table.is_as_it_stands) load_numbers(table, name);
  if (!table.is_loaded() && !table.is_cut()) {
    settle_names(table);
    CutRows rows = cut_rows(table.data, table.data_line, table.fields.size(), table.findings,
                            table.roles().name);
    if (!rows.is_plain) table.is_as_it_stands = false;
    if (rows.cells.width != table.fields.size()) settle_width(table, rows.cells.width);
    table.set_cells(std::move(rows.cells));
  }
  check_count(table, "NUMBER_OF_FIELDS", "fields", table.fields.size());
  check_count(table, "NUMBER_OF_SETS", "rows", table.row_count());
}

void mark_missing_values(Table& table) {
  if (!table.is_cut()) return;
  const std::vector<bool> is_numeric = numeric_fields(table, table.roles());
  std::size_t count = 0, first_row = 0;
  std::string first_text;
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    if (!is_numeric[i]) continue;
    const int field = static_cast<int>(i);
    std::vector<std::string_view> texts;
    for (std::size_t row = 0; row < table.row_count(); ++row) {
      const std::string_view cell = table.cell(row, field);
      if (!is_missing(cell)) continue;
      if (texts.empty()) {
        for (std::size_t r = 0; r < table.row_count(); ++r) texts.push_back(table.cell(r, field));
      }
      if (count++ == 0 || row < first_row) {
        first_row = row;
        first_text = cell;
      }
      texts[row] = "nan";
    }
    if (!texts.empty()) table.set_texts(field, std::move(texts));
  }
  if (count == 0) return;
  table.findings.add(Severity::repaired, "missing-values",
                     std::to_string(count) + (count == 1 ? " cell stands" : " cells stand") +
                         " for values that were not measured (the first holds \"" + first_text +
                         "\"): taken as nan.",
                     table.line_of(first_row));
}

}  // namespace measkit
