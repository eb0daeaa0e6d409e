// Finds spectral fields whose names begin with a word that no list knows, such as REFL380.
#ifndef MEASDATA_DATASET_GENERIC_PREFIX_H
#define MEASDATA_DATASET_GENERIC_PREFIX_H

#include "base/hashing.h"
#include "base/position_table.h"
#include "measdata/number_reader.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vantor::DataSet {

/// A name that ends in digits proposes the rest of it as the prefix. The proposal holds when more
/// than one field, from the proposing one on, begins with it and has a wavelength behind it.
///
/// All proposals are judged when the first prefix is asked for, in one pass over the characters of
/// all names.
class GenericPrefixRule {
 public:
  explicit GenericPrefixRule(const std::vector<std::string_view>& names) : names_(names) {}

  /// The prefix that field `index` establishes, empty when it establishes none.
  std::string_view prefix_from(std::size_t index);

 private:
  struct Proposal {
    std::string_view prefix;
    // The fields that begin with it and have a wavelength behind it: the last, and the one before.
    std::ptrdiff_t last = -1;
    std::ptrdiff_t last_but_one = -1;
  };

  void judge_all();
  Proposal* find(std::string_view prefix, std::uint64_t hash);
  std::uint64_t hash_of(std::string_view prefix) const;
  bool has_wavelength(std::string_view behind_prefix) const;

  const std::vector<std::string_view>& names_;
  MeasData::NumberReader numbers_;
  bool is_judged_ = false;
  std::uint64_t seed_ = Base::hash_seed();
  std::vector<Proposal> proposals_;
  Base::PositionTable positions_;  // of proposals, by prefix
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_GENERIC_PREFIX_H
