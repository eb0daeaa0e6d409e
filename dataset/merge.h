// Merges the repeated measurements of a chart.
#ifndef MEASDATA_DATASET_MERGE_H
#define MEASDATA_DATASET_MERGE_H

#include "colortypes/pair_distances.h"
#include "dataset/patch_data_set.h"

#include <cstddef>
#include <cstdint>

namespace vantor::DataSet {

/// True when there is one row of device values for each patch and their channel set is known.
bool has_consistent_device_values(const PatchDataSet& data_set);

/// Makes `unique_patches` of `all_patches`: one entry for all patches of equal device values, with
/// the identifiers of the first, and the mean of their spectra or Lab. XYZ, LCh and densities are
/// not carried over.
///
/// Without consistent device values it becomes a copy. With densities, whose averaging is not
/// defined, it becomes empty and both data sets say so in their messages.
void merge_repeats(PatchDataSet& all_patches, PatchDataSet& unique_patches);

struct RepeatStatistics {
  std::int32_t count = 0;
  ColorTypes::Distances delta_e;
};

/// How many measurements were merged into an entry, and how far they lie apart; all 0 where no
/// patch repeats. Compares all pairs of them when it is called first, and keeps the result.
RepeatStatistics repeat_statistics(const PatchDataSet& all_patches, PatchDataSet& unique_patches,
                                   std::size_t entry);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_MERGE_H
