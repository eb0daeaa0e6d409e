#include "measdata/keyword_list.h"

namespace vantor::MeasData {

KeywordEntry* KeywordList::find(std::string_view name) {
  const auto position = position_of(name);
  return position == kNone ? nullptr : &entries_[position];
}

void KeywordList::append(const KeywordEntry& entry) {
  positions_.find_or_add(hash_(entry.name), entries_.size(), [](auto) { return false; });
  entries_.push_back(entry);
}

Base::PositionTable::Position KeywordList::position_of(std::string_view name) const {
  return positions_.find(hash_(name),
                         [this, name](auto position) { return entries_[position].name == name; });
}

}  // namespace vantor::MeasData
