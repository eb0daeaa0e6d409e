// Walks through the lines of a text and counts them.
#ifndef MEASDATA_KIT_PREFLIGHT_LINE_CURSOR_H
#define MEASDATA_KIT_PREFLIGHT_LINE_CURSOR_H

#include "measdata/line_reader.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace measkit {

/// Cuts lines where the library cuts them. Lines are counted from 1.
class LineCursor {
 public:
  explicit LineCursor(std::string_view text, std::size_t first_line = 1)
      : text_(text), number_(first_line - 1) {}

  /// Moves to the next line; false when there is none.
  bool next() {
    if (next_ >= text_.size()) return false;
    start_ = next_;
    const std::size_t end = std::min(text_.find_first_of("\r\n", start_), text_.size());
    line_ = text_.substr(start_, end - start_);
    next_ = vantor::MeasData::behind_break(text_, end);
    ++number_;
    return true;
  }

  std::string_view line() const { return line_; }
  std::size_t number() const { return number_; }
  /// Positions in the text: of the line, and behind its line break.
  std::size_t start() const { return start_; }
  std::size_t end() const { return next_; }

 private:
  std::string_view text_, line_;
  std::size_t start_ = 0, next_ = 0, number_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_LINE_CURSOR_H
