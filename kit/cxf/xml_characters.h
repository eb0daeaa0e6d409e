// The characters that XML allows.
#ifndef MEASDATA_KIT_CXF_XML_CHARACTERS_H
#define MEASDATA_KIT_CXF_XML_CHARACTERS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace measkit::cxf {

/// The bytes of the character in UTF-8 beyond ASCII that a text begins with; 0 when it is none or
/// XML forbids it.
inline std::size_t size_of_character(std::string_view text) {
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

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_XML_CHARACTERS_H
