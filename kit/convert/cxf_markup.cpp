#include "kit/convert/cxf_markup.h"

#include "kit/cxf/xml_characters.h"

#include <algorithm>

namespace measkit {
namespace {

bool is_plain(char c) {
  return c >= ' ' && c < '\x7F' && c != '&' && c != '<' && c != '>' && c != '"';
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
  const std::size_t size = cxf::size_of_character(text);
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
