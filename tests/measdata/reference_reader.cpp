#include "tests/measdata/reference_reader.h"

#include "tests/measdata/reference_text.h"

#include <cstdlib>
#include <limits>

namespace test {
namespace {

using vantor::MeasData::FileKind;

bool contains(const std::vector<std::string>& list, const std::string& name) {
  for (const std::string& entry : list) {
    if (entry == name) return true;
  }
  return false;
}

bool begins_with(const std::string& text, const std::string& beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

std::string with_decimal_point(std::string cell) {
  for (char& c : cell) {
    if (c == ',') {
      c = '.';
      break;
    }
  }
  return cell;
}

// -1 for what is no count. A number too large for 32 bits counts as none.
int count_of(const std::string& text) {
  char* end = nullptr;
  const long long count = std::strtoll(text.c_str(), &end, 10);
  if (end == text.c_str() || count < 0) return -1;
  if (count > std::numeric_limits<int>::max()) return -1;
  return static_cast<int>(count);
}

}  // namespace

void ReferenceReader::set_mode(int mode) {
  mode_ = mode;
  if (mode == 4) return;
  separators_ = mode == 2 ? ";" : " \t";
  comment_char_ = mode == 2 ? '%' : '#';
}

bool ReferenceReader::load(const std::string& text) {
  if (mode_ < 0 || mode_ > 4) return false;
  if (text.empty()) {
    error("File is empty\n");
  } else if (mode_ == 2) {
    read_semicolon_table(lines_of(text));
  } else {
    read_file(lines_of(text));
  }
  return no_errors_;
}

void ReferenceReader::error(const std::string& message) {
  messages += message;
  no_errors_ = false;
}

void ReferenceReader::warning(const std::string& message) {
  if (mode_ != 1 && mode_ != 4) messages += message;
  no_warnings_ = false;
}

void ReferenceReader::note(const std::string& message) { messages += message; }

void ReferenceReader::grave(const std::string& message) {
  messages += message;
  no_errors_ = false;
  no_warnings_ = false;
}

void ReferenceReader::read_semicolon_table(const std::vector<std::string>& lines) {
  if (lines.empty()) return;
  std::string identifier_line = lines[0];
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (is_comment(lines[i], comment_char_)) identifier_line = lines[i];
  }
  fields = tokens_of(identifier_line, ";", Quotes::honoured, Empty::kept);
  for (std::size_t i = 0; i < fields.size(); ++i) column_kinds.push_back(2);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (lines[i].empty() || is_comment(lines[i], comment_char_)) continue;
    const auto tokens = tokens_of(lines[i], ";", Quotes::honoured, Empty::kept);
    if (tokens.size() < fields.size()) continue;
    std::vector<std::string> row;
    for (std::size_t k = 0; k < fields.size(); ++k) row.push_back(with_decimal_point(tokens[k]));
    rows.push_back(row);
  }
}

void ReferenceReader::read_file(const std::vector<std::string>& lines) {
  if (mode_ == 4) check_plain_table(lines);
  const bool is_consumed = takes_identifier(lines);
  const std::vector<std::string> header_keywords = {"ORIGINATOR", "DESCRIPTOR", "CREATED"};
  if (mode_ == 0 || mode_ == 1) optional_keywords_ = header_keywords;
  if (mode_ == 3) required_keywords_ = header_keywords;
  state_ = mode_ == 4 ? State::format_line : State::header;
  for (std::size_t i = is_consumed ? 1 : 0; i < lines.size(); ++i) {
    current_line_ = static_cast<int>(i);
    read_line(lines[i]);
  }
  check_end();
  if (mode_ == 3) {
    check_required_keywords();
    no_errors_ = no_errors_ && no_warnings_;
  }
}

void ReferenceReader::check_plain_table(const std::vector<std::string>& lines) {
  if (lines.size() < 2) error("must have at least two lines!\n");
  const std::string first = lines.empty() ? "" : lines[0];
  const std::string second = lines.size() < 2 ? "" : lines[1];
  const auto first_tokens = tokens_of(first, separators_, Quotes::ignored, Empty::dropped);
  const auto second_tokens = tokens_of(second, separators_, Quotes::ignored, Empty::dropped);
  if (first_tokens.size() != second_tokens.size()) {
    error("lines must have same number of fields!\n");
  }
  number_of_fields = static_cast<int>(first_tokens.size());
}

bool ReferenceReader::takes_identifier(const std::vector<std::string>& lines) {
  const std::string first = lines.empty() ? "" : lines[0];
  const auto tokens = tokens_of(first, separators_, Quotes::ignored, Empty::dropped);
  if (tokens.size() != 1) {
    warning("Missing 7-character-ID in line 1\n");
    return false;
  }
  const bool is_standard = tokens[0] == "ISO28178" || tokens[0] == "CGATS.17";
  if (!is_standard && tokens[0].size() != 7) {
    warning("ID in line 1 has more than 7 characters\n");
    return false;
  }
  if (is_standard) kind_ = FileKind::standard;
  identifier = tokens[0];
  return true;
}

