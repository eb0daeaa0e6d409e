#include "api/instrument_text.h"

#include "api/meta_tokenizer.h"

#include <cstddef>
#include <utility>

namespace vantor::Api {
namespace {

bool is_angle(std::string_view word) { return word == "2" || word == "10"; }
bool is_degree(std::string_view word) { return word == "degree" || word == "degree,"; }

// True for "2 degree" and the like, the second word of which was met last.
bool ends_observer(const Words& words) {
  return is_angle(words.back(1)) && is_degree(words.back());
}

std::string without_comma(std::string_view word) {
  if (word.ends_with(',')) word.remove_suffix(1);
  return std::string(word);
}

bool has_comma(std::string_view text) { return text.find(',') != std::string_view::npos; }

// Walks all words of a text that has exactly three; false for another text.
bool walk_three(Words& words) {
  return words.next() && words.next() && words.next() && !words.next();
}

// The words from the first-th to the last-th, counted from 1, joined by blanks.
std::string join(std::string_view text, std::size_t first, std::size_t last) {
  Words words(text);
  while (words.count() < first && words.next()) {
  }
  std::string joined(words.back());
  while (words.count() < last && words.next()) joined.append(" ").append(words.back());
  return joined;
}

// Without commas the model is everything behind the maker, up to a lone semicolon.
Answer find_model_before_semicolon(std::string_view text) {
  Words words(text);
  if (!words.next()) return std::nullopt;
  words.next();
  std::string model(words.back());
  while (words.next() && words.back() != ";") model.append(" ").append(words.back());
  return model;
}

// The model stands between the maker and the illuminant in front of an observer.
Answer find_model_before_observer(std::string_view text) {
  for (Words words(text); words.next();) {
    const std::size_t count = words.count();
    if (count < 4 || !ends_observer(words) || !words.back(3).ends_with(',')) continue;
    return without_comma(join(text, count > 4 ? 2 : 1, count - 3));
  }
  return std::nullopt;
}

}  // namespace

Answer find_geometry(std::string_view text) {
  for (Words words(text); words.next();) {
    if (words.count() >= 2 && words.back(1) == "geometry" && words.back().ends_with(',')) {
      return without_comma(words.back());
    }
  }
  return std::nullopt;
}

bool denies_polarization(std::string_view text) {
  return text.find("no polarisation filter") != std::string_view::npos ||
         text.find("no polarization filter") != std::string_view::npos;
}

Answer find_backing(std::string_view text) {
  for (Words words(text); words.next();) {
    const bool is_backing = words.back() == "backing" || words.back() == "backing,";
    if (words.count() >= 2 && is_backing) return std::string(words.back(1));
  }
  return std::nullopt;
}

Answer find_manufacturer(std::string_view text) {
  Words words(text);
  if (!words.next()) return std::nullopt;
  std::string first(words.back());
  if (!has_comma(text)) return words.next() ? Answer(std::move(first)) : std::nullopt;
  if (first.ends_with(',')) return std::nullopt;
  while (words.next()) {
    if (words.count() >= 5 && ends_observer(words)) return first;
  }
  return std::nullopt;
}

Answer find_model(std::string_view text) {
  if (!has_comma(text)) return find_model_before_semicolon(text);
  Words words(text);
  if (!walk_three(words)) return find_model_before_observer(text);
  if (is_angle(words.back()) && words.back(2).ends_with(',')) return without_comma(words.back(2));
  return std::nullopt;
}

Answer find_serial_number(std::string_view text) {
  for (Words words(text); words.next();) {
    if (words.count() < 3 || words.back(1) != "number") continue;
    if (words.back(2) == "Serial" || words.back(2) == "serial") return without_comma(words.back());
  }
  return std::nullopt;
}

Answer find_illuminant(std::string_view text) {
  Words three(text);
  if (walk_three(three) && three.back(2).ends_with(',') && three.back(1).ends_with(',')) {
    return without_comma(three.back(1));
  }
  for (Words words(text); words.next();) {
    if (words.count() >= 3 && ends_observer(words) && words.back(2).ends_with(',')) {
      return without_comma(words.back(2));
    }
  }
  return std::nullopt;
}

Answer find_observer(std::string_view text) {
  Words three(text);
  if (walk_three(three) && three.back(2).ends_with(',') && is_angle(three.back())) {
    return std::string(three.back());
  }
  for (Words words(text); words.next();) {
    if (words.count() >= 2 && is_degree(words.back())) return std::string(words.back(1));
  }
  return std::nullopt;
}

Answer find_setting(std::string_view text, std::string_view key) {
  for (Words words(text); words.next();) {
    if (words.back().starts_with(key)) return std::string(words.back().substr(key.size()));
  }
  return std::nullopt;
}

Answer find_density_standard(std::string_view text) {
  for (Words words(text); words.next();) {
    for (const std::string_view key : {"DensityStd=", "Density="}) {
      if (!words.back().starts_with(key)) continue;
      std::string standard(words.back().substr(key.size()));
      if (standard == "Status" && words.next()) standard.append(" ").append(words.back());
      return standard;
    }
  }
  return std::nullopt;
}

Answer find_weighting(std::string_view text, std::string_view key) {
  Words words(text);
  if (!words.next() || !words.back().starts_with(key) || !words.next()) return std::nullopt;
  return std::string(words.back());
}

}  // namespace vantor::Api
