#include "measdata/line_reader.h"

#include <cstdint>
#include <cstring>

namespace vantor::MeasData {
namespace {

bool is_break(char c) { return c == '\n' || c == '\r'; }

// Nonzero when one of the word's eight bytes is zero.
constexpr std::uint64_t has_zero_byte(std::uint64_t word) {
  return (word - 0x0101010101010101U) & ~word & 0x8080808080808080U;
}

// Position of the first line break at or behind `position`, or the text's size, eight bytes at a
// time.
std::size_t find_break(std::string_view text, std::size_t position) {
  constexpr std::uint64_t kLineFeeds = 0x0A0A0A0A0A0A0A0AU;
  constexpr std::uint64_t kCarriageReturns = 0x0D0D0D0D0D0D0D0DU;
  for (; text.size() - position >= sizeof(std::uint64_t); position += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + position, sizeof word);
    if ((has_zero_byte(word ^ kLineFeeds) | has_zero_byte(word ^ kCarriageReturns)) != 0) break;
  }
  while (position < text.size() && !is_break(text[position])) ++position;
  return position;
}

}  // namespace

std::size_t behind_break(std::string_view text, std::size_t position) {
  if (position >= text.size() || !is_break(text[position])) return position;
  const char other = text[position] == '\n' ? '\r' : '\n';
  const bool is_pair = position + 1 < text.size() && text[position + 1] == other;
  return position + (is_pair ? 2 : 1);
}

bool LineReader::next(std::string_view& line) {
  if (start_ >= text_.size()) return false;
  const std::size_t end = find_break(text_, start_);
  line = text_.substr(start_, end - start_);
  start_ = behind_break(text_, end);
  return true;
}

}  // namespace vantor::MeasData
