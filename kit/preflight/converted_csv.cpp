#include "kit/preflight/converted_text.h"
#include "kit/preflight/delimited_text.h"
#include "kit/preflight/header_lines.h"
#include "kit/preflight/line_cursor.h"
#include "kit/preflight/loaded_numbers.h"

#include <algorithm>
#include <string>
#include <utility>

namespace measkit {
namespace {

Delimiter delimiter_of(std::string_view titles) {
  for (const Delimiter delimiter : {Delimiter::tab, Delimiter::semicolon}) {
    if (titles.find(static_cast<char>(delimiter)) != std::string_view::npos) return delimiter;
  }
  return Delimiter::comma;
}

// "CMYK_C [%]" without its unit.
std::string_view name_in(std::string_view title) {
  const std::size_t unit = title.ends_with(']') ? title.rfind(" [") : std::string_view::npos;
  return title.substr(0, unit);
}

class CsvReader {
 public:
  explicit CsvReader(std::string_view text) : lines_(text) {}

  Table read(Findings& findings) {
    lines_.next();
    table_.identifier = without_blanks(lines_.line().substr(kDelimitedMark.size()));
    table_.is_as_it_stands = false;
    read_header(findings);
    read_rows(findings);
    use_decimal_points();
    table_.set_cells(std::move(cells_));
    return std::move(table_);
  }

 private:
  // The lines before that of the titles, and these.
  void read_header(Findings& findings) {
    while (lines_.next() && lines_.line().starts_with('#')) {
      const std::string_view line = lines_.line();
      const std::string_view content = line.substr(line.starts_with("# ") ? 2 : 1);
      if (!add_header_line(table_, content, lines_.number())) {
        findings.add(Severity::lost, "header-line-left-out",
                     "A line of the header would end it: left out.", lines_.number());
      }
    }
    table_.data_line = lines_.number() + 1;
    delimiter_ = delimiter_of(lines_.line());
    cut_cells(lines_.line(), delimiter_, table_.pool, row_);
    for (const std::string_view title : row_) {
      table_.fields.push_back(
          {std::string(name_in(title)), static_cast<int>(table_.fields.size())});
    }
    cells_.width = row_.size();
  }

  void read_rows(Findings& findings) {
    std::size_t left_out = 0, first_line = 0;
    while (lines_.next()) {
      if (without_blanks(lines_.line()).empty()) continue;
      cut_cells(lines_.line(), delimiter_, table_.pool, row_);
      if (row_.size() != cells_.width) {
        if (left_out++ == 0) first_line = lines_.number();
        continue;
      }
      cells_.texts.insert(cells_.texts.end(), row_.begin(), row_.end());
      cells_.lines.push_back(lines_.number());
    }
    if (left_out == 0) return;
    findings.add(Severity::lost, "rows-left-out",
                 std::to_string(left_out) + (left_out == 1 ? " row" : " rows") +
                     " left out: the table has " + std::to_string(cells_.width) + " columns.",
                 first_line);
  }

  void use_decimal_points() {
    const std::vector<bool> is_numeric = numeric_fields(table_, table_.roles());
    for (std::size_t i = 0; i < cells_.texts.size(); ++i) {
      std::string_view& cell = cells_.texts[i];
      const std::size_t comma =
          is_numeric[i % cells_.width] ? cell.find(',') : std::string_view::npos;
      if (comma == std::string_view::npos) continue;
      std::string number(cell);
      number[comma] = '.';
      cell = table_.pool.add(number);
    }
  }

  LineCursor lines_;
  Delimiter delimiter_ = Delimiter::comma;
  Table table_;
  Cells cells_;
  SheetCells row_;
};

}  // namespace

std::optional<Table> read_marked_csv(std::string_view text, Findings& findings) {
  if (!text.starts_with(kDelimitedMark)) return std::nullopt;
  return CsvReader(text).read(findings);
}

}  // namespace measkit
