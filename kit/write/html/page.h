// A report about charts as one HTML page that needs nothing else.
#ifndef MEASDATA_KIT_WRITE_HTML_PAGE_H
#define MEASDATA_KIT_WRITE_HTML_PAGE_H

#include "kit/write/html/section.h"

#include <string>
#include <string_view>

namespace measkit::html {

std::string page_of(Views charts);

/// How the page looks: CSS that holds no character with a meaning in HTML.
extern const std::string_view kStyle;

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_PAGE_H
