#include "kit/preflight/wavelength_names.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <map>
#include <string>
#include <string_view>

namespace measkit {
namespace {

struct Wavelength {
  std::string word;  // before the number
  double nm = 0.0;   // 0 for cells that name no wavelength
  bool has_unit = false;
};

std::string small_letters(std::string_view text) {
  std::string letters;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalpha(byte) != 0) letters += static_cast<char>(std::tolower(byte));
  }
  return letters;
}

// A word, a number and perhaps the unit.
Wavelength wavelength_in_cell(std::string_view cell) {
  constexpr std::size_t kLongestName = 48;
  constexpr double kShortest = 200.0, kLongest = 2600.0;
  if (cell.empty() || cell.size() > kLongestName) return {};
  const std::size_t start = std::min(cell.find_first_of("0123456789"), cell.size());
  const std::size_t end = std::min(cell.find_first_not_of("0123456789.,", start), cell.size());
  const std::string_view before = cell.substr(0, start), number = cell.substr(start, end - start);
  const std::string unit = small_letters(cell.substr(end));
  const bool is_plain = is_number(number) && !before.ends_with('-') &&
                        cell.find_first_of("0123456789", end) == std::string_view::npos &&
                        (unit.empty() || unit == "nm");
  if (!is_plain) return {};
  const double nm = number_in(number);
  if (nm < kShortest || nm > kLongest) return {};
  return {small_letters(before), nm, !unit.empty()};
}

bool is_common_word(std::string_view word) {
  static constexpr std::array<std::string_view, 22> kWords = {
      "",           "r",        "nm",         "wl",       "w",    "x",   "spec", "lambda",
      "wavelength", "spectral", "spectralnm", "spectrum", "refl", "rfl", "ref",  "wave",
      "spectrumnm", "rnm",      "wvl",        "band",     "b",    "v"};
  return word.starts_with("reflect") ||
         std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

using Wavelengths = std::vector<std::pair<std::size_t, double>>;

struct Group {
  Wavelengths wavelengths;
  bool has_units = true;
};

// Wavelengths in one direction, from the first on.
void keep_one_run(Wavelengths& found) {
  if (found.size() < 2) return;
  const bool is_rising = found[1].second > found[0].second;
  std::size_t size = 1;
  while (size < found.size() && found[size].second != found[size - 1].second &&
         (found[size].second > found[size - 1].second) == is_rising) {
    ++size;
  }
  found.resize(size);
}

// Steps of wavelengths vary with the optics of an instrument, but not by far.
bool is_smooth(const Wavelengths& found) {
  constexpr double kMostVariation = 3.0;
  double smallest = HUGE_VAL, largest = 0.0;
  for (std::size_t i = 1; i < found.size(); ++i) {
    const double step = std::abs(found[i].second - found[i - 1].second);
    smallest = std::min(smallest, step);
    largest = std::max(largest, step);
  }
  return largest <= kMostVariation * smallest;
}

// Bare numbers may be a row of data: words beside them tell that they are not, or smooth steps.
bool is_proven(const SheetCells& header, const std::string& word, const Group& group) {
  constexpr std::size_t kLeast = 2, kLeastAlone = 8;
  const Wavelengths& found = group.wavelengths;
  if (found.size() < kLeast) return false;
  if (found.size() >= kLeastAlone && is_smooth(found)) return true;
  if (!word.empty() || group.has_units) return is_common_word(word);
  const auto numbers =
      static_cast<std::size_t>(std::count_if(header.begin(), header.end(), is_number));
  return numbers == found.size() && numbers < header.size();
}

}  // namespace

std::vector<std::pair<std::size_t, double>> wavelengths_named(const SheetCells& header) {
  std::map<std::string, Group> groups;
  for (std::size_t i = 0; i < header.size(); ++i) {
    Wavelength wavelength = wavelength_in_cell(header[i]);
    if (wavelength.nm == 0.0) continue;
    Group& group = groups[std::move(wavelength.word)];
    group.wavelengths.emplace_back(i, wavelength.nm);
    group.has_units = group.has_units && wavelength.has_unit;
  }
  const auto most =
      std::max_element(groups.begin(), groups.end(), [](const auto& a, const auto& b) {
        return a.second.wavelengths.size() < b.second.wavelengths.size();
      });
  if (most == groups.end()) return {};
  keep_one_run(most->second.wavelengths);
  if (!is_proven(header, most->first, most->second)) return {};
  return most->second.wavelengths;
}

}  // namespace measkit
