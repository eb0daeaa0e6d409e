// What the file holds: counts, yes/no answers, wavelengths.
#include "api/measdata.h"
#include "api/parser_state.h"

#include <vector>

using vantor::Api::data_set_of;
using vantor::Api::state_of;

namespace {

int yes_or_no(bool answer) { return answer ? 1 : 0; }

}  // namespace

int num_patches(void* handle) noexcept { return data_set_of(handle).num_patches; }

int num_device_channels(void* handle) noexcept {
  return static_cast<int>(data_set_of(handle).device_fields.size());
}

int has_device_data(void* handle) noexcept {
  return yes_or_no(!data_set_of(handle).device_fields.empty());
}

int has_xyz_data(void* handle) noexcept { return yes_or_no(data_set_of(handle).has_xyz); }

int has_lab_data(void* handle) noexcept { return yes_or_no(data_set_of(handle).has_lab); }

int has_lch_data(void* handle) noexcept { return yes_or_no(data_set_of(handle).has_lch); }

int has_spectral_data(void* handle) noexcept {
  return yes_or_no(!data_set_of(handle).wavelengths.empty());
}

int has_color_data(void* handle) noexcept {
  return yes_or_no(data_set_of(handle).has_color_data());
}

int has_sample_id_data(void* handle) noexcept {
  return yes_or_no(!data_set_of(handle).sample_ids.empty());
}

int has_sample_loc_data(void* handle) noexcept {
  return yes_or_no(!data_set_of(handle).sample_locations.empty());
}

int has_sample_name_data(void* handle) noexcept {
  return yes_or_no(!data_set_of(handle).sample_names.empty());
}

int dev_is_cmyk(void* handle) noexcept {
  return handle == nullptr ? 0 : state_of(handle)->chart.device_flags.is_cmyk;
}

int dev_is_cmy(void* handle) noexcept {
  return handle == nullptr ? 0 : state_of(handle)->chart.device_flags.is_cmy;
}

int dev_is_rgb(void* handle) noexcept {
  return handle == nullptr ? 0 : state_of(handle)->chart.device_flags.is_rgb;
}

double spectral_start(void* handle) noexcept {
  const std::vector<double>& wavelengths = data_set_of(handle).wavelengths;
  return wavelengths.empty() ? 0.0 : wavelengths.front();
}

double spectral_end(void* handle) noexcept {
  const std::vector<double>& wavelengths = data_set_of(handle).wavelengths;
  return wavelengths.empty() ? 0.0 : wavelengths.back();
}

double spectral_step(void* handle) noexcept {
  const std::vector<double>& wavelengths = data_set_of(handle).wavelengths;
  return wavelengths.size() < 2 ? 0.0 : wavelengths[1] - wavelengths[0];
}

int spectral_size(void* handle) noexcept {
  return static_cast<int>(data_set_of(handle).wavelengths.size());
}
