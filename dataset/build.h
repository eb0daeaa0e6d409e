// Derives everything else from the patches of a file.
#ifndef MEASDATA_DATASET_BUILD_H
#define MEASDATA_DATASET_BUILD_H

#include "dataset/chart.h"
#include "measdata/meas_file_parser.h"

namespace vantor::DataSet {

/// Builds the chart from its filled `all_patches` and the reader that they came from.
void build_chart(Chart& chart, const MeasData::MeasFileParser& reader);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_BUILD_H
