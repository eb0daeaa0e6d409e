// Counts values in classes of equal width.
#ifndef MEASDATA_TOOLS_REPORT_HISTOGRAM_H
#define MEASDATA_TOOLS_REPORT_HISTOGRAM_H

#include <cstddef>
#include <span>
#include <vector>

namespace tools::report {

/// Counts the values from 0 to `classes` times `width`. A class includes its lower bound; the last
/// class also includes its upper bound.
std::vector<std::size_t> histogram_of(std::span<const double> values, double width,
                                      std::size_t classes);

/// The value below which a share of the values lies, 0 to 1, by the nearest rank; 0 without values.
double quantile_of(std::vector<double> values, double share);

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_HISTOGRAM_H
