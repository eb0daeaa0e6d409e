#include "dataset/spectral_grid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace vantor::DataSet {
namespace {

// False for not-a-number, too.
bool fits_int32(double value) {
  return std::abs(value) <= static_cast<double>(std::numeric_limits<std::int32_t>::max());
}

// The first of 1, 10 and 100 at which the wavelength becomes whole, 0 when it does at none.
double scale_to_whole(double nm) {
  for (const double scale : {1.0, 10.0, 100.0}) {
    if (nm * scale == std::round(nm * scale)) return scale;
  }
  return 0.0;
}

// How far a wavelength may lie off the grid: 1.5 in the last decimal place that the file gives.
double tolerance_of(const std::vector<double>& wavelengths) {
  double largest = 0.0;
  for (const double nm : wavelengths) largest = std::max(largest, scale_to_whole(nm));
  return largest > 0.0 ? 1.5 / largest : 1.0;
}

// The grid through the first and the last wavelength; false when another lies off it.
bool find_regular_grid(const std::vector<double>& wavelengths, MeasuredGrid& measured) {
  if (wavelengths.empty() || !std::all_of(wavelengths.begin(), wavelengths.end(), fits_int32)) {
    return false;
  }
  const std::size_t count = wavelengths.size();
  measured.first_nm = wavelengths.front();
  measured.step_nm =
      count == 1 ? 1.0
                 : (wavelengths.back() - wavelengths.front()) / static_cast<double>(count - 1);
  if (count < 3) return true;
  const double tolerance = tolerance_of(wavelengths);
  for (std::size_t i = 0; i < count; ++i) {
    const double expected = measured.first_nm + static_cast<double>(i) * measured.step_nm;
    if (std::abs(wavelengths[i] - expected) > tolerance) return false;
  }
  return true;
}

double end_of(const SpectralRequest& request) {
  return request.start_nm + (static_cast<double>(request.count) - 1.0) * request.step_nm;
}

bool covers(const MeasuredGrid& measured, double last_nm, const SpectralRequest& range) {
  return measured.first_nm <= range.start_nm && end_of(range) <= last_nm &&
         measured.step_nm <= range.step_nm;
}

// The file's own grid as whole numbers; false when it is not made of such.
bool take_measured_grid(const MeasuredGrid& measured, PatchDataSet& data_set) {
  if (!fits_int32(measured.step_nm) || measured.first_nm != std::trunc(measured.first_nm) ||
      measured.step_nm != std::trunc(measured.step_nm)) {
    return false;
  }
  data_set.spectral_start_nm = static_cast<std::int32_t>(measured.first_nm);
  data_set.spectral_step_nm = static_cast<std::int32_t>(measured.step_nm);
  data_set.spectral_count = static_cast<std::int32_t>(data_set.spectral_fields.size());
  return true;
}

bool is_supported(PatchDataSet& data_set, const SpectralRequest& range, const SpectralRequest& grid,
                  MeasuredGrid& measured) {
  if (!find_regular_grid(data_set.wavelengths, measured)) return false;
  if (range.is_active() && !covers(measured, data_set.wavelengths.back(), range)) return false;
  if (!grid.is_active()) return take_measured_grid(measured, data_set);
  data_set.spectral_start_nm = grid.start_nm;
  data_set.spectral_step_nm = grid.step_nm;
  data_set.spectral_count = grid.count;
  return true;
}

}  // namespace

bool settle_spectral_grid(PatchDataSet& data_set, const SpectralRequest& range,
                          const SpectralRequest& grid, MeasuredGrid& measured) {
  if (!is_supported(data_set, range, grid, measured)) {
    data_set.messages += "Unsupported spectral resolution!\n";
    return false;
  }
  const SpectralRequest settled = {data_set.spectral_start_nm, data_set.spectral_step_nm,
                                   data_set.spectral_count};
  measured.adjust = measured.first_nm != settled.start_nm ||
                    data_set.wavelengths.back() != end_of(settled) ||
                    measured.step_nm != settled.step_nm;
  if (measured.adjust) data_set.messages += "Note: range will be adjusted.\n";
  return true;
}

void resample(const MeasuredGrid& measured, std::span<const double> spectrum,
              const PatchDataSet& data_set, std::span<double> resampled) {
  const std::size_t last = spectrum.size() - 1;
  for (std::size_t k = 0; k < resampled.size(); ++k) {
    const double nm = data_set.spectral_start_nm +
                      static_cast<double>(k) * static_cast<double>(data_set.spectral_step_nm);
    const double position = (nm - measured.first_nm) / measured.step_nm;
    // Comparisons that fail for not-a-number, which a step of zero gives.
    if (!(position > 0.0)) {
      resampled[k] = spectrum.front();
    } else if (!(position < static_cast<double>(last))) {
      resampled[k] = spectrum.back();
    } else {
      const auto j = static_cast<std::size_t>(position);
      const double t = position - static_cast<double>(j);
      resampled[k] = (1.0 - t) * spectrum[j] + t * spectrum[j + 1];
    }
  }
}

}  // namespace vantor::DataSet
