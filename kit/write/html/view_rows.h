// The tables of a page's summary.
#ifndef MEASDATA_KIT_WRITE_HTML_VIEW_ROWS_H
#define MEASDATA_KIT_WRITE_HTML_VIEW_ROWS_H

#include "kit/write/html/view.h"

#include <string>

namespace measkit::html {

/// "CMYK", "5CLR" or how many channels there are; safe to stand in HTML.
std::string device_space_of(const Chart& chart);

/// Fills what the view tells about file, colour, conditions, instrument, sample, and keywords.
void fill_rows(View& view, const Chart& chart);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_VIEW_ROWS_H
