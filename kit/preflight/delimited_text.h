// Cuts lines of spreadsheets into cells.
#ifndef MEASDATA_KIT_PREFLIGHT_DELIMITED_TEXT_H
#define MEASDATA_KIT_PREFLIGHT_DELIMITED_TEXT_H

#include "kit/preflight/text_pool.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace measkit {

/// What stands between two cells.
enum class Delimiter : char {
  tab = '\t',
  semicolon = ';',
  comma = ',',
  blanks = ' ',  ///< any number of blanks and tabs
};

/// From the one that means most to the one that means least.
inline constexpr std::array kDelimiters = {Delimiter::tab, Delimiter::semicolon, Delimiter::comma,
                                           Delimiter::blanks};

/// For sentences: "tabs", "semicolons" and so on.
std::string_view plural_of(Delimiter delimiter);

/// No table of measurements is wider. Wider lines are not taken for rows.
inline constexpr std::size_t kMostColumns = 100000;

using SheetCells = std::vector<std::string_view>;

/// The cells of a line, without the blanks around them and without quotes; a doubled quote inside a
/// quoted cell becomes one, for which `pool` gives the room. `cells` is emptied first, and stays
/// empty for a line of more than kMostColumns cells.
void cut_cells(std::string_view line, Delimiter delimiter, TextPool& pool, SheetCells& cells);

/// The number of cells without empty ones at the end.
std::size_t filled_width(const SheetCells& cells);

/// The text without blanks at both ends; a no-break space is a blank, too.
std::string_view without_blanks(std::string_view text);

/// True for a decimal number, with a point or a comma, and nothing behind it.
bool is_number(std::string_view cell);

/// The value of a cell for which is_number() holds.
double number_in(std::string_view cell);

/// True for a cell that may stand in a column of numbers: a number, nothing, or a word such as NA.
bool is_number_or_missing(std::string_view cell);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_DELIMITED_TEXT_H
