#include "dataset/field_kinds.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace vantor::DataSet {
namespace {

struct Leader {
  FieldKind kind;
  std::int32_t field;
};

std::int32_t first_of(const std::vector<std::int32_t>& fields) {
  return fields.empty() ? -1 : fields.front();
}

// The first field of each group, in the order of the codes.
std::array<Leader, 10> leaders_of(const PatchDataSet& data_set) {
  return {{
      {FieldKind::device, first_of(data_set.device_fields)},
      {FieldKind::spectral, first_of(data_set.spectral_fields)},
      {FieldKind::lab, data_set.lab_fields[0]},
      {FieldKind::lch, data_set.lch_fields[0]},
      {FieldKind::xyz, data_set.xyz_fields[0]},
      {FieldKind::density, first_of(data_set.density_fields)},
      {FieldKind::sample_id, data_set.sample_id_field},
      {FieldKind::sample_loc, data_set.sample_loc_field},
      {FieldKind::sample_name, data_set.sample_name_field},
      {FieldKind::scw_index, data_set.scw_index_field},
  }};
}

// One mark per field, set for those that have a role.
std::vector<bool> mark_classified(const PatchDataSet& data_set, std::size_t field_count) {
  std::vector<bool> is_classified(field_count, false);
  const auto mark = [&is_classified](std::span<const std::int32_t> fields) {
    for (const std::int32_t field : fields) {
      if (field != -1) is_classified[static_cast<std::size_t>(field)] = true;
    }
  };
  mark(data_set.device_fields);
  mark(data_set.spectral_fields);
  mark(data_set.lab_fields);
  mark(data_set.lch_fields);
  mark(data_set.xyz_fields);
  mark(data_set.density_fields);
  mark(std::array{data_set.sample_id_field, data_set.sample_loc_field, data_set.sample_name_field,
                  data_set.scw_index_field});
  return is_classified;
}

}  // namespace

void list_field_kinds(const MeasData::MeasFileParser& reader, PatchDataSet& data_set) {
  const std::array<Leader, 10> leaders = leaders_of(data_set);
  const std::vector<std::string_view>& names = reader.field_names();
  const std::vector<bool> is_classified = mark_classified(data_set, names.size());
  data_set.field_kinds.clear();
  data_set.unclassified_fields.clear();
  for (std::size_t i = 0; i < names.size(); ++i) {
    for (const Leader& leader : leaders) {
      if (leader.field == static_cast<std::int32_t>(i)) {
        data_set.field_kinds.push_back(leader.kind);
        break;
      }
    }
    if (!is_classified[i]) data_set.unclassified_fields.emplace_back(names[i]);
  }
}

}  // namespace vantor::DataSet
