// Cuts a data block into rows and cells, whatever separates them.
#ifndef MEASDATA_KIT_PREFLIGHT_ROW_CUTTER_H
#define MEASDATA_KIT_PREFLIGHT_ROW_CUTTER_H

#include "kit/finding.h"
#include "kit/preflight/table.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

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
///
/// Rows with too many cells keep them when field `name` is that of names: blanks in a name cut it
/// into words, and the fields on both sides have one cell each.
CutRows cut_rows(std::string_view data, std::size_t first_line, std::size_t width,
                 Findings& findings, int name = kNoField);

/// The names of a list of fields whose names hold blanks: cut at the separator that gives every row
/// as many cells as there are names. Empty when none does, or when the rows have a cell for each of
/// the `width` items between blanks.
std::vector<std::string> names_at_separator(std::string_view field_list, std::size_t width,
                                            std::string_view data);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_ROW_CUTTER_H
