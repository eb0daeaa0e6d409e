#include "dataset/merge.h"

#include "colortypes/repeats.h"
#include "dataset/device_channels.h"
#include "dataset/patch_lab.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor::DataSet {
namespace {

using ColorTypes::Distances;
using ColorTypes::RepeatGroups;
using ColorTypes::ValueTable;
using Members = std::span<const std::uint32_t>;

constexpr const char* kNoDensityAverage = "Averaging of densities not implemented, yet!";

// What describes the patches rather than one of them, but for the groups that are not carried over.
void copy_description(const PatchDataSet& all, PatchDataSet& unique) {
  unique.file_name = all.file_name;
  unique.file_identifier = all.file_identifier;
  unique.device_space = all.device_space;
  unique.device_fields = all.device_fields;
  unique.sample_id_field = all.sample_id_field;
  unique.sample_name_field = all.sample_name_field;
  unique.sample_loc_field = all.sample_loc_field;
  unique.scw_index_field = all.scw_index_field;
  unique.lab_fields = all.lab_fields;
  unique.has_lab = all.has_lab;
  unique.has_spectral = all.has_spectral;
  unique.spectral_prefix = all.spectral_prefix;
  unique.spectral_fields = all.spectral_fields;
  unique.spectral_start_nm = all.spectral_start_nm;
  unique.spectral_step_nm = all.spectral_step_nm;
  unique.spectral_count = all.spectral_count;
  unique.wavelengths = all.wavelengths;
  unique.lab_conversion = all.lab_conversion;
}

void append_text(const TextColumn& from, std::size_t row, TextColumn& to) {
  if (!from.empty()) to.append(from.at(row));
}

// The mean of each entry's rows, entry after entry; none for a table without rows.
void merge_rows(const ValueTable& from, const RepeatGroups& groups, ValueTable& to) {
  if (from.empty()) return;
  double* mean = to.reset(from.width(), groups.size());
  for (std::size_t entry = 0; entry < groups.size(); ++entry, mean += from.width()) {
    const Members members = groups.members(entry);
    if (members.size() == 1) {
      std::ranges::copy(from.row(members.front()), mean);
    } else {
      ColorTypes::meanOfRows(from, members, mean);
    }
  }
}

void append_entry(const PatchDataSet& all, std::size_t first, PatchDataSet& unique) {
  append_text(all.sample_ids, first, unique.sample_ids);
  append_text(all.sample_locations, first, unique.sample_locations);
  append_text(all.sample_names, first, unique.sample_names);
  if (!all.scw_indices.empty()) unique.scw_indices.push_back(all.scw_indices[first]);
}

// Members have equal device values, which a mean would round.
void take_device_values(const ValueTable& from, const RepeatGroups& groups, ValueTable& to) {
  double* values = to.reset(from.width(), groups.size());
  for (std::size_t entry = 0; entry < groups.size(); ++entry) {
    values = std::ranges::copy(from.row(groups.members(entry).front()), values).out;
  }
}

void copy_all_patches(const PatchDataSet& all, PatchDataSet& unique) {
  unique.device_values = all.device_values;
  unique.sample_ids = all.sample_ids;
  unique.sample_locations = all.sample_locations;
  unique.sample_names = all.sample_names;
  unique.scw_indices = all.scw_indices;
  unique.lab_values = all.lab_values;
  unique.spectra = all.spectra;
}

// Delta E*ab between the Lab of all members; no distance where there is nothing to make Lab of.
Distances lab_distances(const PatchDataSet& all, Members members) {
  if (!has_patch_lab(all)) return {};
  ValueTable lab;
  double* rows = lab.reset(3, members.size());
  for (const std::uint32_t member : members) {
    write_patch_lab(all, member, rows);
    rows += 3;
  }
  std::vector<std::uint32_t> positions(members.size());
  std::iota(positions.begin(), positions.end(), 0U);
  return pairwiseDistances(lab, positions);
}

}  // namespace

bool has_consistent_device_values(const PatchDataSet& data_set) {
  return data_set.device_space != DeviceSpace::none &&
         data_set.device_values.rows() == static_cast<std::size_t>(data_set.num_patches);
}

void merge_repeats(PatchDataSet& all_patches, PatchDataSet& unique_patches) {
  unique_patches.reset();
  if (all_patches.has_density) {
    all_patches.messages = kNoDensityAverage;
    unique_patches.messages = kNoDensityAverage;
    return;
  }
  if (!has_consistent_device_values(all_patches)) {
    unique_patches = all_patches;
    return;
  }
  RepeatGroups groups(all_patches.device_values);
  copy_description(all_patches, unique_patches);
  unique_patches.is_merged = true;
  unique_patches.num_patches = static_cast<std::int32_t>(groups.size());
  if (!groups.hasRepeats()) {
    copy_all_patches(all_patches, unique_patches);
    return;
  }
  take_device_values(all_patches.device_values, groups, unique_patches.device_values);
  merge_rows(all_patches.lab_values, groups, unique_patches.lab_values);
  merge_rows(all_patches.spectra, groups, unique_patches.spectra);
  for (std::size_t entry = 0; entry < groups.size(); ++entry) {
    append_entry(all_patches, groups.members(entry).front(), unique_patches);
  }
  unique_patches.repeats = std::move(groups);
}

RepeatStatistics repeat_statistics(const PatchDataSet& all_patches, PatchDataSet& unique_patches,
                                   std::size_t entry) {
  if (!unique_patches.repeats.hasRepeats()) return {0, {0.0, 0.0}};
  const Members members = unique_patches.repeats.members(entry);
  if (members.size() == 1) return {1, {}};
  auto& kept = unique_patches.repeat_distances;
  kept.resize(unique_patches.repeats.size());
  if (!kept[entry]) kept[entry] = lab_distances(all_patches, members);
  return {static_cast<std::int32_t>(members.size()), *kept[entry]};
}

}  // namespace vantor::DataSet
