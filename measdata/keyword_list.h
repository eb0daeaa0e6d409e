// The header keywords of one file.
#ifndef MEASDATA_MEASDATA_KEYWORD_LIST_H
#define MEASDATA_MEASDATA_KEYWORD_LIST_H

#include "base/growing_list.h"
#include "base/position_table.h"
#include "measdata/name_hash.h"

#include <string_view>

namespace vantor::MeasData {

/// Views into the text that the reader holds.
struct KeywordEntry {
  std::string_view name;
  std::string_view value;
};

/// Entries in order of first appearance; no name stands twice. Found by hash, since a file may hold
/// any number of them.
class KeywordList {
 public:
  const Base::GrowingList<KeywordEntry>& entries() const { return entries_; }
  bool contains(std::string_view name) const { return position_of(name) != kNone; }
  /// The entry of that name, null when there is none.
  KeywordEntry* find(std::string_view name);
  /// Adds an entry whose name is not yet held.
  void append(const KeywordEntry& entry);

 private:
  static constexpr auto kNone = Base::PositionTable::kNone;

  Base::PositionTable::Position position_of(std::string_view name) const;

  Base::GrowingList<KeywordEntry> entries_;
  NameHash hash_;
  Base::PositionTable positions_;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_KEYWORD_LIST_H
