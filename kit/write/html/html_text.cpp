#include "kit/write/html/html_text.h"

#include "kit/write/printable_text.h"

#include <algorithm>

namespace measkit::html {
namespace {

constexpr std::string_view kReplacement = "\uFFFD";

bool is_noncharacter(char32_t code) {
  return (code & 0xFFFEU) == 0xFFFEU || (code >= 0xFDD0 && code <= 0xFDEF);
}

// The HTML reference for a character; empty if it needs none.
std::string_view substitute_of(char32_t code) {
  switch (code) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    case '\t':
    case '\n':
    case '\r':
      return " ";
    default:
      return is_control(code) || is_noncharacter(code) ? kReplacement : "";
  }
}

}  // namespace

std::string html_text(std::string_view text, std::size_t most_characters) {
  std::string out;
  out.reserve(std::min(text.size(), most_characters));
  for (std::size_t characters = 0; !text.empty(); ++characters) {
    if (characters == most_characters) return out + "\u2026";
    char32_t code = 0;
    const std::size_t length = utf8_length(text, code);
    const std::size_t taken = std::max<std::size_t>(length, 1);
    if (length == 0) code = static_cast<unsigned char>(text.front());
    const std::string_view substitute = substitute_of(code);
    out += substitute.empty() ? utf8_of(text.substr(0, taken)) : substitute;
    text.remove_prefix(taken);
  }
  return out;
}

}  // namespace measkit::html
