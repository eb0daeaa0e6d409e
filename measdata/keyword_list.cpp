#include "measdata/keyword_list.h"

namespace vantor::MeasData {

KeywordEntry* KeywordList::find(std::string_view name) {
  const auto found = positions_.find(name);
  return found == positions_.end() ? nullptr : &entries_[found->second];
}

void KeywordList::append(const KeywordEntry& entry) {
  positions_.emplace(entry.name, entries_.size());
  entries_.push_back(entry);
}

void KeywordList::clear() {
  entries_.clear();
  positions_.clear();
}

}  // namespace vantor::MeasData
