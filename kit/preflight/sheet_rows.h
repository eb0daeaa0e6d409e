// Reads the rows below the header line of a spreadsheet.
#ifndef MEASDATA_KIT_PREFLIGHT_SHEET_ROWS_H
#define MEASDATA_KIT_PREFLIGHT_SHEET_ROWS_H

#include "kit/preflight/column_names.h"
#include "kit/preflight/table.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace measkit {

/// Where the table of a spreadsheet stands, and what its columns hold.
struct Sheet {
  Delimiter delimiter = Delimiter::comma;
  std::vector<Column> columns;  ///< as many as cells in a row
  std::size_t header_line = 0;
  std::size_t data_start = 0;  ///< position of the first row in the text
  std::size_t data_line = 0;
};

/// Colours need no wavelengths beyond these, in nm, and the library has no weights for them.
inline constexpr double kShortestWavelength = 360.0, kLongestWavelength = 830.0;

/// Where the line stands that names the columns of another table; the end of the text without one.
struct SheetEnd {
  std::size_t position = 0;
  std::size_t line = 0;
};

/// The table, with what was left out told in its findings. It has no rows when none fits.
Table read_rows(std::string_view text, const Sheet& sheet, SheetEnd& end);

/// The number with a point for a comma, and nan for a cell that holds no number.
std::string_view plain_number(std::string_view cell, TextPool& pool);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SHEET_ROWS_H
