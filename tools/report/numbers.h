// Formats numbers for the report.
#ifndef MEASDATA_TOOLS_REPORT_NUMBERS_H
#define MEASDATA_TOOLS_REPORT_NUMBERS_H

#include <cstddef>
#include <string>

namespace tools::report {

/// A number with the given decimals and a typographic minus sign.
std::string decimal(double value, int decimals);

/// A number with at most six digits and a typographic minus sign.
std::string shortest(double value);

/// A count with separated thousands.
std::string grouped(std::size_t count);

/// Whether a plot can show a value. Files may contain any number; no measurement is so large.
bool is_drawable(double value);

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_NUMBERS_H
