#include "kit/preflight/encoding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

namespace measkit {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

enum class ByteOrder { little, big };

// Windows-1252 from 0x80 to 0x9F; 0 where it has no character, which then stands for itself.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void append_utf8(char32_t c, std::string& out) {
  const auto add = [&out](char32_t byte) { out += static_cast<char>(byte); };
  const auto add_rest = [&add, c](unsigned shift) { add(0x80U | ((c >> shift) & 0x3FU)); };
  if (c < 0x80U) {
    add(c);
  } else if (c < 0x800U) {
    add(0xC0U | (c >> 6U));
    add_rest(0);
  } else if (c < 0x10000U) {
    add(0xE0U | (c >> 12U));
    add_rest(6);
    add_rest(0);
  } else {
    add(0xF0U | (c >> 18U));
    add_rest(12);
    add_rest(6);
    add_rest(0);
  }
}

// The position of the first byte that is not ASCII.
std::size_t ascii_length(std::string_view text) {
  constexpr std::size_t kStep = 4 * sizeof(std::uint64_t);
  std::size_t at = 0;
  for (; text.size() - at >= kStep; at += kStep) {
    std::array<std::uint64_t, 4> words{};
    std::memcpy(words.data(), text.data() + at, kStep);
    if (((words[0] | words[1] | words[2] | words[3]) & 0x8080808080808080U) != 0) break;
  }
  while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80U) ++at;
  return at;
}

// The length of the UTF-8 sequence at the start of a text; 0 when there is none.
std::size_t sequence_length(std::string_view text) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned first = byte(0);
  const std::size_t length = first < 0x80U                     ? 1
                             : first >= 0xC2U && first < 0xE0U ? 2
                             : first >= 0xE0U && first < 0xF0U ? 3
                             : first >= 0xF0U && first < 0xF5U ? 4
                                                               : 0;
  if (length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  const bool is_overlong =
      (first == 0xE0U && byte(1) < 0xA0U) || (first == 0xF0U && byte(1) < 0x90U);
  const bool is_outside =
      (first == 0xEDU && byte(1) >= 0xA0U) || (first == 0xF4U && byte(1) >= 0x90U);
  return is_overlong || is_outside ? 0 : length;
}

std::size_t line_at(std::string_view text, std::size_t position) {
  return 1 + static_cast<std::size_t>(std::count(
                 text.begin(), text.begin() + static_cast<std::ptrdiff_t>(position), '\n'));
}

// Where the first byte stands that belongs to no UTF-8 sequence.
std::optional<std::size_t> first_foreign_byte(std::string_view text) {
  for (std::size_t at = ascii_length(text); at < text.size();) {
    const std::size_t length = sequence_length(text.substr(at));
    if (length == 0) return at;
    at += length;
    at += ascii_length(text.substr(at));
  }
  return std::nullopt;
}

std::string from_windows_1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool is_special = byte >= 0x80U && byte < 0xA0U && kWindows1252[byte - 0x80U] != 0;
    append_utf8(is_special ? kWindows1252[byte - 0x80U] : byte, text);
  }
  return text;
}

// UTF-16 begins with a byte order mark or, in ASCII characters, has a zero in every other byte.
std::optional<ByteOrder> utf16_order(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) return ByteOrder::little;
  if (bytes.starts_with("\xFE\xFF")) return ByteOrder::big;
  constexpr std::size_t kLook = 16;
  if (bytes.size() < kLook) return std::nullopt;
  std::array<int, 2> zeros = {0, 0};
  for (std::size_t i = 0; i < kLook; ++i) zeros[i % 2] += bytes[i] == '\0' ? 1 : 0;
  constexpr int kAll = kLook / 2;
  if (zeros[0] == 0 && zeros[1] == kAll) return ByteOrder::little;
  if (zeros[0] == kAll && zeros[1] == 0) return ByteOrder::big;
  return std::nullopt;
}

std::string from_utf16(std::string_view bytes, ByteOrder order) {
  constexpr char32_t kReplacement = 0xFFFD, kMark = 0xFEFF;
  const auto unit = [&](std::size_t i) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    return order == ByteOrder::little ? char32_t{first} | char32_t{second} << 8U
                                      : char32_t{second} | char32_t{first} << 8U;
  };
  const auto is_in = [](char32_t c, char32_t first) { return c >= first && c < first + 0x400U; };
  std::string text;
  text.reserve(bytes.size() / 2 + 16);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    char32_t c = unit(i);
    if (text.empty() && c == kMark) continue;
    if (is_in(c, 0xD800U) && i + 3 < bytes.size() && is_in(unit(i + 2), 0xDC00U)) {
      c = 0x10000U + ((c - 0xD800U) << 10U) + (unit(i + 2) - 0xDC00U);
      i += 2;
    } else if (is_in(c, 0xD800U) || is_in(c, 0xDC00U)) {
      c = kReplacement;
    }
    append_utf8(c, text);
  }
  return text;
}

constexpr std::string_view kMinusSign = "\xE2\x88\x92", kEnDash = "\xE2\x80\x93";

// The next sign of minus from `start` on that stands before a number and behind no word.
std::size_t find_minus(std::string_view text, std::string_view sign, std::size_t start) {
  for (std::size_t at = text.find(sign, start); at != std::string_view::npos;
       at = text.find(sign, at + sign.size())) {
    const std::size_t end = at + sign.size();
    const bool begins =
        at == 0 || std::string_view(" \t;,\"\r\n").find(text[at - 1]) != std::string_view::npos;
    if (begins && end < text.size() &&
        std::string_view(".0123456789").find(text[end]) != std::string_view::npos) {
      return at;
    }
  }
  return std::string_view::npos;
}

// Typeset signs of minus become those that numbers are read with. `text` may lie in `storage`.
std::string_view with_plain_minus(std::string_view text, std::string& storage, Findings& findings) {
  std::string made;
  for (const std::string_view sign : {kMinusSign, kEnDash}) {
    std::size_t copied = 0, count = 0;
    for (std::size_t at = find_minus(text, sign, 0); at != std::string_view::npos;
         at = find_minus(text, sign, copied)) {
      made.append(text, copied, at - copied).push_back('-');
      copied = at + sign.size();
      ++count;
    }
    if (count == 0) continue;
    findings.add(Severity::repaired, "minus-signs",
                 std::to_string(count) + " numbers have a typeset sign of minus: read as -.");
    made.append(text, copied);
    storage = std::move(made);
    made = {};
    text = storage;
  }
  return text;
}

// The text as it is in UTF-8.
std::string_view text_of_bytes(std::string_view bytes, std::string& storage, Findings& findings) {
  if (const std::optional<ByteOrder> order = utf16_order(bytes)) {
    storage = from_utf16(bytes, *order);
    findings.add(Severity::repaired, "utf-16", "The file is UTF-16: turned into UTF-8.");
    return storage;
  }
  std::string_view text = bytes;
  if (text.starts_with(kUtf8Mark)) {
    while (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
    findings.add(Severity::repaired, "byte-order-mark",
                 "The file begins with a byte order mark: left out.", 1);
  }
  const std::optional<std::size_t> foreign = first_foreign_byte(text);
  if (!foreign) return text;
  findings.add(Severity::repaired, "latin-1",
               "The text is not UTF-8: read as Windows-1252, of which Latin-1 is a part.",
               line_at(text, *foreign));
  storage = from_windows_1252(text);
  return storage;
}

}  // namespace

std::string_view utf8_text(std::string_view bytes, std::string& storage, Findings& findings) {
  return with_plain_minus(text_of_bytes(bytes, storage, findings), storage, findings);
}

}  // namespace measkit
