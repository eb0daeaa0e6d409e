// Lists what kinds of data a file holds, in the order of its fields.
#ifndef MEASDATA_DATASET_FIELD_KINDS_H
#define MEASDATA_DATASET_FIELD_KINDS_H

#include "dataset/patch_data_set.h"
#include "measdata/meas_file_parser.h"

namespace vantor::DataSet {

/// Sets `field_kinds` and `unclassified_fields` of a data set whose roles are known. A group is
/// listed where its first field stands; a field that is first of two groups counts for the one with
/// the lower code. A group that lacks its first field is not listed.
void list_field_kinds(const MeasData::MeasFileParser& reader, PatchDataSet& data_set);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_FIELD_KINDS_H
