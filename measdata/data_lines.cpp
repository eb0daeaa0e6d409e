#include "measdata/data_lines.h"

#include "measdata/byte_masks.h"
#include "measdata/line_reader.h"

#include <bit>

namespace vantor::MeasData {

// An item begins behind each separator and at the start of the line, but, where empty items do not
// count, not on a separator.
bool DataLineReader::next(DataLine& line) {
  if (start_ >= text_.size()) return false;
  if (!is_loaded_ || start_ - block_ >= kBlockSize) load_block(start_);
  const std::uint64_t never_begins_item =
      rules_.empty_tokens == EmptyTokens::drop ? ~std::uint64_t{0} : 0;
  std::uint64_t line_bits = bits_from(start_ - block_);
  std::uint64_t behind_separator = std::uint64_t{1} << (start_ - block_);
  std::uint64_t specials = 0;
  std::uint64_t breaks = 0;
  line.items = 0;
  for (;;) {
    breaks = breaks_ & line_bits;
    if (breaks != 0) line_bits &= (breaks & (0 - breaks)) - 1;  // those below the first break
    behind_separator |= separators_ << 1U;
    const std::uint64_t item_starts =
        behind_separator & ~(separators_ & never_begins_item) & line_bits;
    line.items += count_bits(item_starts);
    specials |= specials_ & line_bits;
    if (breaks != 0) break;
    behind_separator = separators_ >> (kBlockSize - 1);
    load_block(block_ + kBlockSize);
    line_bits = bits_from(0);
  }
  const std::size_t end = block_ + static_cast<std::size_t>(std::countr_zero(breaks));
  line.text = text_.substr(start_, end - start_);
  line.is_plain = specials == 0;
  start_ = behind_break(text_, end);
  return true;
}

// Behind the end of the text there are line breaks.
void DataLineReader::load_block(std::size_t position) {
  block_ = position;
  is_loaded_ = true;
  const ByteBlock bytes = block_at(text_, position, '\n');
  breaks_ = bytes.positions_of('\n') | bytes.positions_of('\r');
  separators_ = bytes.positions_of(rules_.separator) | bytes.positions_of(rules_.other_separator);
  specials_ = bytes.positions_of('"') | bytes.positions_of(comment_char_);
}

}  // namespace vantor::MeasData
