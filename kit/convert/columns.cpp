#include "kit/convert/columns.h"

#include "kit/convert/row_reader.h"
#include "kit/preflight/decimal_text.h"
#include "kit/preflight/spectral_columns.h"

#include <algorithm>

namespace measkit {
namespace {

std::string unit_of(ColumnGroup group, const std::string& name, const Table& table,
                    double rgb_scale) {
  switch (group) {
    case ColumnGroup::device:
      if (!name.starts_with("RGB_")) return "%";
      return rgb_scale == 0.0 ? "" : "0 to " + text_of(rgb_scale);
    case ColumnGroup::lch:
      return name == "LAB_H" ? "degrees" : "";
    case ColumnGroup::xyz:
      return is_display(table) ? "cd/m2" : "";
    case ColumnGroup::spectra:
      return emission_wavelength_in(name) != 0.0 ? "" : "factor";
    default:
      return {};
  }
}

bool contains(std::span<const ColumnGroup> groups, ColumnGroup group) {
  return std::ranges::find(groups, group) != groups.end();
}

}  // namespace

std::vector<ColumnGroup> column_groups(const Table& table) {
  const Roles& roles = table.roles();
  std::vector<ColumnGroup> groups(table.fields.size(), ColumnGroup::unknown);
  const auto set = [&groups](int field, ColumnGroup group) {
    if (field != kNoField) groups[static_cast<std::size_t>(field)] = group;
  };
  const auto set_all = [&set](const auto& fields, ColumnGroup group) {
    for (const int field : fields) set(field, group);
  };
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (emission_wavelength_in(table.fields[i].name) != 0.0) groups[i] = ColumnGroup::spectra;
  }
  for (const int field : {roles.id, roles.name, roles.location}) set(field, ColumnGroup::names);
  set_all(roles.device, ColumnGroup::device);
  set_all(roles.xyz, ColumnGroup::xyz);
  set_all(roles.xyy, ColumnGroup::xyy);
  set_all(roles.lch, ColumnGroup::lch);
  set_all(roles.lab, ColumnGroup::lab);  // L* belongs to both
  set_all(roles.densities, ColumnGroup::density);
  for (const SpectralField& spectral : roles.spectra) set(spectral.field, ColumnGroup::spectra);
  return groups;
}

std::vector<std::string> units_of(const Table& table, double rgb_scale) {
  const std::vector<ColumnGroup> groups = column_groups(table);
  std::vector<std::string> units;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    units.push_back(unit_of(groups[i], table.fields[i].name, table, rgb_scale));
  }
  return units;
}

void choose_columns(Table& table, std::span<const ColumnGroup> select, bool keeps_unknown,
                    std::vector<std::string>& left_behind) {
  const std::vector<ColumnGroup> groups = column_groups(table);
  const bool has_lch = contains(select, ColumnGroup::lch);
  std::vector<int> removed;
  std::vector<std::string> unknown;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const std::string& name = table.fields[i].name;
    const bool is_lightness_of_lch = has_lch && name == "LAB_L";
    const bool is_selected = select.empty() || contains(select, groups[i]) ||
                             groups[i] == ColumnGroup::names || is_lightness_of_lch;
    const bool is_told = is_selected && groups[i] == ColumnGroup::unknown && !keeps_unknown;
    if (is_told) unknown.push_back(name);
    if (is_told || !is_selected) removed.push_back(static_cast<int>(i));
  }
  if (!unknown.empty()) {
    left_behind.push_back("Columns that no answer uses: " + name_list(unknown) +
                          ". --keep-unknown keeps them.");
  }
  if (!removed.empty()) table.remove_fields(std::move(removed));
}

std::string name_list(std::span<const std::string> names) {
  constexpr std::size_t kMost = 12;
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i) {
    list.append(i == 0 ? "" : ", ").append(names[i]);
  }
  if (names.size() > kMost) list += " and " + std::to_string(names.size() - kMost) + " more";
  return list;
}

}  // namespace measkit
