// The keywords of all files that a handle was loaded with.
#ifndef MEASDATA_DATASET_KEYWORD_STORE_H
#define MEASDATA_DATASET_KEYWORD_STORE_H

#include <cstddef>
#include <functional>
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
/// order in which they were added.
///
/// The entries lie in sorted runs, the latest last. A run that is not much longer than the one
/// behind it is merged with it, so that there are few, and an entry is moved few times however
/// often others are added.
///
/// The texts that it gives end with a zero byte, and do not move or change as long as it lives.
class KeywordStore {
 public:
  /// Adds copies of `count` keywords, given by position, behind the entries of equal names. All of
  /// them, or none when memory runs out.
  void add(std::size_t count, const std::function<Keyword(std::size_t)>& keyword_at);

  std::size_t size() const { return entries_.size(); }
  /// The entry at a position of the whole order; brings all runs into one.
  const Keyword& at(std::size_t position);
  /// How many entries have that name.
  std::size_t count(std::string_view name) const;
  /// The i-th of them, null when there are not so many.
  const Keyword* find(std::string_view name, std::size_t i = 0) const;
  /// Calls `take` with the values of that name, in order, until it returns true.
  template <typename Take>
  void find_value(std::string_view name, Take take) const {
    for (std::size_t k = 0; k < starts_.size(); ++k) {
      for (const Keyword& keyword : entries_of(name, k)) {
        if (take(keyword.value)) return;
      }
    }
  }

 private:
  using Run = std::span<const Keyword>;

  Run run(std::size_t i) const;
  Run entries_of(std::string_view name, std::size_t run) const;
  void merge_last_runs();

  std::vector<std::unique_ptr<const char[]>> texts_;  // a block for each call of add
  std::vector<Keyword> entries_;                      // the runs, one behind the other
  std::vector<std::size_t> starts_;                   // of the runs
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_KEYWORD_STORE_H
