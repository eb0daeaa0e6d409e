#include "kit/write/printable_text.h"

#include <algorithm>

namespace measkit {
namespace {

bool is_continuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

void append_escaped(std::string& out, char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  out += "\\x";
  out += kDigits[value >> 4U];
  out += kDigits[value & 0x0FU];
}

}  // namespace

bool is_control(char32_t code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0) ||  // C0, delete, C1
         (code >= 0x200B && code <= 0x200F) ||            // invisible, direction marks
         (code >= 0x2028 && code <= 0x202E) ||            // line separators, direction overrides
         (code >= 0x2066 && code <= 0x2069);              // direction isolates
}

std::size_t utf8_length(std::string_view text, char32_t& code) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) {
    code = lead;
    return 1;
  }
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  code = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if (!is_continuation(text[i])) return 0;
    code = (code << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code < kSmallest[length] || is_surrogate || code > 0x10FFFF ? 0 : length;
}

std::string printable(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    char32_t code = 0;
    const std::size_t length = utf8_length(text, code);
    const std::size_t taken = std::max<std::size_t>(length, 1);
    if (length == 0 || is_control(code)) {
      for (const char byte : text.substr(0, taken)) append_escaped(out, byte);
    } else {
      out += text.substr(0, taken);
    }
    text.remove_prefix(taken);
  }
  return out;
}

std::string utf8_of(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    char32_t code = 0;
    const std::size_t length = utf8_length(text, code);
    const std::size_t taken = std::max<std::size_t>(length, 1);
    if (length == 0) {
      const auto byte = static_cast<unsigned char>(text.front());
      out += static_cast<char>(0xC0U | (byte >> 6U));
      out += static_cast<char>(0x80U | (byte & 0x3FU));
    } else {
      out += text.substr(0, taken);
    }
    text.remove_prefix(taken);
  }
  return out;
}

std::size_t display_width(std::string_view printable_text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(printable_text, [](char byte) { return !is_continuation(byte); }));
}

}  // namespace measkit
