// Lab of a patch, from whatever its data set holds.
#ifndef MEASDATA_DATASET_PATCH_LAB_H
#define MEASDATA_DATASET_PATCH_LAB_H

#include "dataset/patch_data_set.h"

#include <cstddef>

namespace vantor::DataSet {

/// True when there is something to make Lab of.
bool has_patch_lab(const PatchDataSet& data_set);

/// Writes L*, a*, b* of a patch: from its spectrum when the data set has a conversion for it, else
/// the file's own Lab, else from XYZ; nothing when there is none of these.
void write_patch_lab(const PatchDataSet& data_set, std::size_t patch, double* lab);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_PATCH_LAB_H
