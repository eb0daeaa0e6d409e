// Colours and graphs of characters, for terminals that show them.
#ifndef MEASDATA_KIT_WRITE_TERMINAL_GRAPHICS_H
#define MEASDATA_KIT_WRITE_TERMINAL_GRAPHICS_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace measkit {

enum class Colours {
  none,
  cube,  ///< the 6 x 6 x 6 colours of terminals with 256
  all,   ///< 24 bits
};

/// What a terminal shows beside plain text. The default is plain text alone.
struct Screen {
  Colours colours = Colours::none;
  bool has_blocks = false;  ///< U+2581 to U+2588, in UTF-8
};

/// The width of a swatch with the blank behind it.
inline constexpr std::size_t kSwatchColumns = 3;

/// A patch of a colour such as "#00A3E2"; blanks of the same width without a colour.
std::string swatch(std::string_view hex_colour, Colours colours);

/// Heights from 0 to 1 as a line of blocks, blank where a height is not a number. Neighbours are
/// averaged where there are more than `most_columns`.
std::string blocks(std::span<const double> heights, std::size_t most_columns);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_TERMINAL_GRAPHICS_H