void ReferenceReader::read_line(const std::string& line) {
  const auto tokens = tokens_of(line, separators_, Quotes::honoured, Empty::dropped);
  const auto items = items_before_comment(tokens, comment_char_);
  if (items.empty()) return;
  std::string comment;
  if (items.size() < tokens.size()) {
    comment = tokens[items.size()].substr(1);
    if (!comment.empty()) comment += " ";
    comment += joined(tokens, items.size() + 1);
  }
  switch (state_) {
    case State::header:
      read_header_line(items, comment);
      break;
    case State::format_line:
      read_identifier_line(line);
      state_ = mode_ == 4 ? State::data : State::format_end;
      break;
    case State::format_end:
      if (items[0] != "END_DATA_FORMAT") error("END_DATA_FORMAT expected!\n");
      state_ = items[0] == "BEGIN_DATA" ? State::data : State::header;
      break;
    case State::data:
      if (items[0] == "END_DATA") {
        state_ = State::done;
      } else {
        read_data_line(line);
      }
      break;
    case State::done:
      break;
  }
}

void ReferenceReader::read_header_line(const std::vector<std::string>& items,
                                       const std::string& comment) {
  bool is_missing = false;
  bool is_excess = items.size() > 2;
  if (items[0] == "BEGIN_DATA_FORMAT" || items[0] == "BEGIN_DATA") {
    state_ = items[0] == "BEGIN_DATA" ? State::data : State::format_line;
    is_excess = items.size() > 1;
  } else {
    if (items[0] == "NUMBER_OF_FIELDS" && number_of_fields != -1) {
      warning("Duplicate 'NUMBER_OF_FIELDS'!\n");
    }
    if (items[0] == "NUMBER_OF_SETS" && number_of_sets != -1) {
      warning("Duplicate 'NUMBER_OF_SETS'!\n");
    }
    is_missing = items.size() < 2;
    if (!is_missing) read_keyword_line(items, comment);
  }
  if (is_excess) warning("Excess items after '" + items[0] + "'!\n");
  if (is_missing) warning("Missing value for '" + items[0] + "'!\n");
}

void ReferenceReader::read_keyword_line(const std::vector<std::string>& items,
                                        const std::string& comment) {
  const std::string& keyword = items[0];
  const std::string value = joined(items, 1);
  const bool is_standard = kind_ == FileKind::standard;
  if (keyword == "NUMBER_OF_FIELDS") {
    set_number_of_fields(items[1]);
  } else if (keyword == "NUMBER_OF_SETS") {
    set_number_of_sets(items[1]);
  } else if (keyword == "KEYWORD") {
    declare_keyword(items[1]);
  } else if (is_standard && keyword == "DATA_FORMAT_IDENTIFIER") {
    declare_field(value);
  } else if (is_standard && keyword == "WEIGHTING_FUNCTION") {
    weighting_functions.push_back(value);
  } else if (is_standard && keyword == "COMPUTATIONAL_PARAMETER") {
    computational_parameters.push_back(value);
  } else if (is_standard && keyword == "PROCESSCOLOR_ID") {
    process_color_ids.push_back(value);
  } else if (is_standard && keyword == "SPOTCOLOR_ID") {
    spot_color_ids.push_back(value);
  } else {
    set_keyword(keyword, value, comment);
  }
}

void ReferenceReader::read_identifier_line(const std::string& line) {
  const std::vector<std::string> prefixes = {"R_",        "SPECTRAL_NM_", "SPECTRAL_NM",
                                             "SPECTRAL_", "SPECTRUM_NM_", "SPECTRUM_",
                                             "SPEC_",     "nm",           "NM_"};
  const std::vector<std::string> text_columns = {"SAMPLE_ID",   "STRING",     "SAMPLE_NO",
                                                 "SampleID",    "SampleName", "Sample_Name",
                                                 "SAMPLE_NAME", "SAMPLE_LOC"};
  const auto items =
      items_before_comment(tokens_of(line, " \t", Quotes::honoured, Empty::dropped), comment_char_);
  if (reserved_fields_ == 0) {
    warning("Missing NUMBER_OF_FIELDS before DATA_FORMAT!\n");
  } else if (reserved_fields_ != items.size()) {
    grave("DATA_FORMAT has wrong NUMBER_OF_FIELDS!\n");
  }
  if (!fields.empty()) note("Multiple DATA_FORMATs! Overriding old one.\n");
  fields.clear();
  if (reserved_fields_ < items.size()) reserved_fields_ = items.size();

  std::string active_prefix;
  for (const std::string& item : items) {
    const bool is_excused = !active_prefix.empty() && begins_with(item, active_prefix);
    if (!is_accepted(item) && !is_excused) {
      warning("Unknown data format identifier '" + item + "'!\n");
      for (const std::string& prefix : prefixes) {
        if (active_prefix.empty() && begins_with(item, prefix)) active_prefix = prefix;
      }
    }
    if (contains(fields, item)) note("Duplicate data format identifier '" + item + "'!\n");
    fields.push_back(item);
    column_kinds.push_back(contains(text_columns, item) ? 0 : 2);
  }
}

