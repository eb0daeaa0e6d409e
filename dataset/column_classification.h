// Decides by the names of a file's fields which of them hold what was measured.
#ifndef MEASDATA_DATASET_COLUMN_CLASSIFICATION_H
#define MEASDATA_DATASET_COLUMN_CLASSIFICATION_H

#include "dataset/patch_data_set.h"
#include "measdata/meas_file_parser.h"

namespace vantor::DataSet {

/// Sample identifier, name, location and SCW index.
void classify_single_fields(const MeasData::MeasFileParser& reader, PatchDataSet& data_set);

/// XYZ, Lab, LCh and spectral fields; true when the file has a complete group of one of them.
bool classify_measurement_fields(const MeasData::MeasFileParser& reader, PatchDataSet& data_set);

/// Density fields; true when there is one.
bool classify_density_fields(const MeasData::MeasFileParser& reader, PatchDataSet& data_set);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_COLUMN_CLASSIFICATION_H
