// Comparisons as text for a terminal, and as a table for a spreadsheet.
#ifndef MEASDATA_KIT_WRITE_COMPARISON_TEXT_H
#define MEASDATA_KIT_WRITE_COMPARISON_TEXT_H

#include "kit/compare/tolerances.h"

#include <span>
#include <string>

namespace measkit {

/// A screenful: what to know first, verdicts, figures by group, the worst colours, tone values.
/// Nothing in it can steer a terminal.
std::string comparison_text_of(const JudgedComparison& judged);

/// Several samples against one reference: a line for each.
std::string comparison_overview_of(std::span<const JudgedComparison> samples);

/// A header line, then a line for each colour of each comparison.
std::string comparison_csv_of(std::span<const JudgedComparison> samples);

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_COMPARISON_TEXT_H
