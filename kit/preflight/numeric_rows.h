// Tells at the speed of a scan whether the cells of a data block are numbers.
#ifndef MEASDATA_KIT_PREFLIGHT_NUMERIC_ROWS_H
#define MEASDATA_KIT_PREFLIGHT_NUMERIC_ROWS_H

#include <cstddef>
#include <string_view>

namespace measkit {

/// True when, in every row, all cells behind the first `text_cells` consist of the bytes of decimal
/// numbers. False may also mean that the rows hold something that takes a closer look: quotes,
/// comments, "nan".
bool rows_are_numeric(std::string_view data, std::size_t text_cells);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_NUMERIC_ROWS_H
