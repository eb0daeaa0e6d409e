// Columns that the library reads but has no question for.
#include "kit/chart/gather.h"
#include "kit/preflight/row_cutter.h"
#include "measdata/number_reader.h"

#include <algorithm>

namespace measkit {
namespace {

using vantor::MeasData::Comma;
using vantor::MeasData::NumberReader;

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
  Values values;
  if (fields.empty() || chart.patch_count == 0 || !has_cells_of(chart, table)) return values;
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
