// Moves the decimal points of whole columns at the speed of a copy.
#ifndef MEASDATA_KIT_PREFLIGHT_SHIFTED_ROWS_H
#define MEASDATA_KIT_PREFLIGHT_SHIFTED_ROWS_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace measkit {

/// Appends rows for which count_numeric_rows() has an answer, the number in column i multiplied by
/// ten to the power of `shifts[i]`, digit for digit. Everything else keeps its bytes. False when a
/// row has another number of cells than there are shifts.
bool append_shifted_rows(std::string_view data, std::size_t text_cells, std::span<const int> shifts,
                         std::string& out);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SHIFTED_ROWS_H
