#include "kit/convert/cxf_markup.h"

#include <algorithm>
#include <cstdint>

namespace measkit {
namespace {

bool is_plain(char c) {
  return c >= ' ' && c < '\x7F' && c != '&' && c != '<' && c != '>' && c != '"';
}

// The bytes of the character in UTF-8 that a text begins with; 0 when XML forbids it.
std::size_t size_of_character(std::string_view text) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const std::uint32_t lead = byte(0);
  const std::size_t size = lead < 0xC2U ? 0 : lead < 0xE0U ? 2 : lead < 0xF0U ? 3 : 4;
  if (size == 0 || lead > 0xF4U || text.size() < size) return 0;
  std::uint32_t code = lead & (0xFFU >> (size + 1));
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
    code = code << 6U | (byte(i) & 0x3FU);
  }
  const bool is_too_long = (size == 3 && code < 0x800U) || (size == 4 && code < 0x10000U);
  const bool is_forbidden =
      (code >= 0xD800U && code < 0xE000U) || code == 0xFFFEU || code == 0xFFFFU;
  return is_too_long || is_forbidden || code > 0x10FFFFU ? 0 : size;
}

}  // namespace

// White space is written by number: as it stands, readers make blanks of it in attributes.
std::size_t CxfMarkup::append_special(std::string_view text) {
  switch (text.front()) {
    case '&':
      text_ += "&amp;";
      return 1;
    case '<':
      text_ += "&lt;";
      return 1;
    case '>':
      text_ += "&gt;";
      return 1;
    case '"':
      text_ += "&quot;";
      return 1;
    case '\t':
      text_ += "&#9;";
      return 1;
    case '\n':
      text_ += "&#10;";
      return 1;
    case '\r':
      text_ += "&#13;";
      return 1;
    case '\x7F':
      text_ += '\x7F';
      return 1;
    default:
      break;
  }
  const std::size_t size = size_of_character(text);
  if (size == 0) ++forbidden_;
  text_ += text.substr(0, size);
  return std::max<std::size_t>(size, 1);
}

CxfMarkup& CxfMarkup::escaped(std::string_view text) {
  while (!text.empty()) {
    const auto end = std::find_if_not(text.begin(), text.end(), is_plain);
    const auto plain = static_cast<std::size_t>(end - text.begin());
    text_ += text.substr(0, plain);
    text.remove_prefix(plain);
    if (!text.empty()) text.remove_prefix(append_special(text));
  }
  return *this;
}

CxfMarkup& CxfMarkup::line(std::size_t depth, std::string_view markup) {
  text_.append(depth, '\t').append(markup).append("\n");
  return *this;
}

void CxfMarkup::element(std::size_t depth, std::string_view name, std::string_view text) {
  if (text.empty()) return;
  text_.append(depth, '\t').append("<cc:").append(name).append(">");
  escaped(text).raw("</cc:").raw(name).raw(">\n");
}

void CxfMarkup::tag(std::size_t depth, std::string_view name, std::string_view value) {
  text_.append(depth, '\t').append("<cc:Tag Name=\"");
  escaped(name).raw("\" Value=\"").escaped(value).raw("\"/>\n");
}

}  // namespace measkit
