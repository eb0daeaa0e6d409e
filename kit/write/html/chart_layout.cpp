#include "kit/write/html/chart_layout.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace measkit::html {
namespace {

struct Place {
  std::string letters;
  std::size_t number;
};

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

// Letters and a number in either order, few of either, so that no name of another kind passes.
std::optional<Place> place_of(std::string_view location) {
  constexpr std::size_t kMostLetters = 2, kMostDigits = 4;
  const bool letters_first = !location.empty() && is_letter(location.front());
  const auto first_end = letters_first ? std::ranges::find_if_not(location, is_letter)
                                       : std::ranges::find_if_not(location, is_digit);
  const std::string_view first(location.begin(), first_end), second(first_end, location.end());
  const std::string_view letters = letters_first ? first : second;
  const std::string_view digits = letters_first ? second : first;
  if (letters.empty() || letters.size() > kMostLetters || digits.empty() ||
      digits.size() > kMostDigits || !std::ranges::all_of(letters, is_letter) ||
      !std::ranges::all_of(digits, is_digit)) {
    return std::nullopt;
  }
  Place place = {std::string(letters), 0};
  for (char& c : place.letters) c = static_cast<char>(c & ~0x20);  // upper case
  for (const char digit : digits) {
    place.number = 10 * place.number + static_cast<std::size_t>(digit - '0');
  }
  return place;
}

std::optional<std::vector<Place>> places_in(const Texts& texts) {
  if (texts.empty()) return std::nullopt;
  std::vector<Place> places;
  for (const std::string& location : texts) {
    std::optional<Place> place = place_of(location);
    if (!place) return std::nullopt;
    places.push_back(*std::move(place));
  }
  return places;
}

// The different values in ascending order: no empty rows for values that the chart leaves out.
template <typename Value>
void keep_distinct(std::vector<Value>& values) {
  std::ranges::sort(values);
  values.erase(std::unique(values.begin(), values.end()), values.end());
}

template <typename Value>
std::size_t rank_of(const std::vector<Value>& values, const Value& value) {
  return static_cast<std::size_t>(std::ranges::lower_bound(values, value) - values.begin());
}

using Letters = std::pair<std::size_t, std::string>;  // "Z" stands before "AA"
Letters letters_of(const Place& place) { return {place.letters.size(), place.letters}; }

std::optional<ChartLayout> layout_by(const std::vector<Place>& places) {
  constexpr std::size_t kMostEmpty = 2;  // places for each patch
  constexpr std::size_t kMostStrip = 40, kMostElongation = 10;
  std::vector<Letters> letters;
  std::vector<std::size_t> numbers;
  for (const Place& place : places) {
    letters.push_back(letters_of(place));
    numbers.push_back(place.number);
  }
  keep_distinct(letters);
  keep_distinct(numbers);
  const std::size_t cells = letters.size() * numbers.size();
  if (cells > (1 + kMostEmpty) * places.size()) return std::nullopt;
  // Ids like P1 to P999 are no places.
  const auto [shorter, longer] = std::minmax({letters.size(), numbers.size()});
  if (longer > kMostStrip && longer > kMostElongation * shorter) return std::nullopt;
  ChartLayout layout;
  layout.letters_go_across = letters.size() >= numbers.size();
  layout.columns = std::max(letters.size(), numbers.size());
  layout.patches.assign(cells, ChartLayout::kNoPatch);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const std::size_t letter = rank_of(letters, letters_of(places[i]));
    const std::size_t number = rank_of(numbers, places[i].number);
    std::uint32_t& patch =
        layout.patches[layout.letters_go_across ? number * layout.columns + letter
                                                : letter * layout.columns + number];
    if (patch != ChartLayout::kNoPatch) return std::nullopt;
    patch = static_cast<std::uint32_t>(i);
  }
  return layout;
}

struct RowLength {
  std::string keyword;
  std::size_t patches = 0;
};

RowLength row_length_of(const Chart& chart) {
  for (const char* name : {"ROW_LENGTH", "LGOROWLENGTH", "STEPS_IN_PASS"}) {
    const auto entry = std::ranges::find(chart.keywords, name, &Entry::name);
    if (entry == chart.keywords.end()) continue;
    std::size_t patches = 0;
    const char* const end = entry->value.data() + entry->value.size();
    const auto read = std::from_chars(entry->value.data(), end, patches);
    if (read.ec == std::errc() && read.ptr == end && patches > 1 && patches <= chart.patch_count) {
      return {name, patches};
    }
  }
  return {};
}

}  // namespace

std::string ChartLayout::sentence(std::string_view chart) const {
  const std::string of = chart.empty() ? "" : " of " + std::string(chart);
  if (!placed_by.empty()) {
    return "By the " + std::string(placed_by) + of +
           (letters_go_across ? ": letters go across, numbers down."
                              : ": numbers go across, letters down.");
  }
  const std::string order = "In the order of " + (chart.empty() ? "" : std::string(chart) + "'s ");
  if (row_keyword.empty()) return order + (chart.empty() ? "the file." : "file.");
  return order + (chart.empty() ? "the file" : "file") + ", " + std::to_string(columns) +
         " patches a row as " + row_keyword + " says.";
}

std::size_t columns_for(std::size_t cells) {
  constexpr double kGoldenRatio = 1.618;
  return static_cast<std::size_t>(std::ceil(std::sqrt(kGoldenRatio * static_cast<double>(cells))));
}

ChartLayout layout_of(const Chart& chart) {
  const std::pair<const Texts&, std::string_view> sources[] = {
      {chart.locations, "locations"}, {chart.ids, "ids"}, {chart.names, "names"}};
  for (const auto& [texts, name] : sources) {
    const auto places = places_in(texts);
    auto layout = places ? layout_by(*places) : std::nullopt;
    if (!layout) continue;
    layout->placed_by = name;
    return *std::move(layout);
  }
  ChartLayout layout;
  RowLength row = row_length_of(chart);
  layout.columns = row.patches > 0 ? row.patches : columns_for(chart.patch_count);
  layout.row_keyword = std::move(row.keyword);
  layout.patches.resize(chart.patch_count);
  for (std::size_t i = 0; i < chart.patch_count; ++i) {
    layout.patches[i] = static_cast<std::uint32_t>(i);
  }
  return layout;
}

}  // namespace measkit::html
