#include "dataset/keyword_store.h"

#include <algorithm>
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

}  // namespace

void KeywordStore::add(std::span<const Keyword> keywords) {
  std::size_t size = 0;
  for (const Keyword& keyword : keywords) size += keyword.name.size() + keyword.value.size() + 2;
  std::unique_ptr<char[]> texts(new char[size]);
  std::vector<Keyword> added;
  added.reserve(keywords.size());
  char* next = texts.get();
  for (const Keyword& keyword : keywords) {
    const std::string_view name = put(keyword.name, next);
    added.push_back({name, put(keyword.value, next)});
  }
  std::stable_sort(added.begin(), added.end(), ByName());
  const std::size_t held = entries_.size();
  texts_.reserve(texts_.size() + 1);
  entries_.resize(held + added.size());
  texts_.push_back(std::move(texts));
  // From the last on: each is sought by halving, so that few of the names held before are looked
  // at.
  auto gap_end = entries_.end();
  auto held_end = entries_.begin() + static_cast<std::ptrdiff_t>(held);
  for (auto keyword = added.rbegin(); keyword != added.rend(); ++keyword) {
    const auto place = std::upper_bound(entries_.begin(), held_end, *keyword, ByName());
    gap_end = std::move_backward(place, held_end, gap_end);
    *--gap_end = *keyword;
    held_end = place;
  }
}

std::span<const Keyword> KeywordStore::find(std::string_view name) const {
  const auto [first, last] = std::equal_range(entries_.begin(), entries_.end(), name, ByName());
  return {first, last};
}

}  // namespace vantor::DataSet
