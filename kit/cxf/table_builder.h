// A table of a layer: its fields and cells.
#ifndef MEASDATA_KIT_CXF_TABLE_BUILDER_H
#define MEASDATA_KIT_CXF_TABLE_BUILDER_H

#include "kit/cxf/document.h"
#include "kit/cxf/layers.h"
#include "kit/cxf/line_index.h"
#include "kit/preflight/table.h"

#include <cstddef>
#include <optional>

namespace measkit::cxf {

/// Cells that tables may still have. A text of any size names sparse tables that are far larger,
/// but no measured value takes less than a byte of it.
struct CellBudget {
  std::size_t left = 0;
};

/// None when the table has more cells than the budget has left. Views of the table lie in the
/// document's text, in the pool of its reader or in the table's own.
std::optional<Table> table_of(const Document& document, const Layer& layer, const LineIndex& lines,
                              CellBudget& budget);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_TABLE_BUILDER_H
