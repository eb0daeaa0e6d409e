// The tables of a chart's summary.
#ifndef MEASDATA_KIT_WRITE_SUMMARY_TABLES_H
#define MEASDATA_KIT_WRITE_SUMMARY_TABLES_H

#include "kit/chart/chart.h"

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace measkit {

inline constexpr std::size_t kAllRows = std::numeric_limits<std::size_t>::max();

/// Each gives lines: titles, then no more than `most_rows` rows, of which the last may count those
/// that are left out. Nothing for a chart without such rows.
std::vector<std::string> landmark_lines(const Chart& chart, std::size_t most_rows);
std::vector<std::string> channel_lines(const Chart& chart, std::size_t most_rows);

/// The first and the last patches, `most_rows` in all.
std::vector<std::string> patch_lines(const Chart& chart, std::size_t most_rows);
std::vector<std::string> merged_patch_lines(const Chart& chart, std::size_t most_rows);

/// The distinct values of each channel and how many patches have them, and the steps of its wedge.
std::vector<std::string> channel_value_lines(const Chart& chart);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_SUMMARY_TABLES_H
