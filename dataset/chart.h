// A measured chart: everything that one load makes of a file.
#ifndef MEASDATA_DATASET_CHART_H
#define MEASDATA_DATASET_CHART_H

#include "colortypes/spectral/astm_conversion.h"
#include "dataset/patch_data_set.h"

#include <cstdint>

namespace vantor::DataSet {

struct Chart {
  Chart() = default;
  // all_patches refers to the converter.
  Chart(const Chart&) = delete;
  Chart& operator=(const Chart&) = delete;

  PatchDataSet all_patches;  ///< every row of the file; stays the first member
  std::int32_t dev_is_cmyk = 0;
  std::int32_t dev_is_cmy = 0;
  std::int32_t dev_is_rgb = 0;
  ColorTypes::Spectral::ASTMSpectralConversion converter;
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_CHART_H
