// A second reader of measurement files, for comparison: plain strings, linear searches, one byte
// after the other.
#ifndef MEASDATA_TESTS_MEASDATA_REFERENCE_READER_H
#define MEASDATA_TESTS_MEASDATA_REFERENCE_READER_H

#include "measdata/known_names.h"

#include <cstddef>
#include <string>
#include <vector>

namespace test {

struct ReferenceKeyword {
  std::string name;
  std::string value;
  std::string comment;
};

/// Shares nothing with the library but the lists of known names. Loads once; what it found stands
/// in the public members.
class ReferenceReader {
 public:
  explicit ReferenceReader(int mode) { set_mode(mode); }
  void set_mode(int mode);
  bool load(const std::string& text);

  std::string messages;
  std::string identifier;
  std::vector<ReferenceKeyword> keywords;
  std::vector<std::string> fields;
  std::vector<int> column_kinds;  // 0 for text, 2 for numbers
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> weighting_functions;
  std::vector<std::string> computational_parameters;
  std::vector<std::string> process_color_ids;
  std::vector<std::string> spot_color_ids;
  int number_of_fields = -1;
  int number_of_sets = -1;

 private:
  enum class State { header, format_line, format_end, data, done };

  void error(const std::string& message);
  void warning(const std::string& message);
  void note(const std::string& message);
  void grave(const std::string& message);

  void read_semicolon_table(const std::vector<std::string>& lines);
  void read_file(const std::vector<std::string>& lines);
  void check_plain_table(const std::vector<std::string>& lines);
  bool takes_identifier(const std::vector<std::string>& lines);
  void read_line(const std::string& line);
  void read_header_line(const std::vector<std::string>& items, const std::string& comment);
  void read_keyword_line(const std::vector<std::string>& items, const std::string& comment);
  void read_identifier_line(const std::string& line);
  void read_data_line(const std::string& line);
  void check_end();
  void check_required_keywords();

  void set_keyword(const std::string& name, const std::string& value, const std::string& comment);
  void declare_keyword(const std::string& name);
  void declare_field(const std::string& name);
  void set_number_of_fields(const std::string& text);
  void set_number_of_sets(const std::string& text);
  ReferenceKeyword* find_keyword(const std::string& name);
  bool is_accepted(const std::string& name);

  int mode_ = 0;
  std::string separators_ = " \t";
  char comment_char_ = '#';

  bool no_errors_ = true;
  bool no_warnings_ = true;
  State state_ = State::header;
  int current_line_ = 0;
  int last_bad_row_width_ = -1;
  std::size_t reserved_fields_ = 0;
  vantor::MeasData::FileKind kind_ = vantor::MeasData::FileKind::other;
  std::vector<std::string> required_keywords_;
  std::vector<std::string> optional_keywords_;
  std::vector<std::string> declared_fields_;
};

}  // namespace test

#endif  // MEASDATA_TESTS_MEASDATA_REFERENCE_READER_H
