// Numbers as XML writes them.
#ifndef MEASDATA_KIT_CXF_NUMBERS_H
#define MEASDATA_KIT_CXF_NUMBERS_H

#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <system_error>

namespace measkit::cxf {

/// The next word of a list that white space separates; empty at its end.
inline std::string_view next_word(std::string_view& list) {
  const auto is_space = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
  std::size_t start = 0;
  while (start < list.size() && is_space(list[start])) ++start;
  std::size_t end = start;
  while (end < list.size() && !is_space(list[end])) ++end;
  const std::string_view word = list.substr(start, end - start);
  list.remove_prefix(end);
  return word;
}

inline std::size_t count_words(std::string_view list) {
  std::size_t count = 0;
  bool is_in_word = false;
  for (const char c : list) {
    const bool is_word = c != ' ' && c != '\n' && c != '\t' && c != '\r';
    count += static_cast<std::size_t>(is_word && !is_in_word);
    is_in_word = is_word;
  }
  return count;
}

/// A sign, digits with a point among them, an exponent. No words such as INF.
inline bool is_decimal(std::string_view text) {
  std::size_t i = 0;
  const auto skip_sign = [&] {
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
  };
  const auto skip_digits = [&] {
    const std::size_t start = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
    return i - start;
  };
  skip_sign();
  std::size_t digits = skip_digits();
  if (i < text.size() && text[i] == '.') {
    ++i;
    digits += skip_digits();
  }
  if (digits == 0) return false;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    skip_sign();
    if (skip_digits() == 0) return false;
  }
  return i == text.size();
}

inline std::optional<double> number_of(std::string_view text) {
  if (!is_decimal(text)) return std::nullopt;
  if (text.front() == '+') text.remove_prefix(1);
  double value = 0.0;
  const std::from_chars_result result =
      std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_NUMBERS_H
