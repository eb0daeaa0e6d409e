// Cuts a data block into rows and cells, whatever separates them.
#ifndef MEASDATA_KIT_PREFLIGHT_ROW_CUTTER_H
#define MEASDATA_KIT_PREFLIGHT_ROW_CUTTER_H

#include "kit/finding.h"
#include "kit/preflight/table.h"

#include <cstddef>
#include <string_view>

namespace measkit {

struct CutRows {
  Cells cells;
  /// True when the library cuts the block in the same way.
  bool is_plain = true;
};

/// The rows of `data`, which begins at line `first_line`, as cells of `width` fields. Ways to cut
/// are tried from the most common to the rarest: at blanks, at tabs, at semicolons or commas, rows
/// that go on over several lines. A way holds when it gives every row the right width. When none
/// does but all rows have one other width, the cells have that width. Else rows of a wrong width
/// are left out, which a finding tells.
CutRows cut_rows(std::string_view data, std::size_t first_line, std::size_t width,
                 Findings& findings);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_ROW_CUTTER_H
