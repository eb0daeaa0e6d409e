// The field identifiers of one file.
#ifndef MEASDATA_MEASDATA_FIELD_LIST_H
#define MEASDATA_MEASDATA_FIELD_LIST_H

#include "measdata/name_hash.h"

#include <string_view>
#include <vector>

namespace vantor::MeasData {

/// Identifiers in file order, duplicates included, as views into the text that the reader holds.
class FieldList {
 public:
  const std::vector<std::string_view>& names() const { return names_; }
  int size() const { return static_cast<int>(names_.size()); }
  bool contains(std::string_view name) const { return first_.contains(name); }
  /// The first position of `name`, -1 when there is none.
  int find(std::string_view name) const {
    const auto found = first_.find(name);
    return found == first_.end() ? -1 : found->second;
  }
  void append(std::string_view name) {
    first_.emplace(name, size());
    names_.push_back(name);
  }
  void clear() {
    names_.clear();
    first_.clear();
  }

 private:
  std::vector<std::string_view> names_;
  NameMap<int> first_;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_FIELD_LIST_H
