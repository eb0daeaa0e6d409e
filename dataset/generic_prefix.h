// Finds spectral fields whose names begin with a word that no list knows, such as REFL380.
#ifndef MEASDATA_DATASET_GENERIC_PREFIX_H
#define MEASDATA_DATASET_GENERIC_PREFIX_H

#include "measdata/name_hash.h"
#include "measdata/number_reader.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace vantor::DataSet {

/// A name that ends in digits proposes the rest of it as the prefix. The proposal holds when more
/// than one field, from the proposing one on, begins with it and has a wavelength behind it.
///
/// The names are sorted when the first prefix is proposed, and each proposal is judged once, so
/// that a file of nothing but such names costs little more than sorting it.
class GenericPrefixRule {
 public:
  explicit GenericPrefixRule(const std::vector<std::string_view>& names) : names_(names) {}

  /// The prefix that field `index` establishes, empty when it establishes none.
  std::string_view prefix_from(std::size_t index);

 private:
  // The last but one field that begins with `prefix` and has a wavelength behind it, -1 when there
  // are not two.
  std::ptrdiff_t last_but_one(std::string_view prefix);
  bool has_wavelength(std::string_view name, std::size_t prefix_length) const;

  const std::vector<std::string_view>& names_;
  MeasData::NumberReader numbers_;
  std::vector<std::size_t> by_name_;  // indices into names_, in the order of the names
  MeasData::NameMap<std::ptrdiff_t> judged_;
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_GENERIC_PREFIX_H
