// The keywords of all files that a handle was loaded with.
#ifndef MEASDATA_DATASET_KEYWORD_STORE_H
#define MEASDATA_DATASET_KEYWORD_STORE_H

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace vantor::DataSet {

/// A name and a value.
struct Keyword {
  std::string_view name, value;
};

/// An ordered multimap from names to values: by name, byte for byte, and for equal names in the
/// order in which they were added. Entries are found by position or by name without walking.
///
/// The texts that it gives end with a zero byte, and do not move or change as long as it lives.
class KeywordStore {
 public:
  /// Adds copies behind the entries of equal names. All of them, or none when memory runs out.
  void add(std::span<const Keyword> keywords);

  std::size_t size() const { return entries_.size(); }
  const Keyword& at(std::size_t position) const { return entries_[position]; }
  /// All entries of that name, in order.
  std::span<const Keyword> find(std::string_view name) const;

 private:
  std::vector<std::unique_ptr<const char[]>> texts_;  // a block for each call of add
  std::vector<Keyword> entries_;                      // sorted
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_KEYWORD_STORE_H
