#include "kit/preflight/numeric_rows.h"

#include "measdata/byte_masks.h"
#include "measdata/line_reader.h"
#include "measdata/tokenizer.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace measkit {
namespace {

using vantor::MeasData::bits_from;
using vantor::MeasData::block_at;
using vantor::MeasData::kBlockSize;

bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_break(char c) { return c == '\n' || c == '\r'; }

// The end of the line, when all up to it are bytes of numbers; npos otherwise. A minus sign that no
// digit follows belongs to no number.
std::size_t end_of_numbers(std::string_view data, std::size_t position) {
  std::uint64_t follows_minus = 0;
  for (; position < data.size(); position += kBlockSize) {
    const vantor::MeasData::ByteBlock block = block_at(data, position, '\n');
    const std::uint64_t breaks = block.positions_of('\n') | block.positions_of('\r');
    const std::uint64_t blanks = block.positions_of(' ') | block.positions_of('\t');
    const std::uint64_t minus = block.positions_of('-');
    const std::uint64_t numbers =
        block.positions_between('+', '9') | block.positions_of('e') | block.positions_of('E');
    const std::uint64_t lone_minus = ((minus << 1U) | follows_minus) & (minus | blanks | breaks);
    const std::uint64_t wrong = ~(numbers | blanks | breaks) | lone_minus;
    const std::size_t end =
        breaks == 0 ? kBlockSize : static_cast<std::size_t>(std::countr_zero(breaks));
    // The byte of the line's end counts for the minus sign before it.
    if ((wrong & ~bits_from(end + 1)) != 0) return std::string_view::npos;
    if (breaks != 0) return std::min(position + end, data.size());
    follows_minus = minus >> (kBlockSize - 1);
  }
  return data.size();
}

}  // namespace

std::size_t behind_cells(std::string_view data, std::size_t position, std::size_t count) {
  const auto skip = [&](auto is_wanted) {
    while (position < data.size() && is_wanted(data[position])) ++position;
  };
  for (std::size_t cell = 0; cell < count; ++cell) {
    skip(is_blank);
    if (position == data.size() || is_break(data[position])) return position;
    if (data[position] == '#') return std::string_view::npos;
    if (data[position] == '"') {
      ++position;
      skip([](char c) { return c != '"' && !is_break(c); });
      if (position == data.size() || data[position] != '"') return std::string_view::npos;
      ++position;
      // What stands right behind a closing quote begins a cell of its own.
      if (position < data.size() && !is_blank(data[position]) && !is_break(data[position])) {
        return std::string_view::npos;
      }
    } else {
      skip([](char c) { return !is_blank(c) && !is_break(c); });
    }
  }
  return position;
}

std::optional<std::size_t> count_numeric_rows(std::string_view data, std::size_t text_cells) {
  std::size_t count = 0;
  for (std::size_t position = 0; position < data.size();) {
    while (position < data.size() && is_blank(data[position])) ++position;
    if (position < data.size() && !is_break(data[position])) ++count;
    position = behind_cells(data, position, text_cells);
    if (position == std::string_view::npos) return std::nullopt;
    position = end_of_numbers(data, position);
    if (position == std::string_view::npos) return std::nullopt;
    while (position < data.size() && is_break(data[position])) ++position;
  }
  return count;
}

}  // namespace measkit
