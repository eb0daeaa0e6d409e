// How a text is to be read.
#ifndef MEASDATA_MEASDATA_READER_MODE_H
#define MEASDATA_MEASDATA_READER_MODE_H

#include <cstdint>

namespace vantor::MeasData {

enum class ReaderMode : std::int32_t {
  lenient = 0,         ///< warnings are written and do not fail the read
  lenient_silent = 1,  ///< the same, warnings not written
  semicolon_table = 2,
  strict = 3,       ///< warnings fail the read; some keywords are required
  plain_table = 4,  ///< no header: the first line holds the field identifiers
};

struct ReaderSettings {
  ReaderMode mode = ReaderMode::lenient;
  char separator = ' ';
  char other_separator = '\t';
  char comment_char = '#';
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_READER_MODE_H
