// A report about charts as one HTML page that needs nothing else.
#ifndef MEASDATA_TOOLS_REPORT_PAGE_H
#define MEASDATA_TOOLS_REPORT_PAGE_H

#include "tools/report/section.h"

#include <string>
#include <string_view>

namespace tools::report {

std::string page_of(Charts charts);

/// How the page looks: CSS that holds no character with a meaning in HTML.
extern const std::string_view kStyle;

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_PAGE_H
