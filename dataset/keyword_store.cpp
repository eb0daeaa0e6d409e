#include "dataset/keyword_store.h"

#include <algorithm>
#include <utility>

namespace vantor::DataSet {
namespace {

struct ByName {
  bool operator()(const StoredKeyword* a, const StoredKeyword* b) const {
    return a->name < b->name;
  }
  bool operator()(const StoredKeyword* a, std::string_view b) const { return a->name < b; }
  bool operator()(std::string_view a, const StoredKeyword* b) const { return a < b->name; }
};

}  // namespace

void KeywordStore::add(std::vector<StoredKeyword> keywords) {
  const std::size_t held = entries_.size();
  std::vector<const StoredKeyword*> added;
  added.reserve(keywords.size());
  order_.reserve(held + keywords.size());
  try {
    for (StoredKeyword& keyword : keywords) {
      added.push_back(&entries_.emplace_back(std::move(keyword)));
    }
    std::stable_sort(added.begin(), added.end(), ByName());
  } catch (...) {
    entries_.resize(held);
    throw;
  }
  // From the last on: each is sought by halving, so that few of the names held before are looked
  // at.
  order_.resize(held + added.size());
  auto gap_end = order_.end();
  auto held_end = order_.begin() + static_cast<std::ptrdiff_t>(held);
  for (auto keyword = added.rbegin(); keyword != added.rend(); ++keyword) {
    const auto place = std::upper_bound(order_.begin(), held_end, *keyword, ByName());
    gap_end = std::move_backward(place, held_end, gap_end);
    *--gap_end = *keyword;
    held_end = place;
  }
}

std::span<const StoredKeyword* const> KeywordStore::find(std::string_view name) const {
  const auto [first, last] = std::equal_range(order_.begin(), order_.end(), name, ByName());
  return {first, last};
}

}  // namespace vantor::DataSet
