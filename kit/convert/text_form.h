// Tables as measurement files.
#ifndef MEASDATA_KIT_CONVERT_TEXT_FORM_H
#define MEASDATA_KIT_CONVERT_TEXT_FORM_H

#include "kit/convert/form.h"
#include "kit/preflight/table.h"

#include <string>
#include <vector>

namespace measkit {

/// ISO 28178, CGATS.17 or the form of seven characters. Keywords and fields that the form does not
/// know are declared.
std::string measurement_file_of(Table& table, Form form, std::vector<std::string>& left_behind);

/// Adds a KEYWORD line before each keyword that is neither declared nor in the lists of readers.
void declare_keywords(Table& table, bool is_standard_file);

/// Tells comments between the rows of a table, which most forms have no place for.
void tell_comments_in_rows(const Table& table, std::vector<std::string>& left_behind);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_TEXT_FORM_H
