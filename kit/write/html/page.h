// Charts as one HTML page that needs nothing else.
#ifndef MEASDATA_KIT_WRITE_HTML_PAGE_H
#define MEASDATA_KIT_WRITE_HTML_PAGE_H

#include "kit/chart/chart.h"

#include <span>
#include <string>

namespace measkit::html {

/// The page. Several charts stand side by side, on the same scales.
std::string html_of(std::span<const Chart> charts);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_PAGE_H
