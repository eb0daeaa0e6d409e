// Where the patches of a chart stand in a picture of it.
#ifndef MEASDATA_KIT_WRITE_HTML_CHART_LAYOUT_H
#define MEASDATA_KIT_WRITE_HTML_CHART_LAYOUT_H

#include "kit/chart/chart.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace measkit::html {

struct ChartLayout {
  static constexpr std::uint32_t kNoPatch = std::numeric_limits<std::uint32_t>::max();

  std::size_t columns = 0;
  std::vector<std::uint32_t> patches;  ///< row by row; kNoPatch where there is none
  std::string_view placed_by;          ///< "locations", "ids" or "names"; empty for the order
  bool letters_go_across = false;      ///< of such a place; numbers otherwise
  std::string row_keyword;             ///< that tells the length of a row; empty without one

  /// How the patches are placed, as a sentence; `chart` stands in it for whose chart it is.
  std::string sentence(std::string_view chart) const;
};

/// By locations, ids or names when each patch has one of its own such as "A1", "AQ27" or "12C", the
/// longer side across; else in the order of the file, in rows as long as a keyword says.
ChartLayout layout_of(const Chart& chart);

/// How many columns hold so many cells so that the picture is about as wide as a golden rectangle.
std::size_t columns_for(std::size_t cells);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_CHART_LAYOUT_H
