// Walks through the lines of a text and counts them.
#ifndef MEASDATA_KIT_PREFLIGHT_LINE_CURSOR_H
#define MEASDATA_KIT_PREFLIGHT_LINE_CURSOR_H

#include "measdata/line_reader.h"

#include <cstddef>
#include <string_view>

namespace measkit {

/// Cuts lines where the library cuts them. Lines are counted from 1.
class LineCursor {
 public:
  explicit LineCursor(std::string_view text, std::size_t first_line = 1)
      : text_(text), lines_(text), number_(first_line - 1) {
    // The library passes over a line break at the start; it ends a line all the same.
    if (lines_.rest().size() != text.size()) ++number_;
  }

  /// Moves to the next line; false when there is none.
  bool next() {
    if (!lines_.next(line_)) return false;
    ++number_;
    return true;
  }

  std::string_view line() const { return line_; }
  std::size_t number() const { return number_; }
  /// Positions in the text: of the line, and behind its line break.
  std::size_t start() const { return static_cast<std::size_t>(line_.data() - text_.data()); }
  std::size_t end() const { return text_.size() - lines_.rest().size(); }

 private:
  std::string_view text_, line_;
  vantor::MeasData::LineReader lines_;
  std::size_t number_;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_LINE_CURSOR_H
