#include "kit/preflight/table.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/row_cutter.h"
#include "measdata/number_reader.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace measkit {

using vantor::MeasData::Comma;
using vantor::MeasData::NumberReader;

FieldNames::FieldNames(const std::vector<Field>& fields) {
  ends_.reserve(fields.size());
  for (const Field& field : fields) {
    letters_ += field.name;
    ends_.push_back(letters_.size());
  }
}

bool FieldNames::are_those_of(const std::vector<Field>& fields) const {
  if (fields.size() != ends_.size() || fields.empty()) return false;
  std::size_t start = 0;
  for (std::size_t i = 0; i < fields.size(); start = ends_[i++]) {
    if (letters_.compare(start, ends_[i] - start, fields[i].name) != 0) return false;
  }
  return true;
}

void Table::set_loaded(LoadedText loaded, int spectral_shift) {
  loaded_ = std::move(loaded);
  loaded_shift_ = spectral_shift;
  loaded_rows_ = static_cast<std::size_t>(num_patches(loaded_.handle()));
  loaded_roles_ = roles();
}

std::size_t Table::row_count() const { return is_cut_ ? cells_.rows() : loaded_rows_; }

void Table::cut() {
  if (is_cut_) return;
  std::size_t width = 0;
  for (const Field& field : fields) width += field.source != kNoField ? 1 : 0;
  set_cells(cut_rows(data, data_line, width, findings).cells);
}

std::size_t Table::line_of(std::size_t row) {
  cut();
  return cells_.lines[row];
}

std::string_view Table::cell(std::size_t row, int field) {
  const Field& wanted = fields[static_cast<std::size_t>(field)];
  if (!wanted.texts.empty()) return wanted.texts[row];
  cut();
  const std::string_view own =
      cells_.texts[row * cells_.width + static_cast<std::size_t>(wanted.source)];
  return wanted.shift == 0 ? own : measkit::move_point(own, wanted.shift, pool);
}

std::vector<double> Table::numbers(int field) {
  const Field& wanted = fields[static_cast<std::size_t>(field)];
  std::vector<double> values(row_count());
  if (!is_cut_ && is_loaded() && wanted.texts.empty() && wanted.shift == 0) {
    const auto position_in = [&wanted](const auto& group) {
      return std::find(group.begin(), group.end(), wanted.source) - group.begin();
    };
    const auto channel = static_cast<std::size_t>(position_in(loaded_roles_.device));
    const auto component = static_cast<std::size_t>(position_in(loaded_roles_.xyz));
    const bool is_device = channel < loaded_roles_.device.size();
    if (is_device || (loaded_roles_.has_xyz() && component < 3)) {
      std::vector<double> row(std::max<std::size_t>(3, loaded_roles_.device.size()));
      const auto get = is_device ? get_dev_from_patch : get_xyz_from_patch;
      for (std::size_t i = 0; i < values.size(); ++i) {
        get(loaded_.handle(), static_cast<int>(i), row.data());
        values[i] = row[is_device ? channel : component];
      }
      return values;
    }
  }
  const NumberReader reader;
  for (std::size_t row = 0; row < values.size(); ++row) {
    values[row] = reader.read(cell(row, field), Comma::is_decimal_point);
  }
  return values;
}

std::vector<std::string_view> Table::field_names() const {
  std::vector<std::string_view> names;
  names.reserve(fields.size());
  for (const Field& field : fields) names.emplace_back(field.name);
  return names;
}

const Roles& Table::roles() const {
  if (!names_of_roles_.are_those_of(fields)) {
    roles_ = roles_of(field_names());
    names_of_roles_ = FieldNames(fields);
  }
  return roles_;
}

Table Table::view() const {
  Table view;
  view.text = text;
  view.identifier = identifier;
  view.own_name = own_name;
  view.header = header;
  view.fields = fields;
  view.field_list = field_list;
  view.data = data;
  view.data_line = data_line;
  view.text_cells = text_cells;
  view.content = content;
  view.cells_ = cells_;
  view.is_cut_ = is_cut_;
  view.loaded_rows_ = loaded_rows_;
  return view;
}

void Table::rename(int field, std::string name) {
  fields[static_cast<std::size_t>(field)].name = std::move(name);
  is_as_it_stands = false;
}

int Table::add_field(std::string name, std::vector<std::string_view> texts) {
  cut();
  fields.push_back({std::move(name), kNoField, std::move(texts)});
  is_as_it_stands = false;
  return static_cast<int>(fields.size()) - 1;
}

void Table::set_texts(int field, std::vector<std::string_view> texts) {
  cut();
  fields[static_cast<std::size_t>(field)].texts = std::move(texts);
  is_as_it_stands = false;
}

void Table::move_point(int position, int places) {
  Field& field = fields[static_cast<std::size_t>(position)];
  for (std::string_view& made : field.texts) made = measkit::move_point(made, places, pool);
  if (field.texts.empty()) field.shift += places;
  is_as_it_stands = false;
}

void Table::remove_fields(std::vector<int> positions) {
  cut();
  std::sort(positions.begin(), positions.end());
  std::vector<Field> kept;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!std::binary_search(positions.begin(), positions.end(), static_cast<int>(i))) {
      kept.push_back(std::move(fields[i]));
    }
  }
  fields = std::move(kept);
  is_as_it_stands = false;
}

void Table::set_value(HeaderLine& line, std::string value) {
  line.raw = pool.add(std::string(line.keyword) + " \"" + value + "\"");
  if (line.line != 0 && line.own_value.empty()) line.own_value = std::move(line.value);
  line.value = std::move(value);
  is_as_it_stands = false;
}

void Table::add_keyword(std::string_view keyword, std::string value) {
  header.push_back({{}, pool.add(keyword), {}, 0});
  set_value(header.back(), std::move(value));
}

const HeaderLine* Table::find(std::string_view keyword) const {
  const auto found = std::find_if(header.begin(), header.end(),
                                  [&](const HeaderLine& line) { return line.keyword == keyword; });
  return found == header.end() ? nullptr : &*found;
}

HeaderLine* Table::find(std::string_view keyword) {
  return const_cast<HeaderLine*>(std::as_const(*this).find(keyword));
}

SpectralRows::SpectralRows(Table& table, const Roles& roles) : size_(table.row_count()) {
  values_.resize(roles.spectra.size());
  const bool is_loaded = table.is_loaded() && !table.is_cut() && roles.has_spectra() &&
                         spectral_size(table.loaded().handle()) == static_cast<int>(values_.size());
  if (is_loaded) {
    handle_ = table.loaded().handle();
    const auto first = static_cast<std::size_t>(roles.spectra.front().field);
    factor_ = std::pow(10.0, table.fields[first].shift - table.loaded_shift());
    return;
  }
  for (const SpectralField& spectral : roles.spectra) {
    columns_.push_back(table.numbers(spectral.field));
  }
}

std::span<const double> SpectralRows::row(std::size_t row) {
  if (handle_ != nullptr) {
    const double* values = get_spectrum_from_patch(handle_, static_cast<int>(row));
    if (factor_ == 1.0) return {values, values_.size()};
    for (std::size_t band = 0; band < values_.size(); ++band)
      values_[band] = factor_ * values[band];
    return values_;
  }
  for (std::size_t band = 0; band < columns_.size(); ++band) values_[band] = columns_[band][row];
  return values_;
}

}  // namespace measkit
