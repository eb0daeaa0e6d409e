// Checks the wavelengths of a file and settles the grid on which its spectra are kept.
#ifndef MEASDATA_DATASET_SPECTRAL_GRID_H
#define MEASDATA_DATASET_SPECTRAL_GRID_H

#include "dataset/patch_data_set.h"

#include <cstdint>
#include <span>

namespace vantor::DataSet {

/// Wavelengths that a caller of the fill step asks for; a count of 0 asks for nothing.
struct SpectralRequest {
  std::int32_t start_nm = 0;
  std::int32_t step_nm = 0;
  std::int32_t count = 0;

  bool is_active() const { return count > 0; }
};

/// The grid on which a file's spectra stand.
struct MeasuredGrid {
  double first_nm = 0.0;
  double step_nm = 0.0;
  bool adjust = false;  ///< true when spectra have to be resampled to the data set's grid
};

/// Tests the data set's wavelengths for regularity and sets its spectral start, step and count:
/// those of `grid` when it is active, else those of the file, which must be whole. `range` must be
/// covered by the file when it is active. False, with a message, for wavelengths that do not fit.
bool settle_spectral_grid(PatchDataSet& data_set, const SpectralRequest& range,
                          const SpectralRequest& grid, MeasuredGrid& measured);

/// Linear interpolation of a measured spectrum at the wavelengths of the data set's grid; outside
/// the measured range the nearest end is repeated.
void resample(const MeasuredGrid& measured, std::span<const double> spectrum,
              const PatchDataSet& data_set, std::span<double> resampled);

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_SPECTRAL_GRID_H
