// The field identifiers of one file.
#ifndef MEASDATA_MEASDATA_FIELD_LIST_H
#define MEASDATA_MEASDATA_FIELD_LIST_H

#include "base/position_table.h"
#include "measdata/name_hash.h"

#include <string_view>
#include <vector>

namespace vantor::MeasData {

/// Identifiers in file order, duplicates included, as views into the text that the reader holds.
class FieldList {
 public:
  const std::vector<std::string_view>& names() const { return names_; }
  int size() const { return static_cast<int>(names_.size()); }
  bool contains(std::string_view name) const { return find(name) != -1; }
  /// The first position of `name`, -1 when there is none.
  int find(std::string_view name) const {
    const auto position = first_.find(hash_(name), IsNamed{names_, name});
    return position == Base::PositionTable::kNone ? -1 : static_cast<int>(position);
  }
  void reserve(std::size_t count) { names_.reserve(count); }
  void append(std::string_view name) {
    first_.find_or_add(hash_(name), names_.size(), IsNamed{names_, name});
    names_.push_back(name);
  }
  void clear() {
    names_.clear();
    first_.clear();
  }

 private:
  struct IsNamed {
    const std::vector<std::string_view>& names;
    std::string_view name;
    bool operator()(Base::PositionTable::Position position) const {
      return names[position] == name;
    }
  };

  std::vector<std::string_view> names_;
  NameHash hash_;
  Base::PositionTable first_;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_FIELD_LIST_H
