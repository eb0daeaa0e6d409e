#include "kit/preflight/spectral_evidence.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>

namespace measkit {
namespace {

std::string small_letters_of(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

bool contains_any(std::string_view text, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(), [text](std::string_view word) {
    return text.find(word) != std::string_view::npos;
  });
}

// The largest step by the smallest.
double variation_of(const std::vector<double>& values) {
  double smallest = HUGE_VAL, largest = 0.0;
  for (std::size_t i = 1; i < values.size(); ++i) {
    const double step = std::abs(values[i] - values[i - 1]);
    smallest = std::min(smallest, step);
    largest = std::max(largest, step);
  }
  return largest / smallest;
}

bool is_even(const std::vector<double>& values) {
  const double step = (values.back() - values.front()) / static_cast<double>(values.size() - 1);
  // Thirds of nanometres may be rounded to whole ones.
  const double tolerance = std::abs(step) >= 2.0 ? 0.51 : 0.02 + 0.1 * std::abs(step);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double even = values.front() + static_cast<double>(i) * step;
    if (std::abs(values[i] - even) > tolerance) return false;
  }
  return true;
}

bool are_in_range(const std::vector<double>& nm, double shortest, double longest) {
  const auto [low, high] = std::minmax(nm.front(), nm.back());
  return low >= shortest && high <= longest;
}

bool has_word(std::string_view text, std::initializer_list<std::string_view> words) {
  const auto is_letter = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
  for (const std::string_view word : words) {
    for (std::size_t at = text.find(word); at != std::string_view::npos;
         at = text.find(word, at + 1)) {
      const bool starts = at == 0 || !is_letter(text[at - 1]);
      const std::size_t end = at + word.size();
      if (starts && (end == text.size() || !is_letter(text[end]))) return true;
    }
  }
  return false;
}

}  // namespace

std::size_t length_in_one_direction(const std::vector<double>& values) {
  const bool is_rising = values[1] > values[0];
  std::size_t size = 1;
  while (size < values.size() && values[size] != values[size - 1] &&
         (values[size] > values[size - 1]) == is_rising) {
    ++size;
  }
  return size;
}

bool may_be_wavelengths(const std::vector<double>& values) {
  return are_in_range(values, 170.0, 3000.0);
}

bool are_wavelengths_by_steps(const std::vector<double>& nm, bool has_words) {
  constexpr std::size_t kLeastRows = 8;
  if (nm.size() < kLeastRows) return false;
  const auto [low, high] = std::minmax(nm.front(), nm.back());
  const bool is_through_visible = may_be_wavelengths(nm) && low <= 420.0 && high >= 680.0;
  const bool is_within =
      are_in_range(nm, 300.0, 1100.0) && std::min(high, 780.0) - std::max(low, 380.0) >= 100.0;
  if (!is_through_visible && !is_within) return false;
  return is_even(nm) || (has_words && variation_of(nm) <= 3.0);
}

bool tells_spectra(const NumberBlock& block) {
  return std::any_of(block.above.begin(), block.above.end(), [](const NumberBlock::Line& line) {
    return contains_any(small_letters_of(line.text), {"wavelength", "spectr", "wellenl"});
  });
}

StatedQuantity stated_quantity_of(const NumberBlock& block, std::string_view header) {
  std::string above;
  for (const NumberBlock::Line& line : block.above) above.append(line.text).append("\n");
  above = small_letters_of(above);
  if (contains_any(above, {"reflect"})) return StatedQuantity::reflectance;
  if (contains_any(above, {"transmi"})) return StatedQuantity::transmittance;
  const std::string names = small_letters_of(header);
  if (contains_any(above, {"absorb"})) return StatedQuantity::absorbance;
  if (contains_any(above, {"irradiance", "radiance", "emission", "w/m2", "w/m^2", "w/nm"}) ||
      contains_any(names, {"illuminant", "intensity", "counts"}) ||
      has_word(names, {"spd", "power", "flux", "d50", "d55", "d65", "d75", "led", "lamp"})) {
    return StatedQuantity::emission;
  }
  return StatedQuantity::unknown;
}

}  // namespace measkit
