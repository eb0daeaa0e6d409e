#include "kit/write/layout.h"

#include "kit/write/printable_text.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace measkit {
namespace {

// How many bytes of a printable text fill `width` columns.
std::size_t bytes_of_columns(std::string_view text, std::size_t width) {
  std::size_t at = 0;
  while (at < text.size() && width > 0) {
    char32_t code = 0;
    at += std::max<std::size_t>(utf8_length(text.substr(at), code), 1);
    --width;
  }
  return std::min(at, text.size());
}

}  // namespace

std::string formatted(const char* format, double value) {
  std::array<char, 400> text{};  // the longest double has 309 digits before the point
  const int length = std::snprintf(text.data(), text.size(), format, value);
  return {text.data(), std::min(static_cast<std::size_t>(std::max(length, 0)), text.size() - 1)};
}

std::string counted(std::size_t count, std::string_view one, std::string_view several) {
  if (count == 0) return "no " + std::string(several);
  return std::to_string(count).append(" ").append(count == 1 ? one : several);
}

std::string shortened(std::string_view text, std::size_t width) {
  constexpr std::string_view kDots = "...";
  // Each character takes at most 4 bytes here, so a longer text need not be looked at.
  const std::size_t most_bytes = 4 * (width + 1);
  std::string line = printable(text.substr(0, most_bytes));
  if (text.size() <= most_bytes && display_width(line) <= width) return line;
  const std::size_t room = width - std::min(width, kDots.size());
  line.resize(bytes_of_columns(line, room));
  return line.append(kDots);
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  const std::string line = printable(text);
  std::string_view rest = line;
  std::vector<std::string> lines;
  for (std::size_t room = 0; (room = bytes_of_columns(rest, width)) < rest.size();) {
    const std::size_t blank = rest.rfind(' ', room);
    const bool is_breakable = blank != std::string_view::npos && blank != 0;
    const std::size_t end = is_breakable ? blank : room;
    lines.emplace_back(rest.substr(0, end));
    rest.remove_prefix(is_breakable ? end + 1 : end);
  }
  if (!rest.empty() || lines.empty()) lines.emplace_back(rest);
  return lines;
}

}  // namespace measkit
