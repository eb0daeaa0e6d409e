#include "tools/terminal.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <string>

#if defined(_WIN32)
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace tools {
namespace {

using measkit::Colours;

struct Output {
  bool is_terminal = false;
  Colours colours = Colours::none;
  bool has_blocks = false;
};

std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

#if defined(_WIN32)

// A console has colours as soon as it obeys escape sequences.
Output standard_output() {
  const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  if (GetConsoleMode(console, &mode) == 0) return {};
  const bool obeys = SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
  return {true, obeys ? Colours::all : Colours::none, GetConsoleOutputCP() == CP_UTF8};
}

#else

Colours colours_by_environment() {
  constexpr std::array<std::string_view, 7> kTerminals = {
      "alacritty", "contour", "foot", "iterm2", "wezterm", "xterm-ghostty", "xterm-kitty"};
  const std::string terminal = variable("TERM");
  if (terminal.empty() || terminal == "dumb") return Colours::none;
  const std::string depth = variable("COLORTERM");
  if (depth == "truecolor" || depth == "24bit" || terminal.ends_with("-direct") ||
      std::ranges::find(kTerminals, terminal) != kTerminals.end()) {
    return Colours::all;
  }
  return terminal.ends_with("-256color") ? Colours::cube : Colours::none;
}

bool is_utf8_locale() {
  std::string locale;
  for (const char* const name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    if (locale.empty()) locale = variable(name);
  }
  std::ranges::transform(locale, locale.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return locale.find("utf-8") != std::string::npos || locale.find("utf8") != std::string::npos;
}

Output standard_output() {
  const bool is_terminal = isatty(STDOUT_FILENO) == 1;
  // The fonts of the console of Linux have few blocks.
  const bool has_blocks = is_terminal && is_utf8_locale() && variable("TERM") != "linux";
  return {is_terminal, colours_by_environment(), has_blocks};
}

#endif

}  // namespace

std::optional<ColourChoice> colour_choice(std::string_view word) {
  if (word == "auto") return ColourChoice::automatic;
  if (word == "always" || word.empty()) return ColourChoice::always;
  if (word == "never") return ColourChoice::never;
  return std::nullopt;
}

measkit::Screen screen_of_output(ColourChoice choice) {
  const Output output = standard_output();
  measkit::Screen screen;
  screen.has_blocks = output.has_blocks;
  const bool is_always = choice == ColourChoice::always;
  const bool is_chosen = choice == ColourChoice::automatic && output.is_terminal;
  if (is_always || (is_chosen && variable("NO_COLOR").empty())) screen.colours = output.colours;
  if (is_always && screen.colours == Colours::none) screen.colours = Colours::all;
  return screen;
}

}  // namespace tools
