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
  std::vector<const StoredKeyword*> order;
  order.reserve(held + keywords.size());
  order = order_;
  try {
    for (StoredKeyword& keyword : keywords) {
      order.push_back(&entries_.emplace_back(std::move(keyword)));
    }
    const auto middle = order.begin() + static_cast<std::ptrdiff_t>(held);
    std::stable_sort(middle, order.end(), ByName());
    std::inplace_merge(order.begin(), middle, order.end(), ByName());
  } catch (...) {
    entries_.resize(held);
    throw;
  }
  order_ = std::move(order);
}

std::span<const StoredKeyword* const> KeywordStore::find(std::string_view name) const {
  const auto [first, last] = std::equal_range(order_.begin(), order_.end(), name, ByName());
  return {first, last};
}

}  // namespace vantor::DataSet
