// How a report looks beyond what all pages share, and what it does when it is touched.
#ifndef MEASDATA_KIT_WRITE_HTML_REPORT_STYLE_H
#define MEASDATA_KIT_WRITE_HTML_REPORT_STYLE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace measkit::html {

/// The rules of a report whose largest choice of spectra has so many groups.
std::string report_style(std::size_t groups);

/// Sorts and filters tables. The page works without it.
extern const std::string_view kReportScript;

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_REPORT_STYLE_H
