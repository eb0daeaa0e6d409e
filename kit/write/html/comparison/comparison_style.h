// How a page that compares charts looks, beyond the style of all pages.
#ifndef MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_STYLE_H
#define MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_STYLE_H

#include <string_view>

namespace measkit::html {

extern const std::string_view kComparisonStyle;

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_COMPARISON_COMPARISON_STYLE_H
