// The keywords of all files that a handle was loaded with.
#ifndef MEASDATA_DATASET_KEYWORD_STORE_H
#define MEASDATA_DATASET_KEYWORD_STORE_H

#include <cstddef>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantor::DataSet {

/// Name and value of a keyword; neither moves nor changes as long as the store lives.
struct StoredKeyword {
  std::string name, value;
};

/// An ordered multimap from names to values: by name, byte for byte, and for equal names in the
/// order in which they were added. Entries are found by position or by name without walking.
class KeywordStore {
 public:
  /// Adds entries behind those of equal names. All of them, or none when memory runs out.
  void add(std::vector<StoredKeyword> keywords);

  std::size_t size() const { return order_.size(); }
  const StoredKeyword& at(std::size_t position) const { return *order_[position]; }
  /// All entries of that name, in order.
  std::span<const StoredKeyword* const> find(std::string_view name) const;

 private:
  std::deque<StoredKeyword> entries_;        // as they were added
  std::vector<const StoredKeyword*> order_;  // sorted
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_KEYWORD_STORE_H
