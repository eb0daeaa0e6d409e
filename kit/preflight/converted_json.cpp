#include "kit/preflight/converted_text.h"
#include "kit/preflight/header_lines.h"
#include "kit/preflight/line_cursor.h"
#include "kit/preflight/row_cutter.h"
#include "kit/write/layout.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

namespace measkit {
namespace {

using nlohmann::json;

// Bytes that no cell and no value of a keyword may hold.
bool is_control_byte(char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; }

// What a value of the text is part of.
enum class Place : std::uint8_t {
  outside,
  root,
  charts,
  chart,
  header,
  header_line,
  fields,
  units,
  patches,
  patch,
  elsewhere,
};

// Takes the parts of a JSON text one after the other and keeps what charts need. The names of its
// functions are those that the parser calls.
class ChartHandler {
 public:
  bool null() { return take("nan"); }
  bool boolean(bool value) { return take(value ? "true" : "false"); }
  bool number_integer(json::number_integer_t value) { return take(std::to_string(value)); }
  bool number_unsigned(json::number_unsigned_t value) { return take(std::to_string(value)); }
  bool number_float(json::number_float_t, const std::string& digits) { return take(digits); }
  bool string(std::string& text) { return take(text); }
  static bool binary(json::binary_t&) { return false; }  // JSON has none
  bool key(std::string& name) {
    key_ = std::move(name);
    return true;
  }

  bool start_object(std::size_t) {
    if (place() == Place::outside) return enter(Place::root);
    if (place() == Place::charts) {
      tables_.emplace_back();
      tables_.back().is_as_it_stands = false;
      rows_ = {};
      return enter(Place::chart);
    }
    if (place() == Place::header) {
      line_ = {};
      return enter(Place::header_line);
    }
    return enter_elsewhere();
  }
  bool end_object() {
    if (place() == Place::header_line) end_header_line();
    if (place() == Place::chart) end_chart();
    return leave();
  }
  bool start_array(std::size_t) {
    if (place() == Place::root && key_ == "charts") return enter(Place::charts);
    if (place() == Place::chart) {
      if (key_ == "header") return enter(Place::header);
      if (key_ == "fields") return enter(Place::fields);
      if (key_ == "units") return enter(Place::units);
      if (key_ == "patches") return enter(Place::patches);
    }
    return place() == Place::patches ? enter(Place::patch) : enter_elsewhere();
  }
  bool end_array() {
    if (place() == Place::patch) rows_.ends.push_back(rows_.texts.size());
    return leave();
  }

  bool parse_error(std::size_t position, const std::string&, const json::exception&) {
    error_position_ = position;
    is_malformed_ = true;
    return false;
  }

  bool is_ours() const { return is_ours_ && (has_charts_ || is_malformed_); }
  // The charts that were read, the last one as far as it goes.
  std::vector<Table> take_tables(std::string_view text, Findings& findings);

 private:
  struct HeaderEntry {
    std::string keyword, value, line, comment;
  };
  struct Rows {
    std::vector<std::string_view> texts;
    std::vector<std::size_t> ends;
  };

  Place place() const { return places_.empty() ? Place::outside : places_.back(); }
  bool enter(Place next) {
    has_charts_ = has_charts_ || next == Place::charts;
    places_.push_back(next);
    return true;
  }
  // Values that no chart needs; in a row, they leave a cell without text.
  bool enter_elsewhere() {
    if (place() == Place::patch) add_cell({});
    return enter(Place::elsewhere);
  }
  bool leave() {
    places_.pop_back();
    return true;
  }

  bool take(std::string_view text) {
    switch (place()) {
      case Place::root:
        is_ours_ = is_ours_ || (key_ == "format" && text == kJsonFormat);
        return true;
      case Place::chart:
        if (key_ == "name") tables_.back().own_name = cleaned(text);
        if (key_ == "identifier") tables_.back().identifier = cleaned(text);
        return true;
      case Place::header_line:
        if (key_ == "keyword") line_.keyword = cleaned(text);
        if (key_ == "value") line_.value = cleaned(text);
        if (key_ == "line") line_.line = cleaned(text);
        if (key_ == "comment") line_.comment = text;
        return true;
      case Place::fields:
        tables_.back().fields.push_back(
            {cleaned(text), static_cast<int>(tables_.back().fields.size())});
        return true;
      case Place::patch:
        add_cell(text);
        return true;
      default:
        return true;
    }
  }

  void add_cell(std::string_view text) {
    TextPool& pool = tables_.back().pool;
    const bool is_clean = std::ranges::none_of(text, is_control_byte);
    rows_.texts.push_back(pool.add(is_clean ? text : std::string_view(cleaned(text))));
  }

