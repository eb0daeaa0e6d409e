// Makes text from files safe to print.
#ifndef MEASDATA_KIT_WRITE_PRINTABLE_TEXT_H
#define MEASDATA_KIT_WRITE_PRINTABLE_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace measkit {

/// The length of the UTF-8 character that `text` begins with, 0 when the bytes are none. `text`
/// must not be empty. `code` receives the character.
std::size_t utf8_length(std::string_view text, char32_t& code);

/// Whether a character steers instead of showing: C0 and C1 controls, marks without width,
/// separators of lines, what turns the direction of writing.
bool is_control(char32_t code);

/// UTF-8 characters as they stand; control characters and bytes of other encodings as \xNN, so that
/// nothing in a file can steer the terminal.
std::string printable(std::string_view text);

/// The text as UTF-8: characters of it as they stand, other bytes as the Latin-1 that they mostly
/// are.
std::string utf8_of(std::string_view text);

/// How many columns of a terminal a printable text takes, characters of double width left aside.
std::size_t display_width(std::string_view printable_text);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_PRINTABLE_TEXT_H
