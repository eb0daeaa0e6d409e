// Finds lines of numbers below each other.
#ifndef MEASDATA_KIT_PREFLIGHT_NUMBER_BLOCK_H
#define MEASDATA_KIT_PREFLIGHT_NUMBER_BLOCK_H

#include "kit/preflight/delimited_text.h"
#include "kit/preflight/line_cursor.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace measkit {

/// Lines of numbers, with the lines above that are none.
struct NumberBlock {
  struct Line {
    std::string_view text;
    std::size_t number = 0;
  };
  std::vector<Line> above;  ///< the last kMostAbove lines that are not empty
  SheetCells cells;         ///< row by row; a cell that is missing is empty
  std::size_t width = 0;
  std::size_t first_line = 0;
  std::size_t start = 0, end = 0;  ///< positions in the text
  Delimiter delimiter = Delimiter::comma;

  static constexpr std::size_t kMostAbove = 100;

  std::size_t rows() const { return width == 0 ? 0 : cells.size() / width; }
  std::string_view cell(std::size_t row, std::size_t column) const {
    return cells[row * width + column];
  }
};

/// Yields the blocks of a text that begin within its first 500 lines, when they have two columns
/// and three rows at least.
class NumberBlocks {
 public:
  NumberBlocks(std::string_view text, Delimiter delimiter, TextPool& pool)
      : lines_(text), delimiter_(delimiter), pool_(pool) {}

  bool next(NumberBlock& block);

 private:
  bool next_line();
  bool is_row() const;
  void append(NumberBlock& block);

  LineCursor lines_;
  Delimiter delimiter_;
  TextPool& pool_;
  SheetCells cells_;
  std::vector<NumberBlock::Line> above_;
  std::size_t lines_seen_ = 0;
  bool has_line_ = false;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_NUMBER_BLOCK_H
