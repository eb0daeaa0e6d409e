// The values of one merged patch.
#include "api/measdata.h"
#include "api/parser_state.h"
#include "dataset/merge.h"
#include "dataset/patch_lab.h"

#include <algorithm>
#include <cstddef>
#include <exception>

using vantor::Api::is_position;
using vantor::Api::state_of;
using vantor::DataSet::Chart;

namespace {

// The chart of a handle when `index` is one of its merged patches, else null.
const Chart* chart_with(void* handle, int index) {
  if (handle == nullptr) return nullptr;
  const Chart& chart = state_of(handle)->chart;
  return is_position(index, static_cast<std::size_t>(chart.unique_patches.num_patches)) ? &chart
                                                                                        : nullptr;
}

}  // namespace

int num_indices(void* handle) noexcept {
  return handle == nullptr ? 0 : state_of(handle)->chart.unique_patches.num_patches;
}

int get_paperwhite_index(void* handle) noexcept {
  return handle == nullptr ? -1 : state_of(handle)->chart.paper_white_index;
}

const char* get_name_from_index(void* handle, int index) noexcept {
  const Chart* chart = chart_with(handle, index);
  if (chart == nullptr || chart->unique_patches.sample_names.empty()) return "";
  return chart->unique_patches.sample_names.c_str(static_cast<std::size_t>(index));
}

void get_dev_from_index(void* handle, int index, double* out) noexcept {
  const Chart* chart = chart_with(handle, index);
  if (chart == nullptr || out == nullptr) return;
  std::ranges::copy(chart->unique_patches.device_values.row(static_cast<std::size_t>(index)), out);
}

void get_lab_from_index(void* handle, int index, double* out) noexcept {
  const Chart* chart = chart_with(handle, index);
  if (chart == nullptr || out == nullptr || !chart->all_patches.has_color_data()) return;
  vantor::DataSet::write_patch_lab(chart->unique_patches, static_cast<std::size_t>(index), out);
}

const double* get_spectrum_from_index(void* handle, int index) noexcept {
  const Chart* chart = chart_with(handle, index);
  if (chart == nullptr || chart->unique_patches.spectra.empty()) return nullptr;
  return chart->unique_patches.spectra.row(static_cast<std::size_t>(index)).data();
}

void get_de_stats_from_index(void* handle, int index, DeStats* out) noexcept {
  if (chart_with(handle, index) == nullptr || out == nullptr) return;
  Chart& chart = state_of(handle)->chart;
  if (!chart.all_patches.has_color_data() || !chart.unique_patches.is_merged) return;
  try {
    const vantor::DataSet::RepeatStatistics statistics = vantor::DataSet::repeat_statistics(
        chart.all_patches, chart.unique_patches, static_cast<std::size_t>(index));
    *out = {statistics.count, statistics.delta_e.mean, statistics.delta_e.max};
  } catch (const std::exception&) {  // no memory
    return;
  }
}
