#include "kit/cxf/patch_names.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <unordered_set>

namespace measkit::cxf {
namespace {

using Texts = std::vector<std::string_view>;

// No texts rather than empty ones alone.
Texts unless_empty(Texts texts) {
  const bool has_text =
      std::ranges::any_of(texts, [](std::string_view one) { return !one.empty(); });
  return has_text ? std::move(texts) : Texts();
}

// "Target17" of the type Target, and a number alone, are no names.
bool is_technical(std::string_view name, std::string_view type) {
  if (!type.empty() && name.starts_with(type)) name.remove_prefix(type.size());
  return name.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<int> count_in(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool is_count = error == std::errc() && end == text.data() + text.size() && value >= 0;
  return is_count ? std::optional(value) : std::nullopt;
}

// A to Z, AA and so on, for columns that count from 0.
std::string letters_of(int column) {
  std::string letters;
  for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
  }
  return letters;
}

bool has_pages(const Document& document, const Layer& layer) {
  std::string_view first;
  for (const Patch& patch : layer.patches) {
    const std::string_view page = text_of(document, patch, &Object::page);
    if (first.empty()) first = page;
    if (!page.empty() && page != first) return true;
  }
  return false;
}

}  // namespace

std::string_view text_of(const Document& document, const Patch& patch,
                         std::string_view Object::*member) {
  for (const std::size_t i : {patch.device, patch.colours}) {
    if (i != kNoObject && !(document.objects[i].*member).empty()) {
      return document.objects[i].*member;
    }
  }
  return {};
}

Texts ids_of(const Document& document, const Layer& layer, TextPool& pool) {
  Texts ids;
  if (!document.measurement_file.empty()) {
    for (const Patch& patch : layer.patches) {
      ids.push_back(text_of(document, patch, &Object::sample_id));
    }
    return unless_empty(std::move(ids));
  }
  std::unordered_set<std::string_view> seen;
  for (const Patch& patch : layer.patches) {
    const std::string_view id = text_of(document, patch, &Object::sample_id);
    if (id.empty() || id == "-1" || !seen.insert(id).second) break;
    ids.push_back(id);
  }
  if (ids.size() == layer.patches.size()) return ids;
  ids.clear();
  for (std::size_t i = 1; i <= layer.patches.size(); ++i)
    ids.push_back(pool.add(std::to_string(i)));
  return ids;
}

Texts names_of(const Document& document, const Layer& layer) {
  Texts given, others;
  for (const Patch& patch : layer.patches) {
    given.push_back(text_of(document, patch, &Object::sample_name));
    const Object& object = document.objects[patch.any()];
    others.push_back(is_technical(object.name, object.type) ? std::string_view() : object.name);
  }
  const bool are_same = others.size() > 1 && std::ranges::all_of(others, [&](auto other) {
                          return other == others.front();
                        });
  for (std::size_t i = 0; i < given.size(); ++i) {
    if (given[i].empty() && !are_same) given[i] = others[i];
  }
  return unless_empty(std::move(given));
}

Texts locations_of(const Document& document, const Layer& layer, TextPool& pool) {
  Texts locations;
  const bool is_with_page = has_pages(document, layer);
  for (const Patch& patch : layer.patches) {
    std::string_view location = text_of(document, patch, &Object::location);
    const auto row = count_in(text_of(document, patch, &Object::row));
    const auto column = count_in(text_of(document, patch, &Object::column));
    constexpr int kMost = 1000000;
    if (location.empty() && row && column && *row < kMost && *column < kMost) {
      const std::string page(is_with_page ? text_of(document, patch, &Object::page) : "");
      location = pool.add(page + letters_of(*column) + std::to_string(*row + 1));
    }
    locations.push_back(location);
  }
  return unless_empty(std::move(locations));
}

}  // namespace measkit::cxf