bool ReferenceReader::is_accepted(const std::string& name) {
  if (vantor::MeasData::is_known_field(kind_, name)) return true;
  if (contains(declared_fields_, name) || find_keyword(name) != nullptr) return true;
  return kind_ == FileKind::standard && (begins_with(name, "PC_") || begins_with(name, "SPOT_"));
}

void ReferenceReader::read_data_line(const std::string& line) {
  auto row =
      items_before_comment(tokens_of(line, " \t", Quotes::honoured, Empty::dropped), comment_char_);
  if (row.empty()) return;
  const int width = static_cast<int>(row.size());
  if (row.size() != fields.size() && width != last_bad_row_width_) {
    last_bad_row_width_ = width;
    error("In DATA block : line " + std::to_string(current_line_) + " has " +
          std::to_string(width) + " fields, but " + std::to_string(fields.size()) +
          " are required!\n");
  }
  for (std::size_t i = 0; i < row.size() && i < column_kinds.size(); ++i) {
    if (column_kinds[i] == 2) row[i] = with_decimal_point(row[i]);
  }
  rows.push_back(row);
}

void ReferenceReader::check_end() {
  const int row_count = static_cast<int>(rows.size());
  if (state_ == State::header) error("EOF, but no DATA found!\n");
  if (state_ == State::format_line) error("EOF, but no DATA_FORMAT found!\n");
  if (state_ == State::format_end) error("EOF, but END_DATA_FORMAT expected!\n");
  if (state_ == State::data && mode_ == 4) number_of_sets = row_count;
  if (state_ == State::data && mode_ != 4) error("EOF, but END_DATA expected!\n");
  if (state_ == State::done && rows.empty()) note("Empty DATA block!\n");
  if (row_count != number_of_sets) warning("DATA has wrong NUMBER_OF_SETS!\n");
}

void ReferenceReader::check_required_keywords() {
  if (!no_warnings_) return;
  for (const std::string& name : required_keywords_) {
    if (find_keyword(name) == nullptr) warning("Required keyword '" + name + "' missing!\n");
  }
}

ReferenceKeyword* ReferenceReader::find_keyword(const std::string& name) {
  for (ReferenceKeyword& entry : keywords) {
    if (entry.name == name) return &entry;
  }
  return nullptr;
}

void ReferenceReader::set_keyword(const std::string& name, const std::string& value,
                                  const std::string& comment) {
  ReferenceKeyword* entry = find_keyword(name);
  const bool is_known = contains(required_keywords_, name) || contains(optional_keywords_, name) ||
                        vantor::MeasData::is_known_keyword(kind_, name) || entry != nullptr;
  if (!is_known) warning("Undefined keyword '" + name + "'\n");
  if (entry == nullptr) {
    keywords.push_back({name, value, comment});
    return;
  }
  if (!entry->value.empty()) note("Overwriting keyword '" + name + "'\n");
  *entry = {name, value, comment};
}

void ReferenceReader::declare_keyword(const std::string& name) {
  ReferenceKeyword* entry = find_keyword(name);
  if (entry == nullptr) {
    keywords.push_back({name, "", ""});
  } else {
    warning("KEYWORD '" + name + "' already known!\n");
    *entry = {name, "", ""};
  }
}

void ReferenceReader::declare_field(const std::string& name) {
  if (find_keyword(name) != nullptr) {
    warning("KEYWORD '" + name + "' already known!\n");
  } else {
    declared_fields_.push_back(name);
  }
}

void ReferenceReader::set_number_of_fields(const std::string& text) {
  const int count = count_of(text);
  if (count < 0) {
    error("Bad NUMBER_OF_FIELDS\n");
    return;
  }
  number_of_fields = count;
  const auto wanted = static_cast<std::size_t>(count);
  if (fields.empty()) {
    if (reserved_fields_ < wanted) reserved_fields_ = wanted;
    return;
  }
  grave("NUMBER_OF_FIELDS comes too late!\n");
  if (fields.size() != wanted) warning("Wrong NUMBER_OF_FIELDS\n");
}

// Rows come only after the last header line, so this count is never too late.
void ReferenceReader::set_number_of_sets(const std::string& text) {
  const int count = count_of(text);
  if (count < 0) {
    error("Bad NUMBER_OF_SETS\n");
  } else {
    number_of_sets = count;
  }
}

}  // namespace test