  // Line breaks would end a row or a header line.
  std::string cleaned(std::string_view text) {
    std::string clean(text);
    for (char& c : clean) {
      if (!is_control_byte(c)) continue;
      c = ' ';
      ++control_bytes_;
    }
    return clean;
  }

  void end_header_line() {
    Table& table = tables_.back();
    if (line_.keyword.empty()) {
      add_comment();
      return;
    }
    const bool is_whole_line = !line_.line.empty();
    if (!is_whole_line) {
      std::ranges::replace(line_.value, '"', '\'');
      line_.line = line_.keyword + " \"" + line_.value + "\"";
    }
    const bool is_good =
        (is_whole_line || is_keyword(line_.keyword)) && add_header_line(table, line_.line, 0);
    if (!is_good) left_out_keywords_ += 1;
  }

  void add_comment() {
    for (LineCursor lines(line_.comment); lines.next();) {
      const std::string line = cleaned(lines.line());
      const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
      const bool is_comment = start == line.size() || line[start] == '#';
      add_header_line(tables_.back(), is_comment ? line : "# " + line, 0);
    }
  }

  // Rows of as many cells as there are fields; others are counted.
  void end_chart() {
    Table& table = tables_.back();
    Cells cells;
    cells.width = table.fields.size();
    std::size_t start = 0;
    bool has_gaps = false;
    for (const std::size_t end : rows_.ends)
      has_gaps = has_gaps || end - std::exchange(start, end) != cells.width;
    if (!has_gaps) {
      cells.texts = std::move(rows_.texts);
      cells.texts.resize(rows_.ends.size() * cells.width);
      cells.lines.resize(rows_.ends.size());
    } else {
      start = 0;
      for (const std::size_t end : rows_.ends) {
        const std::size_t first = std::exchange(start, end);
        if (end - first != cells.width) {
          ++left_out_rows_;
          continue;
        }
        const auto texts = rows_.texts.begin();
        cells.texts.insert(cells.texts.end(), texts + static_cast<std::ptrdiff_t>(first),
                           texts + static_cast<std::ptrdiff_t>(end));
        cells.lines.push_back(0);
      }
    }
    rows_ = {};
    table.set_cells(std::move(cells));
  }

  std::vector<Place> places_;
  std::string key_;
  std::vector<Table> tables_;
  Rows rows_;  // of the last table
  HeaderEntry line_;
  bool is_ours_ = false, has_charts_ = false, is_malformed_ = false;
  std::size_t error_position_ = 0;
  std::size_t control_bytes_ = 0, left_out_rows_ = 0, left_out_keywords_ = 0;
};

std::vector<Table> ChartHandler::take_tables(std::string_view text, Findings& findings) {
  if (is_malformed_) {
    const std::string_view before = text.substr(0, error_position_);
    const auto line = 1 + static_cast<std::size_t>(std::ranges::count(before, '\n'));
    const bool is_within_chart = std::ranges::find(places_, Place::chart) != places_.end();
    if (is_within_chart) end_chart();
    findings.add(Severity::lost, "json-malformed",
                 "The text is not well-formed JSON in line " + std::to_string(line) +
                     ". What stands before it is read.",
                 line);
  }
  const auto tell = [&findings](std::size_t count, const char* one, const char* several,
                                const char* words) {
    if (count == 0) return;
    findings.add(Severity::lost, "json-values-left-out",
                 counted(count, one, several) + " " + words);
  };
  tell(left_out_rows_, "patch", "patches", "left out: not as many cells as fields.");
  tell(left_out_keywords_, "keyword", "keywords", "left out: not usable as keywords.");
  tell(control_bytes_, "control byte", "control bytes", "in texts replaced by blanks.");
  if (tables_.size() == 1) tables_.front().own_name.clear();
  return std::move(tables_);
}

}  // namespace

std::optional<std::vector<Table>> read_json(std::string_view text, Findings& findings) {
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos || text[start] != '{') return std::nullopt;
  const std::size_t inside = text.find_first_not_of(" \t\r\n", start + 1);
  if (inside == std::string_view::npos || (text[inside] != '"' && text[inside] != '}')) {
    return std::nullopt;
  }
  ChartHandler handler;
  json::sax_parse(text.begin(), text.end(), &handler);
  if (!handler.is_ours()) {
    findings.add(
        Severity::lost, "json-other",
        "The file is JSON of another kind than measconvert writes. A table as text, CSV or "
        "CxF3 would help.");
    return std::vector<Table>();
  }
  return handler.take_tables(text, findings);
}

}  // namespace measkit
