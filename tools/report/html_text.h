// Escapes text from files for HTML and SVG.
#ifndef MEASDATA_TOOLS_REPORT_HTML_TEXT_H
#define MEASDATA_TOOLS_REPORT_HTML_TEXT_H

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace tools::report {

/// Returns the text for content and quoted attributes. Markup characters become references, bytes
/// that are not UTF-8 are read as Latin-1, tabs and line ends become spaces, and other controls
/// become U+FFFD. A text of more than `most_characters` is cut and ends with an ellipsis.
std::string html_text(std::string_view text,
                      std::size_t most_characters = std::numeric_limits<std::size_t>::max());

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_HTML_TEXT_H
