// Patches and merged patches by the library's answers.
#include "api/measdata.h"
#include "colortypes/pair_distances.h"
#include "colortypes/repeats.h"
#include "kit/chart/gather.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace measkit {
namespace {

constexpr double kNotMeasured = std::numeric_limits<double>::quiet_NaN();

using TextQuestion = const char* (*)(void*, int);
using NumbersQuestion = void (*)(void*, int, double*);
using SpectrumQuestion = const double* (*)(void*, int);

std::size_t size_of(int count) { return count < 0 ? 0 : static_cast<std::size_t>(count); }

Texts texts_from(TextQuestion ask, void* handle, std::size_t count) {
  Texts texts;
  texts.reserve(count);
  for (std::size_t i = 0; i < count; ++i) texts.emplace_back(ask(handle, static_cast<int>(i)));
  return texts;
}

Values numbers_from(NumbersQuestion ask, void* handle, std::size_t count, std::size_t width) {
  Values values;
  if (count == 0 || width == 0) return values;
  double* row = values.reset(width, count);
  std::fill_n(row, width * count, kNotMeasured);
  for (std::size_t i = 0; i < count; ++i, row += width) ask(handle, static_cast<int>(i), row);
  return values;
}

Values spectra_from(SpectrumQuestion ask, void* handle, std::size_t count) {
  Values values;
  const std::size_t width = size_of(spectral_size(handle));
  if (count == 0 || width == 0) return values;
  double* row = values.reset(width, count);
  for (std::size_t i = 0; i < count; ++i, row += width) {
    const double* const spectrum = ask(handle, static_cast<int>(i));
    if (spectrum == nullptr) return {};
    std::copy_n(spectrum, width, row);
  }
  return values;
}

bool is_number(std::span<const double> row) {
  return std::none_of(row.begin(), row.end(), [](double value) { return std::isnan(value); });
}

// Sorts the patches by the merged patch that they went into, by the library's rule.
void gather_members(Chart& chart) {
  MergedPatches& merged = chart.merged;
  merged.members.resize(chart.patch_count);
  std::iota(merged.members.begin(), merged.members.end(), 0U);
  merged.starts.resize(merged.count + 1);
  std::iota(merged.starts.begin(), merged.starts.end(), 0U);
  if (merged.count == chart.patch_count) return;
  const vantor::ColorTypes::RepeatGroups groups(chart.device);
  if (groups.size() != merged.count) {  // the library merges by a rule that is not known here
    merged.count = 0;
    return;
  }
  auto next = merged.members.begin();
  for (std::size_t index = 0; index < merged.count; ++index) {
    merged.starts[index] = static_cast<std::uint32_t>(next - merged.members.begin());
    next = std::ranges::copy(groups.members(index), next).out;
  }
  merged.starts.back() = static_cast<std::uint32_t>(chart.patch_count);
}

// Comparing 20,000 measurements takes up to two seconds.
constexpr std::size_t kMostCompared = 20000;

Repeats repeats_at(void* handle, std::size_t index) {
  DeStats stats = {0, 0.0, 0.0};
  get_de_stats_from_index(handle, static_cast<int>(index), &stats);
  Repeats repeats = {stats.repeat_count, stats.de_mean, stats.de_max};
  if (stats.de_max == vantor::ColorTypes::kNoDistance) repeats.de_max.reset();
  return repeats;
}

// A colour that was not measured makes the mean of its repeats no number: the others alone count.
void leave_out_unmeasured(Chart& chart, std::size_t most_compared) {
  MergedPatches& merged = chart.merged;
  Values lab;
  double* rows = nullptr;
  for (std::size_t index = 0; index < merged.count; ++index) {
    if (is_number(merged.lab.row(index))) continue;
    std::vector<std::uint32_t> measured;
    for (const std::uint32_t patch : merged.patches_of(index)) {
      if (is_number(chart.lab.row(patch))) measured.push_back(patch);
    }
    if (measured.empty()) continue;
    if (rows == nullptr) {
      rows = lab.reset(3, merged.count);
      std::ranges::copy(merged.lab.values(), rows);
    }
    vantor::ColorTypes::meanOfRows(chart.lab, measured, rows + 3 * index);
    if (merged.repeats.empty() || merged.patches_of(index).size() > most_compared) continue;
    const auto distances = vantor::ColorTypes::pairwiseDistances(chart.lab, measured);
    merged.repeats[index].de_mean = distances.mean;
    merged.repeats[index].de_max.reset();
    if (measured.size() > 1) merged.repeats[index].de_max = distances.max;
  }
  if (rows != nullptr) merged.lab = lab;
}

void gather_merged(Chart& chart, void* handle, Effort effort) {
  MergedPatches& merged = chart.merged;
  merged.count = size_of(num_indices(handle));
  if (merged.count == 0) return;
  gather_members(chart);
  if (merged.count == chart.patch_count) {
    merged.names = chart.names;
    merged.device = chart.device;
    merged.lab = chart.lab;
    merged.spectra = chart.spectra;
  } else {
    if (chart.holds.names) merged.names = texts_from(get_name_from_index, handle, merged.count);
    merged.device = numbers_from(get_dev_from_index, handle, merged.count, chart.device.width());
    if (!chart.lab.empty()) {
      merged.lab = numbers_from(get_lab_from_index, handle, merged.count, 3);
    }
    if (chart.holds.spectra) {
      merged.spectra = spectra_from(get_spectrum_from_index, handle, merged.count);
    }
  }
  if (!chart.holds.colour || !chart.holds.device) return;
  const std::size_t most_compared =
      effort == Effort::all ? std::numeric_limits<std::size_t>::max() : kMostCompared;
  merged.repeats.reserve(merged.count);
  for (std::size_t index = 0; index < merged.count; ++index) {
    const std::size_t count = merged.patches_of(index).size();
    merged.repeats.push_back(count > most_compared
                                 ? Repeats{static_cast<int>(count), kNotMeasured, std::nullopt}
                                 : repeats_at(handle, index));
  }
  if (!merged.lab.empty()) leave_out_unmeasured(chart, most_compared);
}

void gather_holdings(Holdings& holds, void* handle) {
  holds.device = has_device_data(handle) == 1;
  holds.xyz = has_xyz_data(handle) == 1;
  holds.lab = has_lab_data(handle) == 1;
  holds.lch = has_lch_data(handle) == 1;
  holds.spectra = has_spectral_data(handle) == 1;
  holds.colour = has_color_data(handle) == 1;
  holds.ids = has_sample_id_data(handle) == 1;
  holds.names = has_sample_name_data(handle) == 1;
  holds.locations = has_sample_loc_data(handle) == 1;
}

}  // namespace

void gather_patches(Chart& chart, void* handle, Effort effort) {
  gather_holdings(chart.holds, handle);
  const Holdings& holds = chart.holds;
  const std::size_t count = chart.patch_count = size_of(num_patches(handle));
  if (holds.ids) chart.ids = texts_from(get_id_from_patch, handle, count);
  if (holds.names) chart.names = texts_from(get_name_from_patch, handle, count);
  if (holds.locations) chart.locations = texts_from(get_loc_from_patch, handle, count);
  if (holds.device) {
    const std::size_t channels = size_of(num_device_channels(handle));
    chart.device = numbers_from(get_dev_from_patch, handle, count, channels);
  }
  if (holds.xyz) chart.xyz = numbers_from(get_xyz_from_patch, handle, count, 3);
  if (holds.colour) chart.lab = numbers_from(get_lab_from_patch, handle, count, 3);
  if (holds.spectra) chart.spectra = spectra_from(get_spectrum_from_patch, handle, count);
  for (std::size_t band = 0; band < chart.spectra.width(); ++band) {
    chart.wavelengths.push_back(spectral_start(handle) +
                                static_cast<double>(band) * spectral_step(handle));
  }
  gather_merged(chart, handle, effort);
}

}  // namespace measkit
