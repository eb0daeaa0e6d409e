#include "dataset/fill.h"

#include "dataset/column_classification.h"
#include "dataset/device_channels.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace vantor::DataSet {
namespace {

using MeasData::MeasFileParser;

// The cells of one row at a time.
class RowCells {
 public:
  // A file without rows may name any number of fields.
  explicit RowCells(const MeasFileParser& reader) : reader_(reader) {
    if (reader.row_count() != 0) cutter_.reserve(static_cast<std::size_t>(reader.field_count()));
  }

  void move_to(int row) { cells_ = reader_.cells_of_row(row, cutter_); }

  double number(std::int32_t field) const {
    return is_cell(field) ? reader_.number_of(cells_[static_cast<std::size_t>(field)], field) : 0.0;
  }
  void numbers(std::span<const std::int32_t> fields, double* values) const {
    for (std::size_t i = 0; i < fields.size(); ++i) values[i] = number(fields[i]);
  }
  void append_text(std::int32_t field, TextColumn& column) const {
    if (!is_cell(field)) {
      column.append({});
    } else if (const std::string_view cell = cells_[static_cast<std::size_t>(field)];
               reader_.is_numeric(field)) {
      column.append(reader_.text_of(cell, field));
    } else {
      column.append(cell);
    }
  }

 private:
  bool is_cell(std::int32_t field) const {
    return field >= 0 && static_cast<std::size_t>(field) < cells_.size();
  }

  const MeasFileParser& reader_;
  MeasData::CellCutter cutter_;
  std::span<const std::string_view> cells_;
};

// A table on its way to be filled.
struct OpenTable {
  std::span<const std::int32_t> fields;
  double* next_row;
};

// All tables that take numbers of the file as they stand, with room for every patch.
std::vector<OpenTable> open_tables(const MeasuredGrid& measured, PatchDataSet& data_set) {
  const auto rows = static_cast<std::size_t>(data_set.num_patches);
  std::vector<OpenTable> tables;
  const auto open = [&tables, rows](bool is_wanted, std::span<const std::int32_t> fields,
                                    ColorTypes::ValueTable& table) {
    if (is_wanted) tables.push_back({fields, table.reset(fields.size(), rows)});
  };
  open(true, data_set.device_fields, data_set.device_values);
  open(data_set.has_lab, data_set.lab_fields, data_set.lab_values);
  open(data_set.has_lch, data_set.lch_fields, data_set.lch_values);
  open(data_set.has_xyz, data_set.xyz_fields, data_set.xyz_values);
  open(data_set.has_density, data_set.density_fields, data_set.density_values);
  open(data_set.has_spectral && !measured.adjust, data_set.spectral_fields, data_set.spectra);
  return tables;
}

void reserve_columns(PatchDataSet& data_set) {
  const auto rows = static_cast<std::size_t>(data_set.num_patches);
  if (data_set.sample_id_field != -1) data_set.sample_ids.reserve(rows);
  if (data_set.sample_loc_field != -1) data_set.sample_locations.reserve(rows);
  if (data_set.sample_name_field != -1) data_set.sample_names.reserve(rows);
  if (data_set.scw_index_field != -1) data_set.scw_indices.reserve(rows);
}

void fill_columns(const RowCells& cells, PatchDataSet& data_set) {
  if (data_set.sample_id_field != -1) {
    cells.append_text(data_set.sample_id_field, data_set.sample_ids);
  }
  if (data_set.sample_loc_field != -1) {
    cells.append_text(data_set.sample_loc_field, data_set.sample_locations);
  }
  if (data_set.sample_name_field != -1) {
    cells.append_text(data_set.sample_name_field, data_set.sample_names);
  }
  if (data_set.scw_index_field != -1) {
    data_set.scw_indices.push_back(cells.number(data_set.scw_index_field));
  }
}

void fill_patches(const MeasFileParser& reader, const MeasuredGrid& measured,
                  PatchDataSet& data_set) {
  std::vector<OpenTable> tables = open_tables(measured, data_set);
  reserve_columns(data_set);
  const auto grid_count = static_cast<std::size_t>(data_set.spectral_count);
  std::vector<double> spectrum(measured.adjust ? data_set.spectral_fields.size() : 0);
  double* resampled =
      measured.adjust
          ? data_set.spectra.reset(grid_count, static_cast<std::size_t>(data_set.num_patches))
          : nullptr;
  RowCells cells(reader);
  for (int row = 0; row < data_set.num_patches; ++row) {
    cells.move_to(row);
    for (OpenTable& table : tables) {
      cells.numbers(table.fields, table.next_row);
      table.next_row += table.fields.size();
    }
    fill_columns(cells, data_set);
    if (measured.adjust) {
      cells.numbers(data_set.spectral_fields, spectrum.data());
      resample(measured, spectrum, data_set, {resampled, grid_count});
      resampled += grid_count;
    }
  }
}

// Resampled spectra belong to no field of the file.
void adopt_grid(PatchDataSet& data_set) {
  data_set.spectral_fields.clear();
  data_set.wavelengths.clear();
  for (std::int32_t k = 0; k < data_set.spectral_count; ++k) {
    data_set.wavelengths.push_back(data_set.spectral_start_nm +
                                   static_cast<double>(k) * data_set.spectral_step_nm);
  }
}

void copy_texts(const std::vector<std::string_view>& views, std::vector<std::string>& texts) {
  texts.assign(views.begin(), views.end());
}

void copy_header(const MeasFileParser& reader, PatchDataSet& data_set) {
  HeaderKeywords& keywords = data_set.header_keywords;
  keywords.names.reserve(reader.keywords().size());
  keywords.values.reserve(reader.keywords().size());
  for (std::size_t i = 0; i < reader.keywords().size(); ++i) {
    keywords.names.append(reader.keywords()[i].name);
    keywords.values.append(reader.keywords()[i].value);
  }
  copy_texts(reader.weighting_functions(), data_set.weighting_functions);
  copy_texts(reader.computational_parameters(), data_set.computational_parameters);
  copy_texts(reader.process_color_ids(), data_set.process_color_ids);
  copy_texts(reader.spot_color_ids(), data_set.spot_color_ids);
}

bool take_failure(PatchDataSet& data_set, const MeasFileParser& reader) {
  data_set.messages = reader.messages();
  return false;
}

}  // namespace

