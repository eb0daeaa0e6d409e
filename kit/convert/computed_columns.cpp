#include "kit/convert/computed_columns.h"

#include "colortypes/conversions.h"
#include "kit/preflight/conditions.h"
#include "kit/preflight/decimal_text.h"
#include "kit/preflight/lab_columns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace measkit {
namespace {

using Column = std::vector<std::string_view>;

int position_of(const Table& table, std::string_view name) {
  const auto found = std::ranges::find(table.fields, name, &Field::name);
  return found == table.fields.end() ? kNoField : static_cast<int>(found - table.fields.begin());
}

void set_columns(Table& table, std::array<Column, 3> columns) {
  const std::array<const char*, 3> names = {"LAB_L", "LAB_A", "LAB_B"};
  for (std::size_t i = 0; i < 3; ++i) {
    const int position = position_of(table, names[i]);
    if (position == kNoField) {
      table.add_field(names[i], std::move(columns[i]));
    } else {
      table.set_texts(position, std::move(columns[i]));
    }
  }
}

// Weights of old samples by position.
using Weights = std::vector<std::pair<std::size_t, double>>;

Weights weights_at(double nm, const std::vector<double>& wavelengths, double reach) {
  Weights weights;
  double sum = 0.0;
  for (std::size_t i = 0; i < wavelengths.size(); ++i) {
    const double weight = 1.0 - std::abs(wavelengths[i] - nm) / reach;
    if (weight <= 1e-9) continue;
    weights.emplace_back(i, weight);
    sum += weight;
  }
  for (auto& [position, weight] : weights) weight /= sum;
  return weights;
}

double widest_step(const std::vector<double>& wavelengths) {
  double widest = 0.0;
  for (std::size_t i = 1; i < wavelengths.size(); ++i) {
    widest = std::max(widest, wavelengths[i] - wavelengths[i - 1]);
  }
  return widest;
}

RefusalWords check_range(const WavelengthRange& range, const std::vector<double>& wavelengths) {
  constexpr double kTolerance = 1e-6;  // nm
  if (range.start < wavelengths.front() - kTolerance ||
      range.end > wavelengths.back() + kTolerance) {
    return "the spectra reach from " + text_of(wavelengths.front()) + " to " +
           text_of(wavelengths.back()) + " nm, not from " + text_of(range.start) + " to " +
           text_of(range.end);
  }
  return {};
}

}  // namespace

std::string_view number_text(double value, int digits, TextPool& pool) {
  if (digits == 0 || !std::isfinite(value)) return text_of(value, pool);
  std::array<char, 40> text{};
  const int length = std::snprintf(text.data(), text.size(), "%.*g", std::min(digits, 17), value);
  const std::string_view made(text.data(), static_cast<std::size_t>(std::max(length, 0)));
  std::ranges::replace(text, ',', '.');  // of the locale
  return pool.add(made);
}

void use_lab(Table& table, const Values& lab, int digits) {
  std::array<Column, 3> columns;
  for (std::size_t row = 0; row < table.row_count(); ++row) {
    for (std::size_t i = 0; i < 3; ++i) {
      columns[i].push_back(number_text(lab.row(row)[i], digits, table.pool));
    }
  }
  set_columns(table, std::move(columns));
}

RefusalWords use_lab_of_xyz(Table& table, int digits) {
  const Roles roles = table.roles();
  if (!roles.has_xyz()) return "the chart has no XYZ to compute Lab of";
  const Conditions conditions = conditions_of(table.header);
  const Tristimulus white = white_of(conditions.illuminant, conditions.observer);
  const std::vector<double> x = table.numbers(roles.xyz[0]), y = table.numbers(roles.xyz[1]),
                            z = table.numbers(roles.xyz[2]);
  std::array<Column, 3> columns;
  for (std::size_t row = 0; row < x.size(); ++row) {
    const auto lab = vantor::ColorTypes::xyzToLab({x[row], y[row], z[row]}, white);
    columns[0].push_back(number_text(lab.l, digits, table.pool));
    columns[1].push_back(number_text(lab.a, digits, table.pool));
    columns[2].push_back(number_text(lab.b, digits, table.pool));
  }
  set_columns(table, std::move(columns));
  return {};
}

RefusalWords use_grid(Table& table, const WavelengthRange& range, int digits) {
  std::vector<SpectralField> spectra = table.roles().spectra;
  std::ranges::sort(spectra, {}, &SpectralField::nm);
  std::vector<double> wavelengths;
  std::vector<int> old_fields;
  for (const SpectralField& spectral : spectra) {
    wavelengths.push_back(spectral.nm);
    old_fields.push_back(spectral.field);
  }
  if (wavelengths.size() < 2) return "the chart has no spectra to average";
  if (RefusalWords refusal = check_range(range, wavelengths); !refusal.empty()) return refusal;
  std::vector<std::vector<double>> old_values;
  old_values.reserve(old_fields.size());
  for (const int field : old_fields) old_values.push_back(table.numbers(field));
  const double reach = std::max(range.step, widest_step(wavelengths));
  std::vector<std::pair<std::string, Column>> made;
  const auto bands =
      static_cast<int>(std::floor((range.end - range.start) / range.step + 1e-6)) + 1;
  for (int band = 0; band < bands; ++band) {
    const double nm = range.start + range.step * band;
    const Weights weights = weights_at(nm, wavelengths, reach);
    Column column;
    for (std::size_t row = 0; row < table.row_count(); ++row) {
      if (weights.size() == 1 && digits == 0) {  // the sample itself, digit for digit
        column.push_back(table.cell(row, old_fields[weights.front().first]));
        continue;
      }
      double sum = 0.0;
      for (const auto& [position, weight] : weights) sum += weight * old_values[position][row];
      column.push_back(number_text(sum, digits, table.pool));
    }
    made.emplace_back("SPECTRAL_NM" + text_of(nm), std::move(column));
  }
  table.remove_fields(old_fields);
  for (auto& [name, column] : made) table.add_field(std::move(name), std::move(column));
  return {};
}

}  // namespace measkit
