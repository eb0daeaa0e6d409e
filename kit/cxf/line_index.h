// The lines of a text by their positions.
#ifndef MEASDATA_KIT_CXF_LINE_INDEX_H
#define MEASDATA_KIT_CXF_LINE_INDEX_H

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace measkit::cxf {

/// Remembers the line at each step through the text, so that a line is found by counting within
/// one step.
class LineIndex {
 public:
  LineIndex(std::string_view text, std::size_t first_line) : text_(text) {
    std::size_t line = first_line;
    for (std::size_t at = 0; at < text.size(); at += kStep) {
      lines_.push_back(line);
      line += breaks_in(text.substr(at, kStep));
    }
  }

  std::size_t line_at(std::size_t offset) const {
    offset = std::min(offset, text_.size());
    if (lines_.empty()) return 0;
    const std::size_t step = std::min(offset / kStep, lines_.size() - 1);
    return lines_[step] + breaks_in(text_.substr(step * kStep, offset - step * kStep));
  }

 private:
  static constexpr std::size_t kStep = 1024;

  static std::size_t breaks_in(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  }

  std::string_view text_;
  std::vector<std::size_t> lines_;
};

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_LINE_INDEX_H
