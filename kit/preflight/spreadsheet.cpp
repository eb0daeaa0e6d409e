#include "kit/preflight/spreadsheet.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/line_cursor.h"
#include "kit/preflight/sheet_rows.h"
#include "kit/preflight/transposed.h"
#include "kit/preflight/unreadable_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

namespace measkit {
namespace {

struct Line {
  std::string_view text;
  std::size_t number = 0;
  std::size_t end = 0;  // position behind its line break
  bool is_behind_gap = false;
};

// A header line stands near the start.
std::vector<Line> first_lines(std::string_view text, std::size_t first_line) {
  constexpr std::size_t kMostLines = 500;
  std::vector<Line> lines;
  for (LineCursor cursor(text, first_line); lines.size() < kMostLines && cursor.next();) {
    const std::string_view content = without_blanks(cursor.line());
    const bool is_behind_gap = !lines.empty() && lines.back().number + 1 != cursor.number();
    if (!content.empty()) {
      lines.push_back({content, cursor.number(), cursor.end(), is_behind_gap});
    }
  }
  return lines;
}

// The last line of a text that begins with a percent sign, as tables of design programs have it.
std::optional<Line> last_percent_line(std::string_view text, std::size_t first_line) {
  std::optional<Line> found;
  if (text.find('%') == std::string_view::npos) return found;
  for (LineCursor cursor(text, first_line); cursor.next();) {
    if (cursor.line().starts_with('%'))
      found = {cursor.line(), cursor.number(), cursor.end(), false};
  }
  return found;
}

std::string_view without_comment_sign(std::string_view line) {
  return line.starts_with('%') || line.starts_with('#') ? line.substr(1) : line;
}

struct Candidate {
  Sheet sheet;
  std::string_view header;  // the line that names the columns
  std::size_t fitting_rows = 0, understood = 0;

  bool is_better_than(const Candidate& other) const {
    return fitting_rows != other.fitting_rows ? fitting_rows > other.fitting_rows
                                              : understood > other.understood;
  }
};

// What tells a row below a header line from other lines.
struct RowShape {
  std::size_t width = 0, filled = 0, numbers = 0;
};

class HeaderFinder {
 public:
  HeaderFinder(const std::vector<Line>& lines, Delimiter delimiter)
      : lines_(lines), delimiter_(delimiter) {
    SheetCells cells;
    for (const Line& line : lines) {
      cut_cells(line.text, delimiter, pool_, cells);
      const bool is_comment = line.text.front() == '%';
      const auto numbers = std::count_if(cells.begin(), cells.end(), is_number);
      shapes_.push_back(is_comment ? RowShape()
                                   : RowShape{cells.size(), filled_width(cells),
                                              static_cast<std::size_t>(numbers)});
    }
  }

  // The first line that names columns which the rows below have.
  std::optional<Candidate> first() {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      if (auto candidate = at(lines_[i], i + 1)) return candidate;
    }
    return std::nullopt;
  }

  // `line` as header of the rows from the line at `first_row` on.
  std::optional<Candidate> at(const Line& line, std::size_t first_row) {
    SheetCells cells;
    cut_cells(without_comment_sign(line.text), delimiter_, pool_, cells);
    cells.resize(filled_width(cells));
    constexpr std::size_t kLeastColumns = 2;
    if (cells.size() < kLeastColumns || cells.size() > cells_to_read_) return std::nullopt;
    cells_to_read_ -= cells.size();
    Candidate candidate;
    candidate.sheet = {delimiter_, columns_named(cells), line.number, line.end, line.number + 1};
    candidate.header = line.text;
    if (candidate.sheet.columns.empty()) return std::nullopt;
    return fit(candidate, first_row) ? std::optional(std::move(candidate)) : std::nullopt;
  }

