// What the terminal behind the standard output can show.
#ifndef MEASDATA_TOOLS_TERMINAL_H
#define MEASDATA_TOOLS_TERMINAL_H

#include "kit/write/terminal_graphics.h"

#include <optional>
#include <string_view>

namespace tools {

enum class ColourChoice { automatic, always, never };

/// "auto", "always" or "never"; an empty word is "always". None for other words.
std::optional<ColourChoice> colour_choice(std::string_view word);

/// Colours and blocks for the standard output. By itself it chooses colours for a terminal that
/// says by its environment that it has them, and where NO_COLOR is not set. Blocks need a terminal
/// with UTF-8.
measkit::Screen screen_of_output(ColourChoice choice);

}  // namespace tools

#endif  // MEASDATA_TOOLS_TERMINAL_H
