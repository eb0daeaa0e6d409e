// The figures of many differences as columns of a table.
#ifndef MEASDATA_KIT_WRITE_HTML_COMPARISON_FIGURE_COLUMNS_H
#define MEASDATA_KIT_WRITE_HTML_COMPARISON_FIGURE_COLUMNS_H

#include "kit/compare/figures.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace measkit::html {

struct FigureColumn {
  std::string_view title, long_title;
  double Figures::*value;
  bool is_short;   ///< shown where there is little room
  bool is_signed;  ///< means something for values with a sign
};
inline constexpr std::array<FigureColumn, 7> kFigureColumns = {
    {{"Mean", "mean", &Figures::mean, true, true},
     {"Median", "median", &Figures::median, false, true},
     {"90 %", "90th percentile", &Figures::p90, false, false},
     {"95 %", "95th percentile", &Figures::p95, true, false},
     {"Max", "max", &Figures::max, true, true},
     {"Std", "standard deviation", &Figures::std, false, true},
     {"Best 90 %", "mean of best 90 %", &Figures::best90, false, false}}};

/// Whether a table in one of so many columns of the page has room for all figures.
constexpr bool has_room(std::size_t columns) { return columns <= 2; }

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_COMPARISON_FIGURE_COLUMNS_H
