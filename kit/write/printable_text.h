// Makes text from files safe to print.
#ifndef MEASDATA_KIT_WRITE_PRINTABLE_TEXT_H
#define MEASDATA_KIT_WRITE_PRINTABLE_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace measkit {

/// Returns the length of the UTF-8 character at the start of `text`, 0 if the bytes are not UTF-8.
/// `text` must not be empty. `code` receives the character.
std::size_t utf8_length(std::string_view text, char32_t& code);

/// Whether a character is a control: C0 and C1 controls, marks without width, line separators and
/// changes of the writing direction.
bool is_control(char32_t code);

/// Returns the text with control characters and bytes that are not UTF-8 as \xNN, so that a file
/// cannot control the terminal.
std::string printable(std::string_view text);

/// Returns the text as UTF-8. Bytes that are not UTF-8 are read as Latin-1.
std::string utf8_of(std::string_view text);

/// The width of a printable text in terminal columns. Characters of double width count as one.
std::size_t display_width(std::string_view printable_text);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_PRINTABLE_TEXT_H
