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

// Makes room for more elements, exactly at first: most stores are filled once.
template <typename Element>
void make_room(std::vector<Element>& elements, std::size_t more) {
  const std::size_t needed = elements.size() + more;
  if (elements.capacity() < needed) {
    elements.reserve(elements.empty() ? needed : std::max(needed, 2 * elements.size()));
  }
}

// Copies a text and a zero to where `next` points, and moves it behind them.
std::string_view put(std::string_view text, char*& next) {
  char* const start = next;
  next = std::copy(text.begin(), text.end(), start);
  *next++ = '\0';
  return {start, text.size()};
}

using KeywordAt = std::function<Keyword(std::size_t)>;

// How many characters all names have in common.
std::size_t common_prefix(std::size_t count, const KeywordAt& keyword_at) {
  std::string_view prefix = count == 0 ? std::string_view() : keyword_at(0).name;
  for (std::size_t i = 1; i < count && !prefix.empty(); ++i) {
    const std::string_view name = keyword_at(i).name;
    const auto end = std::ranges::mismatch(prefix, name).in1;
    prefix = prefix.substr(0, static_cast<std::size_t>(end - prefix.begin()));
  }
  return prefix.size();
}

// What a keyword is sorted by. The names lie scattered in memory: eight characters of each, behind
// what all have in common, mostly decide without a look at them.
struct SortKey {
  std::uint64_t characters;
  std::size_t position;
};

// In the order of the names; equal names stay in order.
std::vector<SortKey> order_by_name(std::size_t count, const KeywordAt& keyword_at) {
  std::vector<SortKey> keys;
  keys.reserve(count);
  const std::size_t skipped = common_prefix(count, keyword_at);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string_view name = keyword_at(i).name;
    std::uint64_t characters = 0;
    for (std::size_t at = skipped; at < skipped + sizeof characters; ++at) {
      characters = characters << 8U | (at < name.size() ? static_cast<unsigned char>(name[at]) : 0);
    }
    keys.push_back({characters, i});
  }
  std::ranges::sort(keys, [&keyword_at](const SortKey& a, const SortKey& b) {
    if (a.characters != b.characters) return a.characters < b.characters;
    const int names = keyword_at(a.position).name.compare(keyword_at(b.position).name);
    return names != 0 ? names < 0 : a.position < b.position;
  });
  return keys;
}

}  // namespace

void KeywordStore::add(std::size_t count, const KeywordAt& keyword_at) {
  if (count == 0) return;
  std::size_t size = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const Keyword keyword = keyword_at(i);
    size += keyword.name.size() + keyword.value.size() + 2;
  }
  std::unique_ptr<char[]> texts(new char[size]);
  const std::vector<SortKey> order = order_by_name(count, keyword_at);
  // Nothing is changed before all memory is there.
  make_room(texts_, 1);
  make_room(starts_, 1);
  make_room(entries_, count);
  starts_.push_back(entries_.size());
  char* next = texts.get();
  for (const SortKey& key : order) {
    const Keyword keyword = keyword_at(key.position);
    const std::string_view name = put(keyword.name, next);
    entries_.push_back({name, put(keyword.value, next)});
  }
  texts_.push_back(std::move(texts));
  while (starts_.size() > 1 &&
         run(starts_.size() - 2).size() < 2 * run(starts_.size() - 1).size()) {
    merge_last_runs();
  }
}

const Keyword& KeywordStore::at(std::size_t position) {
  while (starts_.size() > 1) merge_last_runs();
  return entries_[position];
}

std::size_t KeywordStore::count(std::string_view name) const {
  std::size_t found = 0;
  for (std::size_t i = 0; i < starts_.size(); ++i) {
    found += entries_of(name, i).size();
  }
  return found;
}

const Keyword* KeywordStore::find(std::string_view name, std::size_t i) const {
  for (std::size_t k = 0; k < starts_.size(); ++k) {
    const Run found = entries_of(name, k);
    if (i < found.size()) return &found[i];
    i -= found.size();
  }
  return nullptr;
}

KeywordStore::Run KeywordStore::run(std::size_t i) const {
  const std::size_t end = i + 1 < starts_.size() ? starts_[i + 1] : entries_.size();
  return Run(entries_).subspan(starts_[i], end - starts_[i]);
}

KeywordStore::Run KeywordStore::entries_of(std::string_view name, std::size_t run_index) const {
  const Run entries = run(run_index);
  const auto [first, last] = std::equal_range(entries.begin(), entries.end(), name, ByName());
  return {first, last};
}

// Does with less memory when there is none.
void KeywordStore::merge_last_runs() {
  const auto middle = entries_.begin() + static_cast<std::ptrdiff_t>(starts_.back());
  starts_.pop_back();
  const auto first = entries_.begin() + static_cast<std::ptrdiff_t>(starts_.back());
  std::inplace_merge(first, middle, entries_.end(), ByName());
}

}  // namespace vantor::DataSet
