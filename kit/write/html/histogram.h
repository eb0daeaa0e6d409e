// How often values fall into classes of equal width.
#ifndef MEASDATA_KIT_WRITE_HTML_HISTOGRAM_H
#define MEASDATA_KIT_WRITE_HTML_HISTOGRAM_H

#include <cstddef>
#include <span>
#include <vector>

namespace measkit::html {

/// Counts the values from 0 to `classes` times `width`. Each class has its lower bound, the last
/// one its upper bound too.
std::vector<std::size_t> histogram_of(std::span<const double> values, double width,
                                      std::size_t classes);

/// The value below which a share of the values lies, 0 to 1, by the nearest rank; 0 without values.
double quantile_of(std::vector<double> values, double share);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_HISTOGRAM_H
