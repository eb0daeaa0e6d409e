#include "kit/preflight/frame_reader.h"

#include "kit/preflight/line_cursor.h"
#include "measdata/tokenizer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace measkit {
namespace {

using vantor::MeasData::kBlankSeparated;
using Items = std::vector<std::string_view>;

constexpr char kCommentChar = '#';
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kSpace = " \t\r\n\f\v\0";

std::string_view without_zero_bytes(std::string_view text) {
  const std::size_t last = text.find_last_not_of('\0');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

// Where the next line that begins with `marker`, alone or before a blank, starts; npos without one.
std::size_t find_marker_line(std::string_view text, std::string_view marker, std::size_t from) {
  for (std::size_t at = text.find(marker, from); at != std::string_view::npos;
       at = text.find(marker, at + 1)) {
    const std::size_t end = at + marker.size();
    if (end < text.size() && kSpace.find(text[end]) == std::string_view::npos) continue;
    std::size_t start = at;
    while (start > from && kBlanks.find(text[start - 1]) != std::string_view::npos) --start;
    if (start == 0 || start == from || text[start - 1] == '\n' || text[start - 1] == '\r')
      return start;
  }
  return std::string_view::npos;
}

std::size_t count_breaks(std::string_view text) {
  std::size_t count = 0;
  for (LineCursor lines(text); lines.next();) ++count;
  return count;
}

// How many lines a header keeps, nearly: no blank ones, and comments that follow each other count
// once.
std::size_t count_kept_lines(std::string_view header) {
  std::size_t count = 0;
  bool was_comment = false;
  for (LineCursor lines(header); lines.next();) {
    const std::size_t start = lines.line().find_first_not_of(kBlanks);
    if (start == std::string_view::npos) continue;
    const bool is_comment = lines.line()[start] == kCommentChar;
    count += is_comment && was_comment ? 0 : 1;
    was_comment = is_comment;
  }
  return count;
}

bool is_standard_identifier(std::string_view name) {
  return name == "ISO28178" || name == "CGATS.17";
}

// Identifiers of seven characters, and the names that programs write in their place.
bool is_identifier(std::string_view name) {
  constexpr std::size_t kLength = 7;
  static constexpr std::array<std::string_view, 12> kOthers = {
      "CTI1",  "CTI2",    "CTI3",  "CCMX",  "CCSS", "CAL",
      "SPECT", "CGATS.5", "CGATS", "IT8.7", "IT8",  "ISO12642"};
  return is_standard_identifier(name) ||
         (name.size() == kLength && name.find('_') == std::string_view::npos) ||
         std::find(kOthers.begin(), kOthers.end(), name) != kOthers.end();
}

Content content_of(std::string_view identifier) {
  if (identifier == "CCMX") return Content::correction_matrix;
  if (identifier == "CAL") return Content::calibration_curves;
  if (identifier == "CCSS" || identifier == "SPECT") return Content::emission_spectra;
  return Content::measurement;
}

std::string join(const Items& items, std::size_t first) {
  std::string text;
  for (std::size_t i = first; i < items.size(); ++i) {
    if (i != first) text += ' ';
    text += items[i];
  }
  return text;
}

// Reads one table after the other.
class FrameReader {
 public:
  explicit FrameReader(std::string_view text)
      : text_(without_zero_bytes(text)),
        position_(vantor::MeasData::behind_break(text_, 0)),
        line_(position_ == 0 ? 1 : 2) {}

  // False when there are no further tables.
  bool next(const Table* before, Table& table);

 private:
  void read_header(Table& table);
  void keep_remark(Table& table, const LineCursor& lines);
  static void take_identifier(Table& table, const Items& items);
  void read_field_list(Table& table, LineCursor& lines);
  void read_data(Table& table);

  std::string_view text_;
  std::size_t position_, line_;  // of what is not read yet
  std::size_t remark_line_ = 0;  // where the last line of a comment in the header stands
  bool has_data_ = false;
};

bool FrameReader::next(const Table* before, Table& table) {
  const std::size_t start = position_;
  has_data_ = false;
  read_header(table);
  if (!has_data_) return false;
  if (table.fields.empty() && before != nullptr) {
    for (std::size_t i = 0; i < before->fields.size(); ++i) {
      table.fields.push_back({before->fields[i].name, static_cast<int>(i)});
    }
    table.is_as_it_stands = false;
    table.findings.add(Severity::repaired, "fields-of-table-before",
                       "This table has no list of fields: it has those of the table before it.",
                       table.data_line);
  }
  if (table.identifier.empty() && before != nullptr) {
    table.identifier = before->identifier;
    table.content = content_of(table.identifier);
    table.is_as_it_stands = false;
  }
  read_data(table);
  // The first table's text begins with the file.
  table.text =
      text_.substr(before == nullptr ? 0 : start, position_ - (before == nullptr ? 0 : start));
  return true;
}

// The identifier stands alone on the first line that is neither empty nor a comment.
void FrameReader::take_identifier(Table& table, const Items& items) {
  std::string name(items[0]);
  std::erase(name, '"');  // without another one it opens no quotes
  if (items.size() != 1 || !is_identifier(name)) return;
  table.identifier = name;
  table.content = content_of(name);
}

// Comments that follow each other make one line of the header, however many there are. Blank lines
// stay only between them.
void FrameReader::keep_remark(Table& table, const LineCursor& lines) {
  const std::string_view line = lines.line();
  const bool follows = remark_line_ != 0 && remark_line_ + 1 == lines.number();
  if (follows) {
    ++remark_line_;
    std::string_view& raw = table.header.back().raw;
    raw = {raw.data(), static_cast<std::size_t>(line.data() + line.size() - raw.data())};
  } else if (line.find('#') != std::string_view::npos) {
    table.header.push_back({line, {}, {}, lines.number()});
    remark_line_ = lines.number();
  }
}

void FrameReader::read_header(Table& table) {
  LineCursor lines(text_.substr(position_), line_);
  Items items;
  bool is_first = true;
  const std::size_t end = find_marker_line(text_, "BEGIN_DATA", position_);
  table.header.reserve(count_kept_lines(text_.substr(position_, end - position_)));
  while (!has_data_ && lines.next()) {
    vantor::MeasData::split_items(lines.line(), kBlankSeparated, kCommentChar, items);
    if (items.empty()) {
      keep_remark(table, lines);
      continue;
    }
    const bool is_identifier_line = std::exchange(is_first, false) && table.identifier.empty();
    if (is_identifier_line) {
      take_identifier(table, items);
      if (!table.identifier.empty()) {
        const bool is_plain = lines.line().find('"') == std::string_view::npos &&
                              (!is_standard_identifier(items[0]) || table.header.empty());
        if (!is_plain) {
          table.is_as_it_stands = false;
          table.findings.add(Severity::repaired, "identifier-moved",
                             "The identifier \"" + table.identifier +
                                 "\" is quoted or not on the first line: corrected.",
                             lines.number());
        }
        continue;
      }
    }
    if (items[0] == "BEGIN_DATA_FORMAT") {
      read_field_list(table, lines);
    } else if (items[0] == "BEGIN_DATA") {
      has_data_ = true;
    } else {
      table.header.push_back({lines.line(), items[0], join(items, 1), lines.number()});
    }
  }
  position_ += lines.end();
  line_ = lines.number() + 1;
}

// The names up to END_DATA_FORMAT, on as many lines as there are.
void FrameReader::read_field_list(Table& table, LineCursor& lines) {
  Items items;
  table.fields.clear();
  table.field_list = {};
  std::size_t list_lines = 0;
  while (lines.next()) {
    vantor::MeasData::split_items(lines.line(), kBlankSeparated, kCommentChar, items);
    if (items.empty()) continue;
    if (items[0] == "END_DATA_FORMAT") break;
    if (items[0] == "BEGIN_DATA") {
      has_data_ = true;
      break;
    }
    if (items.size() == 2 && items[0].starts_with("NUMBER_OF_")) {
      table.header.push_back({lines.line(), items[0], std::string(items[1]), lines.number()});
      table.is_as_it_stands = false;
      table.findings.add(Severity::repaired, "frame",
                         std::string(items[0]) + " stands inside the list of fields: moved.",
                         lines.number());
      continue;
    }
    table.field_list = ++list_lines == 1 ? lines.line() : std::string_view();
    if (table.fields.empty()) table.fields.reserve(items.size());
    for (const std::string_view item : items) {
      table.fields.push_back({std::string(item), static_cast<int>(table.fields.size())});
    }
  }
  if (list_lines > 1) {
    table.is_as_it_stands = false;
    table.findings.add(Severity::repaired, "fields-over-lines",
                       "The list of " + std::to_string(table.fields.size()) + " fields stands on " +
                           std::to_string(list_lines) + " lines: joined to one.",
                       lines.number());
  }
}

void FrameReader::read_data(Table& table) {
  table.data_line = line_;
  const std::size_t end = find_marker_line(text_, "END_DATA", position_);
  if (end == std::string_view::npos) {
    table.data = text_.substr(position_);
    position_ = text_.size();
    table.is_as_it_stands = false;
    table.findings.add(Severity::repaired, "end-data-missing",
                       "END_DATA is missing: the data block ends with the file.");
    return;
  }
  table.data = text_.substr(position_, end - position_);
  const std::size_t line_end = std::min(text_.find_first_of("\r\n", end), text_.size());
  position_ = vantor::MeasData::behind_break(text_, line_end);
  // Lines are counted only where something is left to tell about.
  const bool has_more = find_marker_line(text_, "BEGIN_DATA", position_) != std::string_view::npos;
  if (has_more) {
    line_ += count_breaks(table.data) + 1;
  } else {
    position_ = text_.size();
  }
}

}  // namespace

bool has_marker_line(std::string_view text, std::string_view marker) {
  return find_marker_line(text, marker, 0) != std::string_view::npos;
}

std::vector<Table> read_frames(std::string_view text, Findings& findings) {
  std::vector<Table> tables;
  FrameReader reader(text);
  constexpr std::size_t kMostTables = 1000;
  for (Table table;
       tables.size() < kMostTables && reader.next(tables.empty() ? nullptr : &tables.back(), table);
       table = Table()) {
    tables.push_back(std::move(table));
  }
  if (tables.size() == kMostTables) {
    findings.add(Severity::lost, "too-many-tables",
                 "Only the first " + std::to_string(kMostTables) + " tables are read.");
  }
  return tables;
}

}  // namespace measkit
