// The values of one patch of the file.
#include "api/measdata.h"
#include "api/parser_state.h"
#include "colortypes/conversions.h"
#include "dataset/patch_lab.h"

#include <algorithm>
#include <cstddef>

using vantor::Api::data_set_of;
using vantor::Api::is_position;
using vantor::ColorTypes::ValueTable;
using vantor::DataSet::PatchDataSet;
using vantor::DataSet::TextColumn;

namespace {

const char* text_at(const TextColumn& column, int patch) {
  return is_position(patch, column.size()) ? column.c_str(static_cast<std::size_t>(patch)) : "";
}

void copy_row(const ValueTable& table, int patch, double* out) {
  if (out == nullptr || !is_position(patch, table.rows())) return;
  std::ranges::copy(table.row(static_cast<std::size_t>(patch)), out);
}

}  // namespace

const char* get_id_from_patch(void* handle, int patch) noexcept {
  return text_at(data_set_of(handle).sample_ids, patch);
}

const char* get_loc_from_patch(void* handle, int patch) noexcept {
  return text_at(data_set_of(handle).sample_locations, patch);
}

const char* get_name_from_patch(void* handle, int patch) noexcept {
  return text_at(data_set_of(handle).sample_names, patch);
}

void get_dev_from_patch(void* handle, int patch, double* out) noexcept {
  copy_row(data_set_of(handle).device_values, patch, out);
}

void get_xyz_from_patch(void* handle, int patch, double* out) noexcept {
  copy_row(data_set_of(handle).xyz_values, patch, out);
}

void get_lab_from_patch(void* handle, int patch, double* out) noexcept {
  const PatchDataSet& data_set = data_set_of(handle);
  if (out == nullptr || !data_set.has_color_data() ||
      !is_position(patch, static_cast<std::size_t>(data_set.num_patches))) {
    return;
  }
  vantor::DataSet::write_patch_lab(data_set, static_cast<std::size_t>(patch), out);
}

const double* get_spectrum_from_patch(void* handle, int patch) noexcept {
  const ValueTable& spectra = data_set_of(handle).spectra;
  if (!is_position(patch, spectra.rows())) return nullptr;
  return spectra.row(static_cast<std::size_t>(patch)).data();
}

void lab_to_srgb(const double* lab, double* rgb) noexcept {
  if (lab == nullptr || rgb == nullptr) return;
  const vantor::ColorTypes::Rgb converted =
      vantor::ColorTypes::labToSrgb255({lab[0], lab[1], lab[2]});
  rgb[0] = converted.r;
  rgb[1] = converted.g;
  rgb[2] = converted.b;
}
