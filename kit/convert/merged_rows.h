// One row a colour: repeats of device values are averaged.
#ifndef MEASDATA_KIT_CONVERT_MERGED_ROWS_H
#define MEASDATA_KIT_CONVERT_MERGED_ROWS_H

#include "kit/chart/chart.h"
#include "kit/preflight/table.h"

#include <string>
#include <vector>

namespace measkit {

/// Names and device values of a merged row are those of its first patch, measured values the means
/// of its patches. A column that no answer uses stays where the patches agree in it; otherwise it
/// is told.
void merge_rows(Table& table, const MergedPatches& merged, int digits,
                std::vector<std::string>& left_behind);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_MERGED_ROWS_H
