#include "dataset/column_classification.h"

#include "dataset/generic_prefix.h"
#include "measdata/number_reader.h"
#include "measdata/spectral_prefixes.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vantor::DataSet {
namespace {

using MeasData::MeasFileParser;

constexpr std::array<std::string_view, 4> kDensityFields = {"D_RED", "D_GREEN", "D_BLUE", "D_VIS"};

std::int32_t find_first_of(const MeasFileParser& reader,
                           std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names) {
    const int field = reader.field_index(name);
    if (field != -1) return field;
  }
  return -1;
}

// True when the name is one of XYZ, Lab and LCh, whose index it sets.
bool classify_colour_field(std::string_view name, std::int32_t field, PatchDataSet& data_set) {
  struct Role {
    std::string_view name;
    FieldTriple PatchDataSet::*group;
    std::size_t position;
  };
  static constexpr std::array<Role, 11> kRoles = {{
      {"XYZ_X", &PatchDataSet::xyz_fields, 0},
      {"XYZ_Y", &PatchDataSet::xyz_fields, 1},
      {"XYZ_Z", &PatchDataSet::xyz_fields, 2},
      {"LAB_L", &PatchDataSet::lab_fields, 0},
      {"LAB_A", &PatchDataSet::lab_fields, 1},
      {"LAB_B", &PatchDataSet::lab_fields, 2},
      {"LAB_C", &PatchDataSet::lch_fields, 1},
      {"LAB_H", &PatchDataSet::lch_fields, 2},
      {"Lab_L", &PatchDataSet::lab_fields, 0},
      {"Lab_a", &PatchDataSet::lab_fields, 1},
      {"Lab_b", &PatchDataSet::lab_fields, 2},
  }};
  const auto role = std::find_if(kRoles.begin(), kRoles.end(),
                                 [name](const Role& known) { return known.name == name; });
  if (role == kRoles.end()) return false;
  (data_set.*role->group)[role->position] = field;
  if (name == "LAB_L") data_set.lch_fields[0] = field;  // serves both groups
  return true;
}

bool is_complete(const FieldTriple& fields) {
  return std::find(fields.begin(), fields.end(), -1) == fields.end();
}

}  // namespace

void classify_single_fields(const MeasFileParser& reader, PatchDataSet& data_set) {
  data_set.sample_id_field = find_first_of(reader, {"SAMPLE_ID", "SampleID"});
  data_set.sample_name_field = find_first_of(reader, {"SAMPLE_NAME", "Sample_Name", "SampleName"});
  data_set.sample_loc_field = find_first_of(reader, {"SAMPLE_LOC"});
  data_set.scw_index_field = find_first_of(reader, {"SCW_INDEX"});
}

// The first field with a spectral prefix decides it for the whole file; from then on every field
// that begins with it is spectral.
bool classify_measurement_fields(const MeasFileParser& reader, PatchDataSet& data_set) {
  data_set.xyz_fields = data_set.lab_fields = data_set.lch_fields = {-1, -1, -1};
  data_set.spectral_fields.clear();
  data_set.wavelengths.clear();

  const std::vector<std::string_view>& names = reader.field_names();
  const MeasData::NumberReader numbers;
  GenericPrefixRule generic_rule(names);
  std::string_view prefix;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string_view name = names[i];
    const auto field = static_cast<std::int32_t>(i);
    if (classify_colour_field(name, field, data_set)) continue;
    if (prefix.empty()) prefix = MeasData::spectral_prefix_of(name);
    if (prefix.empty() && !reader.is_known_field(name)) prefix = generic_rule.prefix_from(i);
    if (!prefix.empty() && name.starts_with(prefix)) {
      data_set.spectral_fields.push_back(field);
      data_set.wavelengths.push_back(numbers.read(name.substr(prefix.size())));
    }
  }
  data_set.spectral_prefix = prefix;
  data_set.has_xyz = is_complete(data_set.xyz_fields);
  data_set.has_lab = is_complete(data_set.lab_fields);
  data_set.has_lch = is_complete(data_set.lch_fields);
  data_set.has_spectral = !data_set.spectral_fields.empty();
  return data_set.has_xyz || data_set.has_lab || data_set.has_lch || data_set.has_spectral;
}

bool classify_density_fields(const MeasFileParser& reader, PatchDataSet& data_set) {
  data_set.density_fields.clear();
  data_set.density_names.clear();
  const std::vector<std::string_view>& names = reader.field_names();
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (std::find(kDensityFields.begin(), kDensityFields.end(), names[i]) == kDensityFields.end()) {
      continue;
    }
    data_set.density_fields.push_back(static_cast<std::int32_t>(i));
    data_set.density_names.emplace_back(names[i]);
  }
  data_set.has_density = !data_set.density_fields.empty();
  return data_set.has_density;
}

}  // namespace vantor::DataSet
