#include "kit/preflight/number_block.h"

#include <algorithm>

namespace measkit {

// Moves to the next line that is not empty.
bool NumberBlocks::next_line() {
  while (lines_.next()) {
    if (without_blanks(lines_.line()).empty()) continue;
    cut_cells(lines_.line(), delimiter_, pool_, cells_);
    ++lines_seen_;
    return true;
  }
  return false;
}

bool NumberBlocks::is_row() const {
  return filled_width(cells_) >= 2 && is_number(cells_.front()) &&
         std::all_of(cells_.begin(), cells_.end(), is_number_or_missing);
}

void NumberBlocks::append(NumberBlock& block) {
  cells_.resize(block.width);
  block.cells.insert(block.cells.end(), cells_.begin(), cells_.end());
  block.end = lines_.end();
}

bool NumberBlocks::next(NumberBlock& block) {
  constexpr std::size_t kMostPreamble = 500, kLeastRows = 3;
  if (!has_line_) has_line_ = next_line();
  while (has_line_ && lines_seen_ <= kMostPreamble) {
    if (!is_row()) {
      if (above_.size() == NumberBlock::kMostAbove) above_.erase(above_.begin());
      above_.push_back({lines_.line(), lines_.number()});
      has_line_ = next_line();
      continue;
    }
    block = {above_, {}, cells_.size(), lines_.number(), lines_.start(), 0, delimiter_};
    for (; has_line_ && is_row() && filled_width(cells_) <= block.width; has_line_ = next_line()) {
      append(block);
    }
    above_.clear();
    if (block.rows() >= kLeastRows) return true;
  }
  return false;
}

}  // namespace measkit
