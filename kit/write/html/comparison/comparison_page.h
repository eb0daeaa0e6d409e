// Samples compared with a reference, as one HTML page that needs nothing else.
#ifndef MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_PAGE_H
#define MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_PAGE_H

#include "kit/compare/tolerances.h"

#include <span>
#include <string>
#include <vector>

namespace measkit::html {

/// The page. All samples have the same reference and stand side by side, on the same scales. It
/// shows the first eight.
std::string comparison_page_of(std::span<const JudgedComparison> samples);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_PAGE_H
