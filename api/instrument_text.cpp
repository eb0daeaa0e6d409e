#include "api/instrument_text.h"

#include "api/meta_tokenizer.h"

#include <cstddef>

namespace vantor::Api {
namespace {

bool is_angle(std::string_view word) { return word == "2" || word == "10"; }
bool is_degree(std::string_view word) { return word == "degree" || word == "degree,"; }

// True for "2 degree" and the like, of which words[i] is the second word.
bool ends_observer(const Words& words, std::size_t i) {
  return is_angle(words[i - 1]) && is_degree(words[i]);
}

std::string without_comma(std::string_view word) {
  if (word.ends_with(',')) word.remove_suffix(1);
  return std::string(word);
}

bool has_comma(std::string_view text) { return text.find(',') != std::string_view::npos; }

// words[first] to words[last], joined by blanks.
std::string join(const Words& words, std::size_t first, std::size_t last) {
  std::string text(words[first]);
  for (std::size_t i = first + 1; i <= last; ++i) text.append(" ").append(words[i]);
  return text;
}

// Without commas the model is everything behind the maker, up to a lone semicolon.
Answer find_model_before_semicolon(const Words& words) {
  if (words.empty()) return std::nullopt;
  const std::size_t first = words.size() >= 2 ? 1 : 0;
  std::size_t last = first;
  while (last + 1 < words.size() && words[last + 1] != ";") ++last;
  return join(words, first, last);
}

// The model stands between the maker and the illuminant in front of an observer.
Answer find_model_before_observer(const Words& words) {
  for (std::size_t i = 3; i < words.size(); ++i) {
    const std::size_t last = i - 3;
    if (!ends_observer(words, i) || !words[last].ends_with(',')) continue;
    const std::size_t first = i > 3 ? 1 : 0;
    return without_comma(join(words, first, last));
  }
  return std::nullopt;
}

}  // namespace

Answer find_geometry(std::string_view text) {
  const Words words(text);
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (words[i] == "geometry" && words[i + 1].ends_with(',')) return without_comma(words[i + 1]);
  }
  return std::nullopt;
}

bool denies_polarization(std::string_view text) {
  return text.find("no polarisation filter") != std::string_view::npos ||
         text.find("no polarization filter") != std::string_view::npos;
}

Answer find_backing(std::string_view text) {
  const Words words(text);
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (words[i] == "backing" || words[i] == "backing,") return std::string(words[i - 1]);
  }
  return std::nullopt;
}

Answer find_manufacturer(std::string_view text) {
  const Words words(text);
  if (!has_comma(text)) return words.size() >= 2 ? Answer(std::string(words[0])) : std::nullopt;
  for (std::size_t i = 4; i < words.size(); ++i) {
    if (ends_observer(words, i) && !words[0].ends_with(',')) return std::string(words[0]);
  }
  return std::nullopt;
}

Answer find_model(std::string_view text) {
  const Words words(text);
  if (!has_comma(text)) return find_model_before_semicolon(words);
  if (words.size() != 3) return find_model_before_observer(words);
  if (is_angle(words[2]) && words[0].ends_with(',')) return without_comma(words[0]);
  return std::nullopt;
}

Answer find_serial_number(std::string_view text) {
  const Words words(text);
  for (std::size_t i = 0; i + 2 < words.size(); ++i) {
    if ((words[i] == "Serial" || words[i] == "serial") && words[i + 1] == "number") {
      return without_comma(words[i + 2]);
    }
  }
  return std::nullopt;
}

Answer find_illuminant(std::string_view text) {
  const Words words(text);
  if (words.size() < 3) return std::nullopt;
  if (words.size() == 3 && words[0].ends_with(',') && words[1].ends_with(',')) {
    return without_comma(words[1]);
  }
  for (std::size_t i = 2; i < words.size(); ++i) {
    if (ends_observer(words, i) && words[i - 2].ends_with(',')) return without_comma(words[i - 2]);
  }
  return std::nullopt;
}

Answer find_observer(std::string_view text) {
  const Words words(text);
  if (words.size() == 3 && words[0].ends_with(',') && is_angle(words[2]))
    return std::string(words[2]);
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (is_degree(words[i])) return std::string(words[i - 1]);
  }
  return std::nullopt;
}

Answer find_setting(std::string_view text, std::string_view key) {
  for (const std::string_view word : Words(text)) {
    if (word.starts_with(key)) return std::string(word.substr(key.size()));
  }
  return std::nullopt;
}

Answer find_density_standard(std::string_view text) {
  const Words words(text);
  for (std::size_t i = 0; i < words.size(); ++i) {
    for (const std::string_view key : {"DensityStd=", "Density="}) {
      if (!words[i].starts_with(key)) continue;
      const std::string standard(words[i].substr(key.size()));
      const bool takes_next = standard == "Status" && i + 1 < words.size();
      return takes_next ? "Status " + std::string(words[i + 1]) : standard;
    }
  }
  return std::nullopt;
}

Answer find_weighting(std::string_view text, std::string_view key) {
  const Words words(text);
  if (words.size() < 2 || !words[0].starts_with(key)) return std::nullopt;
  return std::string(words[1]);
}

}  // namespace vantor::Api
