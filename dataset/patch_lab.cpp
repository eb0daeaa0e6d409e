#include "dataset/patch_lab.h"

#include "colortypes/conversions.h"

#include <algorithm>

namespace vantor::DataSet {

bool has_patch_lab(const PatchDataSet& data_set) {
  return (data_set.has_spectral && data_set.lab_conversion != nullptr) || data_set.has_lab ||
         data_set.has_xyz;
}

void write_patch_lab(const PatchDataSet& data_set, std::size_t patch, double* lab) {
  if (data_set.has_spectral && data_set.lab_conversion != nullptr) {
    data_set.lab_conversion->spectralToLab(data_set.spectra.row(patch).data(), lab[0], lab[1],
                                           lab[2]);
  } else if (data_set.has_lab) {
    std::ranges::copy(data_set.lab_values.row(patch), lab);
  } else if (data_set.has_xyz) {
    const auto xyz = data_set.xyz_values.row(patch);
    const ColorTypes::Lab converted =
        ColorTypes::xyzToLab({xyz[0], xyz[1], xyz[2]}, ColorTypes::kD50White);
    lab[0] = converted.l;
    lab[1] = converted.a;
    lab[2] = converted.b;
  }
}

}  // namespace vantor::DataSet
