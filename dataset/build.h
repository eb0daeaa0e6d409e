// Derives everything else from the patches of a file.
#ifndef MEASDATA_DATASET_BUILD_H
#define MEASDATA_DATASET_BUILD_H

#include "dataset/chart.h"
#include "measdata/meas_file_parser.h"

namespace vantor::DataSet {

/// Builds the chart from its filled `all_patches` and the reader that they came from. `name` is the
/// path or name of the file and may be null. False, with a message, when the file declares an ink
/// whose colour is not a number; the chart then holds what was built before.
bool build_chart(Chart& chart, const MeasData::MeasFileParser& reader, const char* name);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_BUILD_H
