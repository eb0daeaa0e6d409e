#include "kit/preflight/shifted_rows.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/numeric_rows.h"

#include <algorithm>
#include <cstring>

namespace measkit {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_break(char c) { return c == '\n' || c == '\r'; }
bool is_separator(char c) { return c == ' ' || c == '\t' || is_break(c); }

// Copies the text between two positions to `out`; the end of the copy.
char* copy(const char* begin, const char* end, char* out) {
  while (begin != end) *out++ = *begin++;
  return out;
}

// Writes a number with its point moved; the end of the number. Most are digits with a point between
// them: they take one pass.
const char* write_shifted(const char* number, const char* end, int places, char*& out) {
  const char* at = number;
  char* to = out;
  if (places == 0) {
    while (at != end && !is_separator(*at)) *to++ = *at++;
    out = to;
    return at;
  }
  if (*at == '-') *to++ = *at++;
  const char* const whole = at;
  while (at != end && is_digit(*at)) ++at;
  const char* const whole_end = at;
  const char* fraction = at;
  if (at != end && *at == '.') fraction = ++at;
  while (at != end && is_digit(*at)) ++at;
  const bool is_usual = places < 0 && whole_end != whole && (at == end || is_separator(*at));
  if (!is_usual) {
    while (at != end && !is_separator(*at)) ++at;
    const std::string_view text(number, static_cast<std::size_t>(at - number));
    out = write_moved_point(text, places, out);
    return at;
  }
  const std::ptrdiff_t kept = whole_end - whole + places;
  if (kept > 0) {
    to = copy(whole, whole + kept, to);
    *to++ = '.';
    to = copy(whole + kept, whole_end, to);
  } else {
    *to++ = '0';
    *to++ = '.';
    for (std::ptrdiff_t i = kept; i < 0; ++i) *to++ = '0';
    to = copy(whole, whole_end, to);
  }
  out = copy(fraction, at, to);
  return at;
}

}  // namespace

bool append_shifted_rows(std::string_view data, std::size_t text_cells, std::span<const int> shifts,
                         std::string& out) {
  std::size_t most_added = 1;  // a line break behind the last row
  for (const int shift : shifts) most_added += room_for_moved_point(shift);
  std::size_t size = out.size();
  const char* const end = data.data() + data.size();
  for (std::size_t start = 0; start < data.size();) {
    // Room for all that follows as it stands, and for what this row adds.
    const std::size_t room = size + (data.size() - start) + most_added;
    if (out.size() < room) out.resize(std::max(out.capacity(), room + room / 4));
    char* to = out.data() + size;
    const char* at = data.data() + behind_cells(data, start, text_cells);
    to = copy(data.data() + start, at, to);
    const bool is_blank = std::all_of(data.data() + start, at, is_separator);
    std::size_t column = text_cells;
    while (at != end && !is_break(*at)) {
      if (is_separator(*at)) {
        *to++ = *at++;
      } else if (column == shifts.size()) {
        return false;
      } else {
        at = write_shifted(at, end, shifts[column++], to);
      }
    }
    if (column == shifts.size()) {
      *to++ = '\n';
      size = static_cast<std::size_t>(to - out.data());
    } else if (!is_blank || column != text_cells) {
      return false;
    }
    start = static_cast<std::size_t>(at - data.data());
    while (start < data.size() && is_break(data[start])) ++start;
  }
  out.resize(size);
  return true;
}

}  // namespace measkit
