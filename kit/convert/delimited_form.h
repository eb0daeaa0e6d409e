// Tables as CSV and TSV.
#ifndef MEASDATA_KIT_CONVERT_DELIMITED_FORM_H
#define MEASDATA_KIT_CONVERT_DELIMITED_FORM_H

#include "kit/preflight/table.h"

#include <string>
#include <string_view>
#include <vector>

namespace measkit {

struct DelimitedForm {
  char delimiter = ',';
  bool decimal_comma = false;
  bool bare = false;  ///< without the header
};

/// The header, a line with the names of the columns and their units, as in "CMYK_C [%]", and a line
/// for each row.
std::string delimited_text_of(Table& table, const DelimitedForm& form,
                              const std::vector<std::string>& units);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_DELIMITED_FORM_H
