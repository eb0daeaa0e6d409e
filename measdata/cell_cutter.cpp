#include "measdata/cell_cutter.h"

#include "measdata/byte_masks.h"

#include <bit>
#include <cstdint>

namespace vantor::MeasData {

std::span<const std::string_view> CellCutter::cut(std::string_view text, std::string_view line,
                                                  const TokenRules& rules, char comment_char) {
  const bool keeps_empty = rules.empty_tokens == EmptyTokens::keep;
  const char other_special = keeps_empty ? '"' : comment_char;
  const char* const end = line.data() + line.size();
  const char* start = line.data();
  count_ = 0;
  for (std::size_t done = 0; done < line.size(); done += kBlockSize) {
    const char* const block = line.data() + done;
    const ByteBlock bytes = block_at(text, static_cast<std::size_t>(block - text.data()), ' ');
    const std::uint64_t line_bits = ~bits_from(line.size() - done);
    if (((bytes.positions_of('"') | bytes.positions_of(other_special)) & line_bits) != 0) {
      cut_slowly(line, rules, comment_char);
      return std::span(cells_).first(count_);
    }
    std::uint64_t separators =
        (bytes.positions_of(rules.separator) | bytes.positions_of(rules.other_separator)) &
        line_bits;
    std::string_view* cell = room_for_block();
    for (; separators != 0; separators &= separators - 1) {
      const char* const separator = block + std::countr_zero(separators);
      *cell = std::string_view(start, static_cast<std::size_t>(separator - start));
      if (keeps_empty || separator != start) ++cell;
      start = separator + 1;
    }
    count_ = static_cast<std::size_t>(cell - cells_.data());
  }
  if (start != end) {
    *room_for_block() = std::string_view(start, static_cast<std::size_t>(end - start));
    ++count_;
  }
  return std::span(cells_).first(count_);
}

void CellCutter::cut_slowly(std::string_view line, const TokenRules& rules, char comment_char) {
  if (rules.empty_tokens == EmptyTokens::keep) {
    split(line, rules, cells_);
  } else {
    split_items(line, rules, comment_char, cells_);
  }
  count_ = cells_.size();
}

}  // namespace vantor::MeasData