 private:
  // Counts the rows that fit among the next lines; half of these should. When most have a cell more
  // than the header line, the first is an id without a name.
  bool fit(Candidate& candidate, std::size_t first_row) const {
    constexpr std::size_t kMostLooked = 40;
    std::vector<Column>& columns = candidate.sheet.columns;
    const auto measured = static_cast<std::size_t>(std::count_if(
        columns.begin(), columns.end(), [](const Column& c) { return c.is_measured(); }));
    std::size_t same = 0, wider = 0, looked = 0;
    for (std::size_t i = first_row; i < shapes_.size() && looked < kMostLooked; ++i) {
      const RowShape& shape = shapes_[i];
      if (shape.width == 0) continue;
      const bool may_name_others = (shape.numbers == 0 && shape.filled > 1) ||
                                   (lines_[i].is_behind_gap && shape.filled != columns.size() &&
                                    shape.filled != columns.size() + 1);
      if (may_name_others && same + wider != 0) break;
      ++looked;
      if (shape.numbers == 0 || 2 * shape.numbers < measured) continue;
      if (shape.filled == columns.size() + 1) ++wider;
      if (shape.width >= columns.size() && shape.filled <= columns.size()) ++same;
    }
    candidate.fitting_rows = same + wider;
    candidate.understood = measured;
    const bool has_id = std::any_of(columns.begin(), columns.end(),
                                    [](const Column& c) { return c.name == "SAMPLE_ID"; });
    if (wider > same) {
      columns.insert(columns.begin(),
                     {has_id ? "COLUMN_0_" : "SAMPLE_ID", Column::Kind::text, 0.0});
    }
    return candidate.fitting_rows != 0 && 2 * candidate.fitting_rows >= looked;
  }

  const std::vector<Line>& lines_;
  Delimiter delimiter_;
  TextPool pool_;
  std::vector<RowShape> shapes_;
  std::size_t cells_to_read_ = 5 * kMostColumns;  // so that no file makes the search long
};

std::optional<Candidate> best_candidate(std::string_view text, std::size_t first_line,
                                        const std::vector<Line>& lines) {
  std::optional<Candidate> best;
  const std::optional<Line> percent_line = last_percent_line(text, first_line);
  for (const Delimiter delimiter : kDelimiters) {
    HeaderFinder finder(lines, delimiter);
    std::optional<Candidate> candidate;
    if (percent_line) {
      candidate = finder.at(*percent_line, 0);
      if (candidate) {  // rows may stand above it, too
        candidate->sheet.data_start = 0;
        candidate->sheet.data_line = first_line;
      }
    }
    if (!candidate) candidate = finder.first();
    if (candidate && (!best || candidate->is_better_than(*best))) best = std::move(candidate);
  }
  return best;
}

// Lines such as "Instrument;Model 5" above the header line, as far as the format has keywords.
void take_keywords(const std::vector<Line>& lines, const Sheet& sheet, Table& table) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 11> kKeywords = {
      {{"originator", "ORIGINATOR"},
       {"operator", "ORIGINATOR"},
       {"created", "CREATED"},
       {"date", "CREATED"},
       {"descriptor", "DESCRIPTOR"},
       {"title", "DESCRIPTOR"},
       {"instrument", "INSTRUMENTATION"},
       {"instrumentation", "INSTRUMENTATION"},
       {"illuminant", "ILLUMINANT"},
       {"observer", "OBSERVER"},
       {"filter", "FILTER"}}};
  SheetCells cells;
  for (const Line& line : lines) {
    if (line.number >= sheet.header_line) break;
    cut_cells(without_comment_sign(line.text), sheet.delimiter, table.pool, cells);
    if (filled_width(cells) != 2) continue;
    std::string value(cells[1]);
    std::replace(value.begin(), value.end(), '"', '\'');
    const std::string key = key_of(cells[0]);
    for (const auto& [word, keyword] : kKeywords) {
      if (key == word && table.find(keyword) == nullptr) table.add_keyword(keyword, value);
    }
  }
}

// Names as they were and as they are read, as far as they fit into a sentence.
void tell_names(const SheetCells& header, const Sheet& sheet, bool has_xyz, Table& table) {
  constexpr std::size_t kMostNames = 12;
  std::string told;
  std::size_t count = 0, spectral = 0;
  const std::size_t offset = sheet.columns.size() - header.size();
  for (std::size_t i = 0; i < header.size(); ++i) {
    const Column& column = sheet.columns[i + offset];
    if (column.kind == Column::Kind::wavelength) ++spectral;
    if (column.kind == Column::Kind::wavelength || column.kind == Column::Kind::other ||
        column.name == header[i] || (!has_xyz && column.name.starts_with("XYZ_")) ||
        ++count > kMostNames) {
      continue;
    }
    told += (told.empty() ? "" : ", ") +
            (header[i].empty() ? "a column without a name" : std::string(header[i])) + " as " +
            column.name;
  }
  if (count > kMostNames) told += " and " + std::to_string(count - kMostNames) + " more";
  if (spectral != 0) {
    told += (told.empty() ? "" : "; ") + std::to_string(spectral) + " wavelengths as a spectrum";
  }
  if (offset != 0) {
    told += (told.empty() ? "" : "; ") + std::string(
                                             "the first cell of each row, which has no "
                                             "name, as an id");
  }
  if (told.empty()) return;
  table.findings.add(Severity::repaired, "field-names", "Column names are read as: " + told + ".",
                     sheet.header_line);
}

