// Makes text from files safe to stand in HTML and SVG.
#ifndef MEASDATA_KIT_WRITE_HTML_HTML_TEXT_H
#define MEASDATA_KIT_WRITE_HTML_HTML_TEXT_H

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace measkit::html {

/// The text for content and quoted attributes: markup characters as references, bytes that are no
/// UTF-8 as Latin-1, tabs and line ends as blanks, other characters that are controls or none at
/// all as U+FFFD. A text of more than `most_characters` is cut and ends in an ellipsis.
std::string html_text(std::string_view text,
                      std::size_t most_characters = std::numeric_limits<std::size_t>::max());

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_HTML_TEXT_H
