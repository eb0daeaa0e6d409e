// Charts as text for a terminal.
#ifndef MEASDATA_KIT_WRITE_SUMMARY_H
#define MEASDATA_KIT_WRITE_SUMMARY_H

#include "kit/chart/chart.h"
#include "kit/finding.h"
#include "kit/write/terminal_graphics.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace measkit {

enum class Detail {
  screenful,  ///< at most a screenful, whatever the size of the chart
  all,        ///< every finding, keyword, patch and merged patch
};

/// What a chart is and holds, findings first. Nothing of the chart can steer a terminal. Swatches
/// and graphs of a screen add no lines.
std::string summary_of(const Chart& chart, Detail detail, const Screen& screen = {});

/// The same for a file: its name, the findings about it as a whole, its main chart, and what its
/// further tables are. With all detail these are told like the first.
std::string summary_of(std::string_view file, std::span<const Chart> charts,
                       const Findings& findings, Detail detail, const Screen& screen = {});

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_SUMMARY_H
