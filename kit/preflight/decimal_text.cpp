#include "kit/preflight/decimal_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace measkit {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_point(char c) { return c == '.' || c == ','; }

std::size_t digits_at(std::string_view text, std::size_t position) {
  std::size_t count = 0;
  while (position + count < text.size() && is_digit(text[position + count])) ++count;
  return count;
}

// The parts of sign digits [. digits] [e exponent].
struct Parts {
  bool is_valid = false;
  bool is_negative = false;
  std::string_view whole, fraction;
  bool has_exponent = false;
  int exponent = 0;
};

Parts parts_of(std::string_view text) {
  Parts parts;
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '-' || text[at] == '+'))
    parts.is_negative = text[at++] == '-';
  parts.whole = text.substr(at, digits_at(text, at));
  at += parts.whole.size();
  if (at < text.size() && is_point(text[at])) {
    parts.fraction = text.substr(at + 1, digits_at(text, at + 1));
    at += 1 + parts.fraction.size();
  }
  if (parts.whole.empty() && parts.fraction.empty()) return parts;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && text[at] == '+') ++at;
    const auto [end, error] =
        std::from_chars(text.data() + at, text.data() + text.size(), parts.exponent);
    if (error != std::errc() || end != text.data() + text.size()) return parts;
    constexpr int kLargest = 1000000;  // so that moving the point cannot overflow
    if (parts.exponent > kLargest || parts.exponent < -kLargest) return parts;
    parts.has_exponent = true;
    at = text.size();
  }
  parts.is_valid = at == text.size();
  return parts;
}

// Writes the digits of both parts with the point `places` further right.
char* write_moved(const Parts& parts, int places, char* out) {
  const auto size = static_cast<std::ptrdiff_t>(parts.whole.size() + parts.fraction.size());
  const std::ptrdiff_t point = static_cast<std::ptrdiff_t>(parts.whole.size()) + places;
  const auto digit = [&parts](std::ptrdiff_t i) {
    const auto at = static_cast<std::size_t>(i);
    return at < parts.whole.size() ? parts.whole[at] : parts.fraction[at - parts.whole.size()];
  };
  if (point <= 0) {
    *out++ = '0';
  } else {
    std::ptrdiff_t first = 0;  // zeros before the first digit that counts
    while (first + 1 < std::min(point, size) && digit(first) == '0') ++first;
    for (std::ptrdiff_t i = first; i < point; ++i) *out++ = i < size ? digit(i) : '0';
  }
  if (point >= size) return out;
  *out++ = '.';
  for (std::ptrdiff_t i = point; i < size; ++i) *out++ = i < 0 ? '0' : digit(i);
  return out;
}

}  // namespace

std::string_view move_point(std::string_view number, int places, TextPool& pool) {
  const Parts parts = parts_of(number);
  if (!parts.is_valid) return number;
  constexpr std::size_t kExponentRoom = 16;
  char* const start =
      pool.room(number.size() + static_cast<std::size_t>(std::abs(places)) + kExponentRoom);
  char* end = start;
  if (parts.is_negative) *end++ = '-';
  if (parts.has_exponent) {
    end = write_moved(parts, 0, end);
    *end++ = 'e';
    end = std::to_chars(end, end + kExponentRoom, parts.exponent + places).ptr;
  } else {
    end = write_moved(parts, places, end);
  }
  return pool.keep(static_cast<std::size_t>(end - start));
}

std::string_view text_of(double value, TextPool& pool) { return pool.add(text_of(value)); }

std::string text_of(double value) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  return {digits.data(), end};
}

std::string rounded(double value) {
  std::array<char, 32> digits{};
  std::snprintf(digits.data(), digits.size(), "%.4g", value);
  return digits.data();
}

}  // namespace measkit
