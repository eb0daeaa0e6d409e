// Merges the repeated measurements of a chart.
#ifndef MEASDATA_DATASET_MERGE_H
#define MEASDATA_DATASET_MERGE_H

#include "dataset/patch_data_set.h"

namespace vantor::DataSet {

/// True when there is one row of device values for each patch and their channel set is known.
bool has_consistent_device_values(const PatchDataSet& data_set);

/// Makes `unique_patches` of `all_patches`: one entry for all patches of equal device values, with
/// the identifiers of the first, the mean of their spectra or Lab, and the statistics of their
/// distances. XYZ, LCh and densities are not carried over.
///
/// Without consistent device values it becomes a copy. With densities, whose averaging is not
/// defined, it becomes empty and both data sets say so in their messages.
void merge_repeats(PatchDataSet& all_patches, PatchDataSet& unique_patches);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_MERGE_H
