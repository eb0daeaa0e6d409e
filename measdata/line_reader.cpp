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

// Position of the first line break at or behind `position`, or the text's size. Eight bytes at a
// time: this looks at every byte of a file.
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

bool LineReader::next(std::string_view& line) {
  if (start_ >= text_.size()) return false;
  const std::size_t end = find_break(text_, start_);
  line = text_.substr(start_, end - start_);
  start_ = behind_break(end);
  return true;
}

// The position behind one line break at `position`; `position` itself when there is none.
std::size_t LineReader::behind_break(std::size_t position) const {
  if (position >= text_.size() || !is_break(text_[position])) return position;
  const char other = text_[position] == '\n' ? '\r' : '\n';
  const bool is_pair = position + 1 < text_.size() && text_[position + 1] == other;
  return position + (is_pair ? 2 : 1);
}

}  // namespace vantor::MeasData
