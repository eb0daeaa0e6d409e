// Cuts a text into lines.
#ifndef MEASDATA_MEASDATA_LINE_READER_H
#define MEASDATA_MEASDATA_LINE_READER_H

#include <cstddef>
#include <string_view>

namespace vantor::MeasData {

/// The position behind one line break at `position`; `position` itself when there is none.
std::size_t behind_break(std::string_view text, std::size_t position);

/// Lines end with "\r\n", "\n\r", "\r" or "\n", in any mixture. A text that begins with one line
/// break loses it; a break at the very end makes no further line. The lines are views into the
/// text.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : text_(text), start_(behind_break(text, 0)) {}

  /// Moves to the next line; false when there is none.
  bool next(std::string_view& line);

  /// The lines to come.
  std::string_view rest() const { return text_.substr(start_); }

 private:
  std::string_view text_;
  std::size_t start_;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_LINE_READER_H
