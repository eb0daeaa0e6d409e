// CxF3 documents as tables.
#ifndef MEASDATA_KIT_CXF_READ_CXF_H
#define MEASDATA_KIT_CXF_READ_CXF_H

#include "kit/finding.h"
#include "kit/preflight/table.h"
#include "kit/preflight/text_pool.h"

#include <optional>
#include <string_view>
#include <vector>

namespace measkit::cxf {

/// The tables of a text that is CxF, whether or not it can be read: one a measuring condition. None
/// for any other text. The text is UTF-8. It and the pool must outlive the tables.
std::optional<std::vector<Table>> read_cxf(std::string_view text, TextPool& pool,
                                           Findings& findings);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_READ_CXF_H
