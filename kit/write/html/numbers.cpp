#include "kit/write/html/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

namespace measkit::html {
namespace {

std::string with_real_minus(std::string_view text) {
  const bool is_negative = text.starts_with('-');
  if (is_negative) text.remove_prefix(1);
  const bool is_zero = text.find_first_not_of("0.") == std::string_view::npos;
  return (is_negative && !is_zero ? "\u2212" : "") + std::string(text);
}

}  // namespace

std::string decimal(double value, int decimals) {
  if (!is_drawable(value)) return shortest(value);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.*f", std::clamp(decimals, 0, 9), value);
  return with_real_minus(text.data());
}

std::string shortest(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%g", value);
  return with_real_minus(text.data());
}

std::string grouped(std::size_t count) {
  std::string digits = std::to_string(count);
  for (std::size_t end = digits.size(); end > 3; end -= 3) digits.insert(end - 3, ",");
  return digits;
}

bool is_drawable(double value) {
  constexpr double kLargest = 1.0e6;
  return std::abs(value) < kLargest;
}

}  // namespace measkit::html
