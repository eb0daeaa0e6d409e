// What the columns of a spreadsheet hold, by the words of its header line.
#ifndef MEASDATA_KIT_PREFLIGHT_COLUMN_NAMES_H
#define MEASDATA_KIT_PREFLIGHT_COLUMN_NAMES_H

#include "kit/preflight/delimited_text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

struct Column {
  enum class Kind { text, number, wavelength, other };

  std::string name;  ///< of the field; the format's own name where the column has a meaning
  Kind kind = Kind::other;
  double nm = 0.0;  ///< of a wavelength

  bool is_measured() const { return kind == Kind::number || kind == Kind::wavelength; }
};

/// The columns that the cells of a header line name. Empty when they name neither a complete group
/// of colours or inks nor wavelengths.
///
/// Names are compared without letter case, blanks, units and punctuation. Single letters that may
/// mean several things, as the b in L a b and in R G B, are decided by the group that is complete,
/// first of all by neighbours. Letter case tells x and y from X and Y alone.
std::vector<Column> columns_named(const SheetCells& header);

/// A field's name that readers take for no role: without blanks and quotes, and unlike the name of
/// a spectral field.
std::string safe_name(std::string_view words, std::size_t position);

/// Letters and digits of a header cell in lower case, without units in brackets.
std::string key_of(std::string_view words);

/// True for "wavelength", "wl", "nm" and the like.
bool means_wavelength(std::string_view words);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_COLUMN_NAMES_H
