#include "kit/preflight/decimal_text.h"

#include "measdata/number_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
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

// The parts of sign digits [. digits] [e exponent] and of what stands behind them, which the
// library does not read.
struct Parts {
  bool is_valid = false;
  bool is_negative = false;
  std::string_view whole, fraction, rest;
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
  parts.is_valid = !parts.whole.empty() || !parts.fraction.empty();
  parts.rest = text.substr(at);
  if (!parts.is_valid || at == text.size() || (text[at] != 'e' && text[at] != 'E')) return parts;
  ++at;
  if (at < text.size() && text[at] == '+') ++at;
  int exponent = 0;
  const char* const start = text.data() + at;
  const auto [end, error] = std::from_chars(start, text.data() + text.size(), exponent);
  constexpr int kLargest = 1000000;  // so that moving the point cannot overflow
  if (error == std::errc() && exponent <= kLargest && exponent >= -kLargest) {
    parts.has_exponent = true;
    parts.exponent = exponent;
    parts.rest = text.substr(at + static_cast<std::size_t>(end - start));
  }
  return parts;
}

char* append(std::string_view text, char* out) {
  if (!text.empty()) std::memcpy(out, text.data(), text.size());
  return out + text.size();
}

char* append_zeros(std::size_t count, char* out) {
  std::memset(out, '0', count);
  return out + count;
}

// Without the zeros that a move put in front of other digits.
char* drop_leading_zeros(char* start, const char* end) {
  const char* first = start;
  while (first + 1 < end && *first == '0' && is_digit(first[1])) ++first;
  const auto size = static_cast<std::size_t>(end - first);
  std::memmove(start, first, size);
  return start + size;
}

// The digits of both parts with the point `places` further right.
char* write_digits(const Parts& parts, int places, char* out) {
  const std::string_view whole = parts.whole, fraction = parts.fraction;
  const auto count = static_cast<std::size_t>(std::abs(places));
  char* const start = out;
  if (places < 0 && whole.size() <= count) {
    out = append("0.", out);
    out = append_zeros(count - whole.size(), out);
    out = append(whole, out);
    return append(fraction, out);
  }
  if (places <= 0) {
    out = append(whole.substr(0, whole.size() - count), out);
    const bool is_whole = count == 0 && fraction.empty();
    if (!is_whole) *out++ = '.';
    out = append(whole.substr(whole.size() - count), out);
    return append(fraction, out);
  }
  out = append(whole, out);
  out = append(fraction.substr(0, count), out);
  if (fraction.size() < count) out = append_zeros(count - fraction.size(), out);
  out = drop_leading_zeros(start, out);
  if (fraction.size() <= count) return out;
  *out++ = '.';
  return append(fraction.substr(count), out);
}

}  // namespace

char* write_moved_point(std::string_view number, int places, char* out) {
  const Parts parts = parts_of(number);
  if (!parts.is_valid) return append(number, out);
  if (parts.is_negative) *out++ = '-';
  if (!parts.has_exponent) return append(parts.rest, write_digits(parts, places, out));
  out = write_digits(parts, 0, out);
  *out++ = 'e';
  constexpr std::ptrdiff_t kExponentRoom = 12;
  out = std::to_chars(out, out + kExponentRoom, parts.exponent + places).ptr;
  return append(parts.rest, out);
}

std::string_view move_point(std::string_view number, int places, TextPool& pool) {
  char* const start = pool.room(number.size() + room_for_moved_point(places));
  return pool.keep(static_cast<std::size_t>(write_moved_point(number, places, start) - start));
}

#if defined(__cpp_lib_to_chars)

std::size_t read_decimal(std::string_view text, double& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() ? static_cast<std::size_t>(end - text.data()) : 0;
}

#else  // libc++

std::size_t read_decimal(std::string_view text, double& value) {
  if (text.starts_with('+')) return 0;
  const std::size_t comma = std::min(text.find(','), text.size());
  const Parts parts = parts_of(text.substr(0, comma));
  if (!parts.is_valid) return 0;
  const std::size_t size = comma - parts.rest.size();
  const double read = vantor::MeasData::NumberReader().read(text.substr(0, size));
  if (std::isinf(read)) return 0;
  value = read;
  return size;
}

#endif

std::string_view text_of(double value, TextPool& pool) { return pool.add(text_of(value)); }

std::string text_of(double value) {
  if (std::isnan(value)) return "nan";  // without a sign
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
