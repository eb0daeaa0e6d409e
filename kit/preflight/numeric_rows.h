// Tells at the speed of a scan whether the cells of a data block are numbers.
#ifndef MEASDATA_KIT_PREFLIGHT_NUMERIC_ROWS_H
#define MEASDATA_KIT_PREFLIGHT_NUMERIC_ROWS_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace measkit {

/// The number of rows, when in every row all cells behind the first `text_cells` consist of the
/// bytes of decimal numbers. No answer may also mean that the rows hold something that takes a
/// closer look: quotes, comments, "nan".
std::optional<std::size_t> count_numeric_rows(std::string_view data, std::size_t text_cells);

/// Behind the first `count` cells of the line at `position`; npos when a comment or an open quote
/// is in the way.
std::size_t behind_cells(std::string_view data, std::size_t position, std::size_t count);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_NUMERIC_ROWS_H
