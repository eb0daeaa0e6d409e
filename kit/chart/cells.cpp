// Columns that the library reads but has no question for.
#include "api/measdata.h"
#include "kit/chart/gather.h"
#include "kit/preflight/row_cutter.h"
#include "measdata/number_reader.h"

#include <algorithm>

namespace measkit {
namespace {

using vantor::MeasData::Comma;
using vantor::MeasData::NumberReader;

// True when the data block is the file's own and the wanted fields stand in it as they are.
bool has_own_columns(const Table& table, const std::vector<int>& wanted) {
  if (table.is_cut()) return false;
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const Field& field = table.fields[i];
    if (!field.texts.empty() || field.source != static_cast<int>(i)) return false;
  }
  return std::all_of(wanted.begin(), wanted.end(), [&table](int field) {
    return table.fields[static_cast<std::size_t>(field)].shift == 0;
  });
}

// The data block under other names: the wanted fields as device channels, which the library gives
// back as they stand, and the others as fields that it passes over.
std::string as_device_channels(const Table& table, const std::vector<int>& fields) {
  std::string text = table.identifier + "\nBEGIN_DATA_FORMAT\n";
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const auto wanted = std::find(fields.begin(), fields.end(), static_cast<int>(i));
    if (wanted == fields.end()) {
      text += "OTHER_" + std::to_string(i) + "_ ";
    } else {
      text += std::to_string(fields.size()) + "CLR_" + std::to_string(wanted - fields.begin() + 1) +
              " ";
    }
  }
  text.reserve(text.size() + table.data.size() + 100);
  text += "\nEND_DATA_FORMAT\nBEGIN_DATA\n";
  text += table.data;
  return text += "\nEND_DATA\n";
}

// Loading a large table once more takes less than half the time of cutting it into cells.
Values columns_by_library(const Chart& chart, const Table& table, const std::vector<int>& fields) {
  constexpr std::size_t kMostFields = 9;  // numbered by one digit
  Values values;
  if (fields.size() > kMostFields || !has_own_columns(table, fields)) return values;
  const LoadedText loaded(as_device_channels(table, fields), nullptr);
  void* const handle = loaded.handle();
  if (!loaded.is_loaded() || static_cast<std::size_t>(num_patches(handle)) != chart.patch_count ||
      static_cast<std::size_t>(num_device_channels(handle)) != fields.size()) {
    return values;
  }
  double* row = values.reset(fields.size(), chart.patch_count);
  for (std::size_t patch = 0; patch < chart.patch_count; ++patch, row += fields.size()) {
    get_dev_from_patch(handle, static_cast<int>(patch), row);
  }
  return values;
}

// True when the table's cells are at hand and are those of the chart's patches.
bool has_cells_of(const Chart& chart, Table& table) {
  if (!table.is_cut()) {
    const auto is_own_column = [](const Field& field) { return field.source != kNoField; };
    const auto width = std::count_if(table.fields.begin(), table.fields.end(), is_own_column);
    table.set_cells(
        cut_rows(table.data, table.data_line, static_cast<std::size_t>(width), table.findings)
            .cells);
  }
  return table.row_count() == chart.patch_count;
}

Values columns_of(const Chart& chart, Table& table, const std::vector<int>& fields) {
  if (fields.empty() || chart.patch_count == 0) return {};
  Values values = columns_by_library(chart, table, fields);
  if (!values.empty() || !has_cells_of(chart, table)) return values;
  const NumberReader reader;
  double* next = values.reset(fields.size(), chart.patch_count);
  for (std::size_t row = 0; row < chart.patch_count; ++row) {
    for (const int field : fields) {
      *next++ = reader.read(table.cell(row, field), Comma::is_decimal_point);
    }
  }
  return values;
}

Values columns_of(const Chart& chart, Table& table, const FieldTriple& fields) {
  return columns_of(chart, table, std::vector<int>(fields.begin(), fields.end()));
}

const std::string& name_of(const Table& table, int field) {
  return table.fields[static_cast<std::size_t>(field)].name;
}

}  // namespace

void gather_cells(Chart& chart, Table& table, const Roles& roles) {
  const bool is_lab_from_spectra =
      chart.lab_source == LabSource::weighting_table || chart.lab_source == LabSource::integration;
  if (is_lab_from_spectra && roles.has_lab()) {
    chart.own_lab = columns_of(chart, table, roles.lab);
  }
  if (roles.has_lch()) chart.lch = columns_of(chart, table, roles.lch);
  chart.densities = columns_of(chart, table, roles.densities);
  if (!chart.densities.empty()) {
    for (const int field : roles.densities) chart.density_names.push_back(name_of(table, field));
  }
  std::vector<int> emission_fields;
  std::vector<double> wavelengths;
  for (const int field : roles.unused) {
    const double nm = emission_wavelength_in(name_of(table, field));
    if (nm == 0.0) {
      chart.unused_columns.push_back(name_of(table, field));
      continue;
    }
    emission_fields.push_back(field);
    wavelengths.push_back(nm);
  }
  chart.emission = columns_of(chart, table, emission_fields);
  if (!chart.emission.empty()) chart.emission_wavelengths = std::move(wavelengths);
}

}  // namespace measkit
