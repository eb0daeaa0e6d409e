// A report about charts as one self-contained HTML page.
#ifndef MEASDATA_TOOLS_REPORT_PAGE_H
#define MEASDATA_TOOLS_REPORT_PAGE_H

#include "tools/report/section.h"

#include <string>
#include <string_view>

namespace tools::report {

std::string page_of(Charts charts);

/// The CSS of the page, without characters that have a meaning in HTML.
extern const std::string_view kStyle;

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_PAGE_H