// The cells of the line that names the columns.
SheetCells header_cells(std::string_view line, const Sheet& sheet, TextPool& pool) {
  SheetCells cells;
  cut_cells(without_comment_sign(without_blanks(line)), sheet.delimiter, pool, cells);
  cells.resize(filled_width(cells));
  return cells;
}

// Points in space are negative somewhere; chromaticities x, y and z add up to 1.
bool are_tristimulus_values(Table& table, const FieldTriple& fields) {
  constexpr double kLeastMeasured = -1.0, kRounding = 0.01;
  bool is_sum_one = true;
  const std::vector<double> x = table.numbers(fields[0]), y = table.numbers(fields[1]),
                            z = table.numbers(fields[2]);
  for (std::size_t row = 0; row < x.size(); ++row) {
    if (std::min({x[row], y[row], z[row]}) < kLeastMeasured) return false;
    is_sum_one = is_sum_one && std::abs(x[row] + y[row] + z[row] - 1.0) <= kRounding;
  }
  return !is_sum_one;
}

// Small letters x, y and z may be XYZ, but also something else, which the numbers tell. True when
// these columns were given their own names back.
bool set_other_xyz_aside(const SheetCells& header, Table& table) {
  const auto position_of = [&table](std::string_view name) {
    const auto names = table.field_names();
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? kNoField : static_cast<int>(found - names.begin());
  };
  const FieldTriple fields = {position_of("XYZ_X"), position_of("XYZ_Y"), position_of("XYZ_Z")};
  static constexpr std::array<std::string_view, 3> kSmall = {"x", "y", "z"};
  const bool are_small =
      std::all_of(kSmall.begin(), kSmall.end(), [&header](std::string_view name) {
        return std::find(header.begin(), header.end(), name) != header.end();
      });
  if (!are_small || !is_complete(fields) || are_tristimulus_values(table, fields)) return false;
  for (std::size_t i = 0; i < kSmall.size(); ++i) table.rename(fields[i], std::string(kSmall[i]));
  table.findings.add(Severity::doubtful, "xyz-doubtful",
                     "The columns x, y and z hold no XYZ: they are negative or add up to 1.",
                     table.data_line);
  return true;
}

bool has_meaning(const Roles& roles) {
  return roles.has_device() || roles.has_lab() || roles.has_xyz() || roles.has_lch() ||
         roles.has_xyy() || roles.has_spectra() || !roles.densities.empty();
}

// Inks of more than four letters get their role later.
bool has_inks(const Sheet& sheet) {
  return std::any_of(sheet.columns.begin(), sheet.columns.end(),
                     [](const Column& column) { return column.name.starts_with("CMYK"); });
}

// The first table from `start` on, and where the next one begins.
std::optional<Table> read_sheet(std::string_view whole_text, SheetEnd& end) {
  const std::size_t first_line = end.line;
  const std::string_view text = whole_text.substr(end.position);
  const std::vector<Line> lines = first_lines(text, first_line);
  const std::optional<Candidate> candidate = best_candidate(text, first_line, lines);
  if (!candidate) return std::nullopt;
  const Sheet& sheet = candidate->sheet;
  SheetEnd next;
  Table table = read_rows(text, sheet, next);
  if (table.row_count() == 0) return std::nullopt;
  end = {end.position + next.position, next.line};
  const SheetCells header = header_cells(candidate->header, sheet, table.pool);
  const bool has_xyz = !set_other_xyz_aside(header, table);
  if (!has_meaning(table.roles()) && !has_inks(sheet)) return std::nullopt;
  take_keywords(lines, sheet, table);
  table.findings.add(
      Severity::repaired, "spreadsheet",
      "A table without the frame of a measurement file: " + std::to_string(table.row_count()) +
          (table.row_count() == 1 ? " row" : " rows") + " of " +
          std::to_string(sheet.columns.size()) + " cells at " +
          std::string(plural_of(sheet.delimiter)) + ", named in line " +
          std::to_string(sheet.header_line) + ".",
      sheet.header_line);
  tell_names(header, sheet, has_xyz, table);
  return table;
}

