#include "dataset/keyword_store.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace vantor::DataSet {
namespace {

struct ByName {
  bool operator()(const Keyword& a, const Keyword& b) const { return a.name < b.name; }
  bool operator()(const Keyword& a, std::string_view b) const { return a.name < b; }
  bool operator()(std::string_view a, const Keyword& b) const { return a < b.name; }
};

// Copies a text and a zero to where `next` points, and moves it behind them.
std::string_view put(std::string_view text, char*& next) {
  char* const start = next;
  next = std::copy(text.begin(), text.end(), start);
  *next++ = '\0';
  return {start, text.size()};
}

// How many characters all names have in common.
std::size_t common_prefix(std::span<const Keyword> keywords) {
  std::string_view prefix = keywords.front().name;
  for (const Keyword& keyword : keywords) {
    const auto end = std::ranges::mismatch(prefix, keyword.name).in1;
    prefix = prefix.substr(0, static_cast<std::size_t>(end - prefix.begin()));
  }
  return prefix.size();
}

// The positions of the keywords in the order of their names; equal names stay in order. The names
// lie scattered in memory: eight characters of each, behind what all have in common, mostly decide
// without a look at them.
std::vector<std::size_t> order_by_name(std::span<const Keyword> keywords) {
  std::vector<std::size_t> order(keywords.size());
  if (keywords.empty()) return order;
  struct Key {
    std::uint64_t characters;
    std::size_t position;
  };
  std::vector<Key> keys;
  keys.reserve(keywords.size());
  const std::size_t skipped = common_prefix(keywords);
  for (std::size_t i = 0; i < keywords.size(); ++i) {
    std::uint64_t characters = 0;
    for (std::size_t at = skipped; at < skipped + sizeof characters; ++at) {
      const std::string_view name = keywords[i].name;
      characters = characters << 8U | (at < name.size() ? static_cast<unsigned char>(name[at]) : 0);
    }
    keys.push_back({characters, i});
  }
  std::ranges::sort(keys, [keywords](const Key& a, const Key& b) {
    if (a.characters != b.characters) return a.characters < b.characters;
    const int names = keywords[a.position].name.compare(keywords[b.position].name);
    return names != 0 ? names < 0 : a.position < b.position;
  });
  std::ranges::transform(keys, order.begin(), &Key::position);
  return order;
}

}  // namespace

void KeywordStore::add(std::span<const Keyword> keywords) {
  std::size_t size = 0;
  for (const Keyword& keyword : keywords) size += keyword.name.size() + keyword.value.size() + 2;
  std::unique_ptr<char[]> texts(new char[size]);
  const std::size_t held = entries_.size();
  std::vector<Keyword> added;
  added.reserve(keywords.size());
  char* next = texts.get();
  for (const std::size_t position : order_by_name(keywords)) {
    const std::string_view name = put(keywords[position].name, next);
    added.push_back({name, put(keywords[position].value, next)});
  }
  texts_.reserve(texts_.size() + 1);
  if (held == 0) {
    entries_ = std::move(added);
    texts_.push_back(std::move(texts));
    return;
  }
  entries_.resize(held + added.size());
  texts_.push_back(std::move(texts));
  // From the last on. Each is sought by halving: few of the names held before are looked at.
  auto gap_end = entries_.end();
  auto held_end = entries_.begin() + static_cast<std::ptrdiff_t>(held);
  for (; !added.empty(); added.pop_back()) {
    const auto place = std::upper_bound(entries_.begin(), held_end, added.back(), ByName());
    gap_end = std::move_backward(place, held_end, gap_end);
    *--gap_end = added.back();
    held_end = place;
  }
}

std::span<const Keyword> KeywordStore::find(std::string_view name) const {
  const auto [first, last] = std::equal_range(entries_.begin(), entries_.end(), name, ByName());
  return {first, last};
}

}  // namespace vantor::DataSet
