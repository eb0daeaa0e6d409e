#include "kit/write/terminal_graphics.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace measkit {
namespace {

using Rgb = std::array<int, 3>;

Rgb rgb_of(std::string_view hex_colour) {
  Rgb rgb{};
  for (std::size_t i = 0; i < rgb.size(); ++i) {
    const char* const digits = hex_colour.data() + 1 + 2 * i;
    std::from_chars(digits, digits + 2, rgb[i], 16);
  }
  return rgb;
}

// xterm's colours from 16: 36 red + 6 green + blue.
int number_in_cube(const Rgb& rgb) {
  constexpr std::array<int, 6> kLevels = {0, 95, 135, 175, 215, 255};
  int number = 0;
  for (const int value : rgb) {
    const auto* const nearest = std::ranges::min_element(
        kLevels, {}, [value](int level) { return std::abs(level - value); });
    number = 6 * number + static_cast<int>(nearest - kLevels.data());
  }
  return 16 + number;
}

double mean_of_numbers(std::span<const double> values) {
  double sum = 0.0;
  std::size_t count = 0;
  for (const double value : values) {
    if (std::isnan(value)) continue;
    sum += value;
    ++count;
  }
  return count == 0 ? std::numeric_limits<double>::quiet_NaN() : sum / static_cast<double>(count);
}

}  // namespace

std::string swatch(std::string_view hex_colour, Colours colours) {
  std::string text(kSwatchColumns, ' ');
  if (hex_colour.size() != 7 || colours == Colours::none) return text;
  const Rgb rgb = rgb_of(hex_colour);
  std::string start = "\x1B[48;";
  if (colours == Colours::cube) {
    start += "5;" + std::to_string(number_in_cube(rgb));
  } else {
    start += "2";
    for (const int value : rgb) start += ";" + std::to_string(value);
  }
  text.insert(kSwatchColumns - 1, "\x1B[0m");
  return start + "m" + text;
}

std::string blocks(std::span<const double> heights, std::size_t most_columns) {
  constexpr int kLevels = 8;
  const std::size_t columns = std::min(heights.size(), most_columns);
  std::string line;
  for (std::size_t column = 0; column < columns; ++column) {
    const std::size_t first = column * heights.size() / columns;
    const std::size_t end = (column + 1) * heights.size() / columns;
    const double height = mean_of_numbers(heights.subspan(first, end - first));
    if (std::isnan(height)) {
      line += ' ';
      continue;
    }
    const int level = static_cast<int>(std::clamp(height, 0.0, 1.0) * kLevels);
    line += "\xE2\x96";  // of U+2581, the lowest, and those behind it
    line += static_cast<char>(0x81 + std::min(level, kLevels - 1));
  }
  return line;
}

}  // namespace measkit
