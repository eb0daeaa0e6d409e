// The field list of a file and the lines of its data block.
#ifndef MEASDATA_MEASDATA_DATA_FORMAT_H
#define MEASDATA_MEASDATA_DATA_FORMAT_H

#include "measdata/reader_tables.h"

#include <cstddef>
#include <string_view>

namespace vantor::MeasData {

/// Reads the two kinds of line that hold fields rather than keywords. Both are cut at blanks and
/// tabs in every mode. Whatever is wrong with a line, all of it is kept.
class DataFormatReader {
 public:
  DataFormatReader(ReaderTables& tables, char comment_char)
      : tables_(tables), comment_char_(comment_char) {}

  /// The one line behind BEGIN_DATA_FORMAT.
  void read_identifier_line(std::string_view line);
  /// A line of the data block; `line_index` counts from 0.
  void read_data_line(std::string_view line, std::size_t line_index);
  /// The same for a line that is known to hold `width` items, at least one.
  void append_row(std::string_view line, std::size_t width, std::size_t line_index);

 private:
  void check_field_count(std::size_t count);
  void check_identifier(std::string_view name, std::string_view& spectral_prefix);
  bool is_accepted(std::string_view name) const;

  ReaderTables& tables_;
  char comment_char_;
  // A wrong width of a row is told when it is another than the wrong width told before.
  std::size_t last_bad_row_width_ = 0;  // no row is so short
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_DATA_FORMAT_H
