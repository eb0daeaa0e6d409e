// Derives everything else from the patches of a file.
#ifndef MEASDATA_DATASET_BUILD_H
#define MEASDATA_DATASET_BUILD_H

#include "dataset/chart.h"
#include "measdata/meas_file_parser.h"

#include <string>
#include <vector>

namespace vantor::DataSet {

/// The names of the fields that the device channels of a data set came from.
std::vector<std::string> device_field_names(const PatchDataSet& patches,
                                            const MeasData::MeasFileParser& reader);

/// Builds the chart from its filled `all_patches` and the names of their device fields. `name` is
/// the path or name of the file and may be null. False, with a message, when the file declares an
/// ink whose colour is not a number; the chart then holds what was built before.
bool build_chart(Chart& chart, const std::vector<std::string>& field_names, const char* name);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_BUILD_H
