#include "kit/write/labelled_lines.h"

#include "kit/write/layout.h"

namespace measkit {

void add_labelled(Lines& lines, std::string_view label, std::string_view text,
                  std::size_t most_lines) {
  constexpr std::size_t kLabelWidth = 13;
  const std::size_t width = kTerminalWidth - kIndent - kLabelWidth;
  Lines parts = wrapped(shortened(text, most_lines * width), width);
  if (parts.size() > most_lines) {
    parts.resize(most_lines);
    parts.back() = shortened(parts.back(), width - 3) + "...";
  }
  std::string start(label.substr(0, kLabelWidth - 1));
  for (const std::string& part : parts) {
    start.resize(kLabelWidth, ' ');
    lines.push_back(start + part);
    start.clear();
  }
}

}  // namespace measkit