// All tables, each below a line that names its columns.
std::vector<Table> read_sheets(std::string_view text) {
  constexpr std::size_t kMostTables = 100;
  std::vector<Table> tables;
  SheetEnd end = {0, 1};
  while (end.position < text.size() && tables.size() < kMostTables) {
    std::optional<Table> table = read_sheet(text, end);
    if (!table) break;
    tables.push_back(*std::move(table));
  }
  if (!tables.empty() && end.position < text.size()) {
    tables.back().findings.add(Severity::note, "lines-behind",
                               "There is text behind the last row of the table, which is not read.",
                               end.line);
  }
  return tables;
}

constexpr std::string_view kLineBreaks = "\r\n";

// Where a quoted cell ends that begins at `start`, behind its closing quote; npos for text that is
// no quoted cell.
std::size_t end_of_quoted_cell(std::string_view text, std::size_t start) {
  constexpr std::size_t kLongestCell = 1000;
  const std::string_view near = text.substr(0, std::min(text.size(), start + kLongestCell));
  std::size_t at = near.find('"', start + 1);
  while (at != std::string_view::npos && at + 1 < near.size() && near[at + 1] == '"') {
    at = near.find('"', at + 2);
  }
  if (at == std::string_view::npos) return at;
  ++at;
  const bool ends_cell =
      at == text.size() || std::string_view("\t;,\r\n").find(text[at]) != std::string_view::npos;
  return ends_cell ? at : std::string_view::npos;
}

}  // namespace

std::string_view with_cells_on_one_line(std::string_view text, std::string& storage,
                                        Findings& findings) {
  std::string made, breaks;  // those taken out of cells go behind their row
  std::size_t copied = 0, count = 0;
  for (std::size_t quote = text.find('"'); quote != std::string_view::npos;) {
    const bool begins_cell =
        quote == 0 || std::string_view("\t;,\r\n").find(text[quote - 1]) != std::string_view::npos;
    const std::size_t end = begins_cell ? end_of_quoted_cell(text, quote) : std::string_view::npos;
    if (end == std::string_view::npos) {
      quote = text.find('"', quote + 1);
      continue;
    }
    const std::string_view cell = text.substr(quote, end - quote);
    quote = text.find('"', end);
    if (cell.find_first_of(kLineBreaks) == std::string_view::npos) continue;
    ++count;
    made.append(text, copied, static_cast<std::size_t>(cell.data() - text.data()) - copied);
    for (const char c : cell) {
      const bool is_break = kLineBreaks.find(c) != std::string_view::npos;
      made += is_break ? ' ' : c;
      if (is_break) breaks += c;
    }
    copied = end;
    const std::size_t row_end = std::min(text.find_first_of(kLineBreaks, end), text.size());
    if (quote != std::string_view::npos && quote < row_end) continue;
    made.append(text, copied, row_end - copied).append(breaks);
    breaks.clear();
    copied = row_end;
  }
  if (count == 0) return text;
  made.append(text, copied).append(breaks);
  findings.add(Severity::repaired, "breaks-in-cells",
               std::to_string(count) + (count == 1 ? " quoted cell goes" : " quoted cells go") +
                   " over several lines: the line breaks are taken as blanks.");
  storage = std::move(made);
  return storage;
}

std::vector<Table> read_spreadsheet(std::string_view text, Findings& findings) {
  std::vector<Table> tables;
  std::optional<Refusal> refusal = refusal_of_kind(text);
  if (!refusal) {
    std::optional<Table> table = read_transposed(text, WavelengthProof::named, refusal);
    if (!table && !refusal) tables = read_sheets(text);
    if (!tables.empty()) return tables;
    if (!table && !refusal) table = read_transposed(text, WavelengthProof::even, refusal);
    if (table) {
      tables.push_back(*std::move(table));
      return tables;
    }
    if (!refusal) refusal = refusal_without_names(text);
  }
  findings.add(Severity::lost, refusal->code, refusal->sentence, refusal->line);
  return tables;
}

}  // namespace measkit
