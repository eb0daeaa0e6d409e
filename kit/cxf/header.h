// The keywords of a chart.
#ifndef MEASDATA_KIT_CXF_HEADER_H
#define MEASDATA_KIT_CXF_HEADER_H

#include "kit/cxf/document.h"
#include "kit/cxf/layers.h"
#include "kit/cxf/line_index.h"
#include "kit/preflight/table.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace measkit::cxf {

/// A text on one line and without quotation marks, as values of keywords are.
std::string one_line(std::string_view text);

/// True when the keywords of a measurement file, of which the document was made, still tell
/// everything: there is one chart, and its specification names no other instrument or condition.
bool has_own_keywords(const Document& document, const Layer& layer);

/// Adds a keyword that stands at a line of the document; nothing for an empty value.
void add_keyword_at(Table& table, std::string_view keyword, std::string_view value,
                    std::size_t line);

/// What the document and the specifications of a layer say, in the keywords of measurement files.
void write_header(const Document& document, const Layer& layer, const LineIndex& lines,
                  Table& table);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_HEADER_H
