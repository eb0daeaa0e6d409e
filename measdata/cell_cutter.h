// Cuts rows into cells.
#ifndef MEASDATA_MEASDATA_CELL_CUTTER_H
#define MEASDATA_MEASDATA_CELL_CUTTER_H

#include "measdata/byte_masks.h"
#include "measdata/tokenizer.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace vantor::MeasData {

/// Gives the same cells as a Tokenizer, but for rows without quotes and comments, nearly all, finds
/// the separators of 64 bytes at once. Keeps its memory from row to row.
class CellCutter {
 public:
  /// Makes room for lines of so many cells.
  void reserve(std::size_t count) { cells_.resize(count + kBlockSize); }
  /// The cells of `line`, which lies in `text`, up to a comment; valid until the next call. The
  /// comment character counts only where empty cells do not: semicolon tables have no comments
  /// behind cells.
  std::span<const std::string_view> cut(std::string_view text, std::string_view line,
                                        const TokenRules& rules, char comment_char);

 private:
  // Where the cells of one more block go.
  std::string_view* room_for_block() {
    if (cells_.size() < count_ + kBlockSize) cells_.resize(2 * (count_ + kBlockSize));
    return cells_.data() + count_;
  }
  void cut_slowly(std::string_view line, const TokenRules& rules, char comment_char);

  std::vector<std::string_view> cells_;  // those that count, and room behind them
  std::size_t count_ = 0;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_CELL_CUTTER_H