bool read_file(PatchDataSet& data_set, const char* path, MeasFileParser& reader,
               const SpectralRequest& range, const SpectralRequest& grid) {
  data_set.reset();
  reader.drop_rows_of_wrong_width();
  if (!reader.load_file(path)) return take_failure(data_set, reader);
  data_set.file_name = path;
  return fill(data_set, reader, range, grid);
}

bool read_memory(PatchDataSet& data_set, std::string_view text, MeasFileParser& reader,
                 const SpectralRequest& range, const SpectralRequest& grid) {
  data_set.reset();
  reader.drop_rows_of_wrong_width();
  if (!reader.load_view(text)) return take_failure(data_set, reader);
  return fill(data_set, reader, range, grid);
}

bool fill(PatchDataSet& data_set, const MeasFileParser& reader, const SpectralRequest& range,
          const SpectralRequest& grid) {
  data_set.file_identifier = reader.identifier();
  data_set.device_space = detect_device_channels(reader, data_set.device_fields);
  classify_single_fields(reader, data_set);
  data_set.num_patches = reader.row_count();
  classify_measurement_fields(reader, data_set);
  classify_density_fields(reader, data_set);

  MeasuredGrid measured;
  if (data_set.has_spectral && !settle_spectral_grid(data_set, range, grid, measured)) {
    return false;
  }
  fill_patches(reader, measured, data_set);
  if (measured.adjust) adopt_grid(data_set);
  copy_header(reader, data_set);
  return true;
}

}  // namespace vantor::DataSet
