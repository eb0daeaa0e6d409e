// Lines of text behind labels, for a terminal.
#ifndef MEASDATA_KIT_WRITE_LABELLED_LINES_H
#define MEASDATA_KIT_WRITE_LABELLED_LINES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

using Lines = std::vector<std::string>;

/// How far the lines of a summary are indented.
inline constexpr std::size_t kIndent = 2;

/// Adds a label with text behind it, on further lines where it is long; at most `most_lines`.
void add_labelled(Lines& lines, std::string_view label, std::string_view text,
                  std::size_t most_lines = 2);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_LABELLED_LINES_H
