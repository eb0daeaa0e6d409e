#include "kit/preflight/loaded_numbers.h"

#include "kit/preflight/line_cursor.h"
#include "kit/preflight/numeric_rows.h"
#include "kit/preflight/plain_writer.h"
#include "kit/preflight/spectral_columns.h"
#include "measdata/cell_cutter.h"
#include "measdata/number_reader.h"
#include "measdata/tokenizer.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace measkit {
namespace {

using vantor::MeasData::Comma;

// The number of rows, when all cells that matter are numbers.
std::optional<std::size_t> count_rows_of_numbers(Table& table, const Roles& roles) {
  const std::vector<bool> is_numeric = numeric_fields(table, roles);
  const auto first = std::find(is_numeric.begin(), is_numeric.end(), true);
  if (std::find(first, is_numeric.end(), false) != is_numeric.end()) return std::nullopt;
  table.text_cells = static_cast<std::size_t>(first - is_numeric.begin());
  return count_numeric_rows(table.data, table.text_cells);
}

// A guess: emission spectra reach any number, fluorescent reflectances about 1.3.
bool seems_in_percent(const Table& table, const Roles& roles) {
  constexpr int kFirstRows = 32;
  constexpr double kSurelyPercent = 10.0;
  if (!roles.has_spectra() || table.content != Content::measurement || is_display(table)) {
    return false;
  }
  vantor::MeasData::CellCutter cutter;
  const vantor::MeasData::NumberReader reader;
  LineCursor lines(table.data);
  for (int row = 0; row < kFirstRows && lines.next(); ++row) {
    const auto cells = cutter.cut(table.data, lines.line(), vantor::MeasData::kBlankSeparated, '#');
    if (cells.size() != table.fields.size()) continue;
    for (const SpectralField& spectral : roles.spectra) {
      const std::string_view cell = cells[static_cast<std::size_t>(spectral.field)];
      if (reader.read(cell, Comma::is_decimal_point) > kSurelyPercent) return true;
    }
  }
  return false;
}

bool load_in_factors(Table& table, const Roles& roles, std::size_t rows, const char* name) {
  constexpr int kPercentToFactor = -2;
  table.guess.shifts.assign(table.fields.size(), 0);
  for (const SpectralField& spectral : roles.spectra) {
    table.guess.shifts[static_cast<std::size_t>(spectral.field)] = kPercentToFactor;
  }
  table.guess.text = plain_text_in_advance(table, table.guess.shifts, rows);
  LoadedText loaded(table.guess.text, name);
  if (!loaded.is_loaded() || num_patches(loaded.handle()) != static_cast<int>(rows)) return false;
  table.set_loaded(std::move(loaded), kPercentToFactor);
  return true;
}

}  // namespace

std::vector<bool> numeric_fields(const Table& table, const Roles& roles) {
  std::vector<bool> is_numeric(table.fields.size());
  const auto mark = [&is_numeric](const auto& fields) {
    for (const int field : fields) {
      if (field != kNoField) is_numeric[static_cast<std::size_t>(field)] = true;
    }
  };
  mark(roles.device);
  for (const FieldTriple& group : {roles.xyz, roles.lab, roles.lch, roles.xyy}) mark(group);
  mark(roles.densities);
  for (const SpectralField& spectral : roles.spectra) mark(std::array{spectral.field});
  return is_numeric;
}

void load_numbers(Table& table, const char* name) {
  const Roles roles = table.roles();
  const std::optional<std::size_t> rows = count_rows_of_numbers(table, roles);
  if (!rows || *rows == 0) return;
  if (seems_in_percent(table, roles) && load_in_factors(table, roles, *rows, name)) return;
  LoadedText loaded(table.text, name);
  if (loaded.is_loaded() && num_patches(loaded.handle()) > 0) table.set_loaded(std::move(loaded));
}

}  // namespace measkit
