// Lines of a header that come from elsewhere than a measurement file.
#ifndef MEASDATA_KIT_PREFLIGHT_HEADER_LINES_H
#define MEASDATA_KIT_PREFLIGHT_HEADER_LINES_H

#include "kit/preflight/table.h"

#include <string>
#include <string_view>

namespace measkit {

/// Adds a line as a measurement file has it: a keyword with its value, a comment, or nothing. False
/// for a keyword that would end the header.
bool add_header_line(Table& table, std::string_view line, std::size_t number);

/// True for a name that can stand as a keyword in a header.
bool is_keyword(std::string_view name);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_HEADER_LINES_H
