// Numbers as readers of a report see them.
#ifndef MEASDATA_KIT_WRITE_HTML_NUMBERS_H
#define MEASDATA_KIT_WRITE_HTML_NUMBERS_H

#include <cstddef>
#include <string>

namespace measkit::html {

/// A number with so many decimals and a real minus sign.
std::string decimal(double value, int decimals);

/// A number with as many digits as it needs, six at most, and a real minus sign.
std::string shortest(double value);

/// A count with its thousands apart.
std::string grouped(std::size_t count);

/// Whether a plot can show a value. Files may hold anything; no measurement is that far out.
bool is_drawable(double value);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_NUMBERS_H
