// Walks the lines of a data block and counts what stands on them.
#ifndef MEASDATA_MEASDATA_DATA_LINES_H
#define MEASDATA_MEASDATA_DATA_LINES_H

#include "measdata/tokenizer.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vantor::MeasData {

struct DataLine {
  std::string_view text;
  /// False when there is a quote or a comment character in it: only the Tokenizer can tell then
  /// what the items are.
  bool is_plain = true;
  std::size_t items = 0;  ///< of a plain line
};

/// The lines that LineReader gives, in a single pass over the bytes, 64 at a time.
class DataLineReader {
 public:
  DataLineReader(std::string_view text, const TokenRules& rules, char comment_char)
      : text_(text), rules_(rules), comment_char_(comment_char) {}

  /// Moves to the next line; false when there is none.
  bool next(DataLine& line);

 private:
  void load_block(std::size_t position);

  std::string_view text_;
  TokenRules rules_;
  char comment_char_;
  std::size_t start_ = 0;  // of the next line
  // The block at hand, and what stands where in it.
  std::size_t block_ = 0;
  bool is_loaded_ = false;
  std::uint64_t breaks_ = 0;
  std::uint64_t separators_ = 0;
  std::uint64_t specials_ = 0;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_DATA_LINES_H
