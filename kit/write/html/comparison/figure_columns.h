// The figures of many differences as columns of a table.
#ifndef MEASDATA_KIT_WRITE_HTML_COMPARISON_FIGURE_COLUMNS_H
#define MEASDATA_KIT_WRITE_HTML_COMPARISON_FIGURE_COLUMNS_H

#include "kit/compare/figures.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace measkit::html {

struct FigureColumn {
  std::string_view title;
  double Figures::*value;
  bool is_short;   ///< shown where there is little room
  bool is_signed;  ///< means something for values with a sign
};
inline constexpr std::array<FigureColumn, 7> kFigureColumns = {
    {{"Mean", &Figures::mean, true, true},
     {"Median", &Figures::median, false, true},
     {"90 %", &Figures::p90, false, false},
     {"95 %", &Figures::p95, true, false},
     {"Max", &Figures::max, true, true},
     {"Std", &Figures::std, false, true},
     {"Best 90 %", &Figures::best90, false, false}}};

/// Whether a table in one of so many columns of the page has room for all figures.
constexpr bool has_room(std::size_t columns) { return columns <= 2; }

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_COMPARISON_FIGURE_COLUMNS_H
