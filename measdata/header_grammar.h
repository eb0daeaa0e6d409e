// Walks a whole measurement file line by line: identifier, keywords, field list, data block.
#ifndef MEASDATA_MEASDATA_HEADER_GRAMMAR_H
#define MEASDATA_MEASDATA_HEADER_GRAMMAR_H

#include "measdata/data_format.h"
#include "measdata/data_lines.h"
#include "measdata/reader_mode.h"
#include "measdata/reader_tables.h"
#include "measdata/tokenizer.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vantor::MeasData {

/// A machine of five states. It reads to the end of the text whatever it meets, and fills the
/// tables and the message log; only the log tells success.
class HeaderGrammar {
 public:
  HeaderGrammar(const ReaderSettings& settings, ReaderTables& tables);

  void read(std::string_view text);

 private:
  enum class State {
    header,       // keywords; waiting for BEGIN_DATA_FORMAT or BEGIN_DATA
    format_line,  // waiting for the line of field identifiers
    format_end,   // waiting for END_DATA_FORMAT
    data,         // rows, until END_DATA
    done,         // the rest of the text is ignored
  };
  // What is wrong with the number of items on a keyword line.
  enum class Fault { none, excess, missing };

  void prepare_keywords();
  void check_plain_table(std::string_view text);
  bool take_identifier(std::string_view first_line);
  void read_line(std::string_view line);
  void read_data_block(std::string_view text);
  enum class DataLineKind { empty, row, end };
  DataLineKind kind_of(const DataLine& line) const;
  Fault read_header_line();
  Fault read_keyword_line();
  Fault read_count_line(std::int32_t& count);
  void read_format_end();
  void check_end_of_file();
  void check_required_keywords();

  void set_keyword(std::string_view name, std::string_view value);
  void declare_keyword(std::string_view name);
  void declare_field(std::string_view name);
  void set_number_of_fields(std::string_view text);
  void set_number_of_sets(std::string_view text);
  bool set_count(std::string_view text, std::string_view keyword, std::size_t held,
                 std::int32_t& count);

  // The line at hand.
  void cut_line(std::string_view line);
  std::string_view value_of_line();

  ReaderMode mode_;
  char comment_char_;
  TokenRules rules_;
  ReaderTables& tables_;
  DataFormatReader data_format_;
  State state_ = State::header;
  std::size_t current_line_ = 0;  // counts from 0
  // The line at hand, its first two items, and how many stand before a comment.
  std::string_view line_;
  std::string_view keyword_, first_value_;
  std::size_t item_count_ = 0;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_HEADER_GRAMMAR_H
