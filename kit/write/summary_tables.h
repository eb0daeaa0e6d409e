// The tables of a chart's summary.
#ifndef MEASDATA_KIT_WRITE_SUMMARY_TABLES_H
#define MEASDATA_KIT_WRITE_SUMMARY_TABLES_H

#include "kit/chart/chart.h"
#include "kit/write/terminal_graphics.h"

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace measkit {

inline constexpr std::size_t kAllRows = std::numeric_limits<std::size_t>::max();

struct TableLine {
  std::string text;
  std::string colour;  ///< sRGB of what it tells of, as hex_colour() has it; empty without one
};
using TableLines = std::vector<TableLine>;

/// Each gives lines: titles, then no more than `most_rows` rows, of which the last may count those
/// that are left out. Nothing for a chart without such rows. A screen with blocks shows spectra and
/// wedges behind the rows, where there is room.
TableLines landmark_lines(const Chart& chart, std::size_t most_rows, const Screen& screen);
TableLines channel_lines(const Chart& chart, std::size_t most_rows, const Screen& screen);

/// The first and the last patches, `most_rows` in all.
TableLines patch_lines(const Chart& chart, std::size_t most_rows, const Screen& screen);
TableLines merged_patch_lines(const Chart& chart, std::size_t most_rows);

/// The distinct values of each channel and how many patches have them, and the steps of its wedge.
std::vector<std::string> channel_value_lines(const Chart& chart);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_SUMMARY_TABLES_H
