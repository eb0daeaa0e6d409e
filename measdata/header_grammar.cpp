#include "measdata/header_grammar.h"

#include "measdata/line_reader.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>

namespace vantor::MeasData {
namespace {

constexpr std::array<std::string_view, 3> kHeaderKeywords = {"ORIGINATOR", "DESCRIPTOR", "CREATED"};
constexpr std::size_t kIdentifierLength = 7;

bool contains(const std::vector<std::string_view>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool is_white_space(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// A count as the C format "%d" reads it: white space, a sign, digits, and the rest ignored. None
// when there are no digits, the number is negative or no 32-bit integer holds it.
std::optional<std::int32_t> read_count(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && is_white_space(text[i])) ++i;
  const bool is_negative = i < text.size() && text[i] == '-';
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
  const std::size_t first_digit = i;
  std::int64_t value = 0;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
    value = value * 10 + (text[i] - '0');
    if (value > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
  }
  if (i == first_digit || (is_negative && value != 0)) return std::nullopt;
  return static_cast<std::int32_t>(value);
}

}  // namespace

HeaderGrammar::HeaderGrammar(const ReaderSettings& settings, ReaderTables& tables)
    : mode_(settings.mode),
      comment_char_(settings.comment_char),
      rules_{settings.separator, settings.other_separator, EmptyTokens::drop, Quotes::honour},
      tables_(tables),
      data_format_(tables, settings.comment_char) {}

void HeaderGrammar::read(std::string_view text) {
  if (mode_ == ReaderMode::plain_table) check_plain_table(text);

  LineReader lines(text);
  LineReader behind_first = lines;
  std::string_view line;
  behind_first.next(line);
  if (take_identifier(line)) {
    lines = behind_first;
    current_line_ = 1;
  }
  prepare_keywords();
  state_ = mode_ == ReaderMode::plain_table ? State::format_line : State::header;
  for (; state_ != State::data && lines.next(line); ++current_line_) read_line(line);
  if (state_ == State::data) read_data_block(lines.rest());
  check_end_of_file();
  if (mode_ == ReaderMode::strict) {
    check_required_keywords();
    tables_.log.count_warnings_as_errors();
  }
}

void HeaderGrammar::check_plain_table(std::string_view text) {
  TokenRules rules = rules_;
  rules.quotes = Quotes::ignore;
  LineReader lines(text);
  std::string_view line;
  std::array<std::size_t, 2> counts = {0, 0};
  std::size_t line_count = 0;
  for (; line_count < counts.size() && lines.next(line); ++line_count) {
    counts[line_count] = count_tokens(line, rules);
  }
  if (line_count < counts.size()) tables_.log.error("must have at least two lines!\n");
  if (counts[0] != counts[1]) tables_.log.error("lines must have same number of fields!\n");
  tables_.number_of_fields = static_cast<std::int32_t>(counts[0]);
}

// True when the first line is consumed; otherwise it is read again as an ordinary line.
bool HeaderGrammar::take_identifier(std::string_view first_line) {
  TokenRules rules = rules_;
  rules.quotes = Quotes::ignore;
  Tokenizer tokenizer(first_line, rules);
  std::string_view identifier, second;
  if (!tokenizer.next(identifier) || tokenizer.next(second)) {
    tables_.log.warning("Missing 7-character-ID in line 1\n");
    return false;
  }
  if (identifier == "ISO28178" || identifier == "CGATS.17") {
    tables_.file_kind = FileKind::standard;
  } else if (identifier.size() != kIdentifierLength) {
    tables_.log.warning("ID in line 1 has more than 7 characters\n");
    return false;
  }
  tables_.identifier = identifier;
  return true;
}

void HeaderGrammar::prepare_keywords() {
  if (mode_ == ReaderMode::strict) {
    tables_.required_keywords.assign(kHeaderKeywords.begin(), kHeaderKeywords.end());
  } else if (mode_ != ReaderMode::plain_table) {
    tables_.optional_keywords.assign(kHeaderKeywords.begin(), kHeaderKeywords.end());
  }
}

void HeaderGrammar::read_line(std::string_view line) {
  cut_line(line);
  if (item_count_ == 0) return;
  Fault fault = Fault::none;
  switch (state_) {
    case State::header:
      fault = read_header_line();
      break;
    case State::format_line:
      data_format_.read_identifier_line(line);
      state_ = mode_ == ReaderMode::plain_table ? State::data : State::format_end;
      break;
    case State::format_end:
      read_format_end();
      break;
    case State::data:
    case State::done:
      break;
  }
  if (fault == Fault::excess) tables_.log.warning("Excess items after '%'!\n", {keyword_});
  if (fault == Fault::missing) tables_.log.warning("Missing value for '%'!\n", {keyword_});
}

// Nearly every line of a file comes here, so those without quotes and comments are not cut.
void HeaderGrammar::read_data_block(std::string_view text) {
  DataLineReader lines(text, kBlankSeparated, comment_char_);
  for (DataLine line; state_ == State::data && lines.next(line); ++current_line_) {
    switch (kind_of(line)) {
      case DataLineKind::empty:
        break;
      case DataLineKind::end:
        state_ = State::done;
        break;
      case DataLineKind::row:
        if (line.is_plain) {
          data_format_.append_row(line.text, line.items, current_line_);
        } else {
          data_format_.read_data_line(line.text, current_line_);
        }
        break;
    }
  }
}

// The first token, cut at the separators of the mode, decides; items are cut at blanks and tabs.
HeaderGrammar::DataLineKind HeaderGrammar::kind_of(const DataLine& line) const {
  if (line.is_plain) {
    if (line.items == 0) return DataLineKind::empty;
    const bool is_cut_alike = rules_.separator == kBlankSeparated.separator;
    const char first = line.text.front();
    if (is_cut_alike && first != 'E' && !rules_.is_separator(first)) return DataLineKind::row;
  }
  Tokenizer tokenizer(line.text, rules_);
  std::string_view token;
  if (!tokenizer.next(token) || opens_comment(token, comment_char_)) return DataLineKind::empty;
  return token == "END_DATA" ? DataLineKind::end : DataLineKind::row;
}

HeaderGrammar::Fault HeaderGrammar::read_header_line() {
  const Fault excess_over_one = item_count_ > 1 ? Fault::excess : Fault::none;
  if (keyword_ == "BEGIN_DATA_FORMAT") {
    state_ = State::format_line;
    return excess_over_one;
  }
  if (keyword_ == "BEGIN_DATA") {
    state_ = State::data;
    return excess_over_one;
  }
  if (keyword_ == "NUMBER_OF_FIELDS") return read_count_line(tables_.number_of_fields);
  if (keyword_ == "NUMBER_OF_SETS") return read_count_line(tables_.number_of_sets);
  return read_keyword_line();
}

HeaderGrammar::Fault HeaderGrammar::read_count_line(std::int32_t& count) {
  if (count != -1) tables_.log.warning("Duplicate '%'!\n", {keyword_});
  if (item_count_ < 2) return Fault::missing;
  if (&count == &tables_.number_of_fields) {
    set_number_of_fields(first_value_);
  } else {
    set_number_of_sets(first_value_);
  }
  return item_count_ > 2 ? Fault::excess : Fault::none;
}

HeaderGrammar::Fault HeaderGrammar::read_keyword_line() {
  if (item_count_ < 2) return Fault::missing;
  const bool is_standard = tables_.file_kind == FileKind::standard;
  if (keyword_ == "KEYWORD") {
    declare_keyword(first_value_);
  } else if (is_standard && keyword_ == "DATA_FORMAT_IDENTIFIER") {
    declare_field(value_of_line());
  } else if (is_standard && keyword_ == "WEIGHTING_FUNCTION") {
    tables_.weighting_functions.push_back(value_of_line());
  } else if (is_standard && keyword_ == "COMPUTATIONAL_PARAMETER") {
    tables_.computational_parameters.push_back(value_of_line());
  } else if (is_standard && keyword_ == "PROCESSCOLOR_ID") {
    tables_.process_color_ids.push_back(value_of_line());
  } else if (is_standard && keyword_ == "SPOTCOLOR_ID") {
    tables_.spot_color_ids.push_back(value_of_line());
  } else {
    set_keyword(keyword_, value_of_line());
  }
  return item_count_ > 2 ? Fault::excess : Fault::none;
}

// A line that is neither of the two expected is lost after the error.
void HeaderGrammar::read_format_end() {
  if (keyword_ != "END_DATA_FORMAT") tables_.log.error("END_DATA_FORMAT expected!\n");
  state_ = keyword_ == "BEGIN_DATA" ? State::data : State::header;
}

void HeaderGrammar::check_end_of_file() {
  const std::size_t row_count = tables_.rows.size();
  switch (state_) {
    case State::header:
      tables_.log.error("EOF, but no DATA found!\n");
      break;
    case State::format_line:
      tables_.log.error("EOF, but no DATA_FORMAT found!\n");
      break;
    case State::format_end:
      tables_.log.error("EOF, but END_DATA_FORMAT expected!\n");
      break;
    case State::data:
      if (mode_ == ReaderMode::plain_table) {
        tables_.number_of_sets = static_cast<std::int32_t>(row_count);
      } else {
        tables_.log.error("EOF, but END_DATA expected!\n");
      }
      break;
    case State::done:
      if (row_count == 0) tables_.log.note("Empty DATA block!\n");
      break;
  }
  // Also when NUMBER_OF_SETS was never given.
  if (static_cast<std::int64_t>(row_count) != tables_.number_of_sets) {
    tables_.log.warning("DATA has wrong NUMBER_OF_SETS!\n");
  }
}

// Not told behind other warnings, which fail a strict read anyway.
void HeaderGrammar::check_required_keywords() {
  if (!tables_.log.no_warnings()) return;
  for (const std::string_view name : tables_.required_keywords) {
    if (!tables_.keywords.contains(name)) {
      tables_.log.warning("Required keyword '%' missing!\n", {name});
    }
  }
}

void HeaderGrammar::set_keyword(std::string_view name, std::string_view value) {
  KeywordEntry* entry = tables_.keywords.find(name);
  if (entry == nullptr) {
    const bool is_known = contains(tables_.required_keywords, name) ||
                          contains(tables_.optional_keywords, name) ||
                          is_known_keyword(tables_.file_kind, name);
    if (!is_known) tables_.log.warning("Undefined keyword '%'\n", {name});
    tables_.keywords.append({name, value});
    return;
  }
  if (!entry->value.empty()) tables_.log.note("Overwriting keyword '%'\n", {name});
  entry->value = value;
}

// Declaring a keyword again empties it.
void HeaderGrammar::declare_keyword(std::string_view name) {
  KeywordEntry* entry = tables_.keywords.find(name);
  if (entry == nullptr) {
    tables_.keywords.append({name, {}});
    return;
  }
  tables_.log.warning("KEYWORD '%' already known!\n", {name});
  entry->value = {};
}

// A name that is a keyword cannot become a field; one that is a known field already may.
void HeaderGrammar::declare_field(std::string_view name) {
  if (tables_.keywords.contains(name)) {
    tables_.log.warning("KEYWORD '%' already known!\n", {name});
  } else if (!tables_.declared_fields.contains(name)) {
    tables_.declared_fields.append(name);
  }
}

void HeaderGrammar::set_number_of_fields(std::string_view text) {
  const std::size_t held = tables_.fields.names().size();
  if (!set_count(text, "NUMBER_OF_FIELDS", held, tables_.number_of_fields)) return;
  const auto declared = static_cast<std::size_t>(tables_.number_of_fields);
  tables_.expected_fields = std::max(tables_.expected_fields, declared);
}

void HeaderGrammar::set_number_of_sets(std::string_view text) {
  set_count(text, "NUMBER_OF_SETS", tables_.rows.size(), tables_.number_of_sets);
}

// True when the count could be read and comes before what it counts.
bool HeaderGrammar::set_count(std::string_view text, std::string_view keyword, std::size_t held,
                              std::int32_t& count) {
  const std::optional<std::int32_t> declared = read_count(text);
  if (!declared) {
    tables_.log.error("Bad %\n", {keyword});
    return false;
  }
  count = *declared;
  if (held == 0) return true;
  tables_.log.grave("% comes too late!\n", {keyword});
  if (held != static_cast<std::size_t>(count)) tables_.log.warning("Wrong %\n", {keyword});
  return false;
}

// A long line holds many items, which are not kept.
void HeaderGrammar::cut_line(std::string_view line) {
  line_ = line;
  keyword_ = first_value_ = {};
  item_count_ = 0;
  Tokenizer items(line, rules_);
  for (std::string_view item; items.next(item) && !opens_comment(item, comment_char_);) {
    if (item_count_ == 0) keyword_ = item;
    if (item_count_ == 1) first_value_ = item;
    ++item_count_;
  }
}

// The items behind the keyword, joined by single blanks.
std::string_view HeaderGrammar::value_of_line() {
  if (item_count_ == 2) return first_value_;
  std::string value;
  value.reserve(line_.size());
  Tokenizer items(line_, rules_);
  std::string_view item;
  items.next(item);  // the keyword
  for (std::size_t i = 1; i < item_count_ && items.next(item); ++i) {
    if (i != 1) value += ' ';
    value += item;
  }
  return tables_.keep(std::move(value));
}

}  // namespace vantor::MeasData
