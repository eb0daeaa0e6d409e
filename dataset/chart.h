// A measured chart: everything that one load makes of a file.
#ifndef MEASDATA_DATASET_CHART_H
#define MEASDATA_DATASET_CHART_H

#include "colortypes/chart_analysis.h"
#include "colortypes/spectral/astm_conversion.h"
#include "colortypes/spectral/cmf_conversion.h"
#include "dataset/keyword_store.h"
#include "dataset/patch_data_set.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantor::DataSet {

/// 1 when the device channels have exactly the names of one of these sets.
struct DeviceFlags {
  std::int32_t is_cmyk = 0;
  std::int32_t is_cmy = 0;
  std::int32_t is_rgb = 0;
};

struct Chart {
  Chart() = default;
  // The data sets refer to the conversions.
  Chart(const Chart&) = delete;
  Chart& operator=(const Chart&) = delete;

  PatchDataSet all_patches;             ///< every row of the file; stays the first member
  PatchDataSet unique_patches;          ///< repeated measurements merged
  std::int32_t paper_white_index = -1;  ///< in unique_patches, -1 when there is none
  // One element for each device channel:
  std::vector<std::vector<std::int32_t>> wedges;  ///< positions in unique_patches
  std::vector<ColorTypes::DistinctValues> distinct_dev_values;
  std::vector<std::string> channel_names;

  KeywordStore keywords;  ///< of every file loaded so far
  DeviceFlags device_flags;
  ColorTypes::Spectral::ASTMSpectralConversion converter;
  ColorTypes::Spectral::CmfSpectralConversion fallback_converter;
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_CHART_H
