// Charts as JSON.
#ifndef MEASDATA_KIT_WRITE_JSON_H
#define MEASDATA_KIT_WRITE_JSON_H

#include "kit/chart/chart.h"
#include "kit/finding.h"

#include <span>
#include <string>
#include <string_view>

namespace measkit {

/// A JSON object in UTF-8 with everything in a chart. Numbers that are none are null; text that is
/// not UTF-8 is taken for Latin-1.
std::string to_json(const Chart& chart);

/// The same for a file: its name, a list of its tables, and the keys of its main chart, with the
/// findings about the whole file before the chart's. Further charts are objects of their own in
/// "further_charts".
std::string to_json(std::string_view file, std::span<const Chart> charts, const Findings& findings);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_JSON_H
