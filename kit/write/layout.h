// Fits text into the columns of a terminal.
#ifndef MEASDATA_KIT_WRITE_LAYOUT_H
#define MEASDATA_KIT_WRITE_LAYOUT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

inline constexpr std::size_t kTerminalWidth = 100;

/// A number by a printf format for one double.
std::string formatted(const char* format, double value);

/// "1 patch", "2 patches", "no patches".
std::string counted(std::size_t count, std::string_view one, std::string_view several);

/// Printable text of at most `width` columns; a longer one ends in "...".
std::string shortened(std::string_view text, std::size_t width);

/// Printable text broken at blanks into lines of at most `width` columns.
std::vector<std::string> wrapped(std::string_view text, std::size_t width);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_LAYOUT_H
