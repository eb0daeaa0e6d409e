#include "kit/preflight/spectral_columns.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/scale_evidence.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

namespace measkit {
namespace {

// `word` is in capitals, but values may be in small letters.
bool value_contains(const Table& table, std::string_view keyword, std::string_view word) {
  const HeaderLine* line = table.find(keyword);
  if (line == nullptr) return false;
  return std::search(line->value.begin(), line->value.end(), word.begin(), word.end(),
                     [](char c, char capital) {
                       return std::toupper(static_cast<unsigned char>(c)) == capital;
                     }) != line->value.end();
}

bool has_value(const Table& table, std::string_view keyword) {
  const HeaderLine* line = table.find(keyword);
  return line != nullptr && !line->value.empty();
}

using Words = std::initializer_list<std::string_view>;

bool states_in(const Table& table, Words keywords, Words words) {
  for (const std::string_view keyword : keywords) {
    for (const std::string_view word : words) {
      if (value_contains(table, keyword, word)) return true;
    }
  }
  return false;
}

bool states(const Table& table, Words words) {
  return states_in(table, {"QUANTITY", "MEAS_TYPE", "DEVICE_CLASS"}, words);
}

// Keywords of the measurement tell it, too, in one of these words.
bool states_transmittance(const Table& table) {
  const auto words = {std::string_view("TRANSMITTANCE"), std::string_view("TRANSMISSI")};
  return states(table, words) || states_in(table,
                                           {"MEASUREMENT_TYPE", "MEASUREMENT_MODE",
                                            "MEASUREMENT_SOURCE", "MEASUREMENT_GEOMETRY"},
                                           words);
}

// The wavelength that a column of wavelengths has in every row; empty when rows differ.
std::string constant_text(Table& table, int field) {
  const std::vector<double> values = table.numbers(field);
  const bool is_constant = !values.empty() && values.front() > 0.0 &&
                           std::all_of(values.begin(), values.end(),
                                       [&](double value) { return value == values.front(); });
  return is_constant ? text_of(values.front()) : std::string();
}

bool is_pair_value(std::string_view name) {
  return name == "SPECTRAL_DEC" || name == "SPECTRAL_PCT" || name == "SPECTRAL_VAL";
}

// Fields may begin like spectral ones without naming a wavelength.
bool are_wavelengths(const Roles& roles) {
  constexpr double kShortest = 100.0;  // nm
  return std::all_of(roles.spectra.begin(), roles.spectra.end(),
                     [](const SpectralField& spectral) { return spectral.nm >= kShortest; });
}

constexpr double kLargestPercent = 200.0;

// Numbers above 2 in spectra without any evidence by other colours. A few rows beyond every
// reflectance are failed measurements, and do not count.
struct Extent {
  double largest = 0.0;
  std::size_t rows = 0, rows_above_two = 0;
};

Extent extent_of(Table& table, const Roles& roles) {
  constexpr std::size_t kFew = 10;  // one in ten
  Extent extent;
  double beyond = 0.0;
  std::size_t rows_beyond = 0;
  SpectralRows spectra(table, roles);
  for (std::size_t row = 0; row < spectra.size(); ++row) {
    double largest = 0.0;
    for (const double value : spectra.row(row)) {
      largest = value > largest ? value : largest;  // false for not-a-number
    }
    ++extent.rows;
    if (largest > kLargestPercent) {
      beyond = std::max(beyond, largest);
      ++rows_beyond;
      continue;
    }
    extent.largest = std::max(extent.largest, largest);
    if (largest > 2.0) ++extent.rows_above_two;
  }
  if (kFew * rows_beyond > extent.rows) extent.largest = beyond;
  return extent;
}

enum class Scale { factor, percent, unclear, neither };

// The file's own colours decide where it has some; else how large the numbers are.
Scale scale_of(Table& table, const Roles& roles, const Extent& extent) {
  constexpr double kSurelyPercent = 10.0, kLargestFluorescence = 1.3;
  if (extent.largest <= 0.0 || std::isinf(extent.largest)) return Scale::factor;
  // Lab beside spectra takes cutting the cells, which is worth it only where there is a doubt.
  const bool is_stated = table.is_in_percent || table.find("SPECTRAL_NORM") != nullptr;
  const bool is_usual = extent.largest >= 0.2 && extent.largest <= kLargestFluorescence;
  if (is_usual && !roles.has_xyz() && !is_stated) return Scale::factor;
  switch (compare_spectra_with_colours(table, roles)) {
    case Agreement::as_factor:
      return Scale::factor;
    case Agreement::as_percent:
      return Scale::percent;
    case Agreement::none:
      break;
  }
  if (table.is_in_percent) return Scale::percent;
  if (const HeaderLine* norm = table.find("SPECTRAL_NORM")) {
    const double value = std::strtod(norm->value.c_str(), nullptr);
    if (value == 100.0) return Scale::percent;
    const bool are_surfaces = 2 * extent.rows_above_two < extent.rows;
    if (value == 1.0) return are_surfaces ? Scale::factor : Scale::neither;
  }
  if (extent.largest > kLargestPercent) return Scale::neither;
  if (extent.largest > kSurelyPercent || 2 * extent.rows_above_two >= extent.rows) {
    return extent.largest > 2.0 ? Scale::percent : Scale::factor;
  }
  return extent.largest > kLargestFluorescence ? Scale::unclear : Scale::factor;
}

}  // namespace

bool is_display(const Table& table) {
  return states(table, {"DISPLAY"}) || has_value(table, "LUMINANCE_XYZ_CDM2") ||
         has_value(table, "NORMALIZED_TO_Y_100");
}

void pair_up_spectra(Table& table) {
  std::vector<int> wavelength_fields;
  for (std::size_t i = 0; i + 1 < table.fields.size(); ++i) {
    if (table.fields[i].name == "SPECTRAL_NM" && is_pair_value(table.fields[i + 1].name)) {
      wavelength_fields.push_back(static_cast<int>(i));
    }
  }
  if (wavelength_fields.empty() || table.row_count() == 0) return;
  std::vector<std::string> names;
  for (const int field : wavelength_fields) {
    names.push_back("SPECTRAL_NM" + constant_text(table, field));
    if (names.back() == "SPECTRAL_NM") {
      table.findings.add(Severity::doubtful, "spectral-pairs",
                         "Wavelengths and values alternate, but the wavelengths of the rows "
                         "differ: left as they are.",
                         table.data_line);
      return;
    }
  }
  const auto first_value = static_cast<std::size_t>(wavelength_fields.front()) + 1;
  table.is_in_percent = table.fields[first_value].name == "SPECTRAL_PCT";
  for (std::size_t i = 0; i < names.size(); ++i) table.rename(wavelength_fields[i] + 1, names[i]);
  table.remove_fields(wavelength_fields);
  table.findings.add(Severity::repaired, "spectral-pairs",
                     "Wavelengths and values alternate: read as spectra of " +
                         std::to_string(names.size()) + " bands.",
                     table.data_line);
}

void name_quantity(Table& table) {
  const Roles roles = table.roles();
  const bool is_transmittance = table.identifier == "IT8.7/1" || states_transmittance(table);
  if (is_transmittance) {
    table.findings.add(Severity::note, "transmittance",
                       "The measured values are transmittances, not reflectances.");
  }
  if (!roles.has_spectra() || is_transmittance) return;
  const bool is_reflectance = states(table, {"REFLECT"});
  const bool is_emission =
      !is_reflectance && (table.content == Content::emission_spectra || is_display(table) ||
                          states(table, {"EMISSI", "AMBIENT", "RADIANCE"}) ||
                          value_contains(table, "SPECTRAL_NORM", "MW"));
  if (!is_emission) return;
  // Behind the fields of one prefix there may be others.
  constexpr int kMostPrefixes = 8;
  Roles rest = roles;
  for (int i = 0; i < kMostPrefixes && rest.has_spectra(); ++i, rest = table.roles()) {
    for (const SpectralField& spectral : rest.spectra) {
      table.rename(spectral.field, emission_field_name(spectral.nm));
    }
  }
  table.findings.add(Severity::repaired, "emission-spectra",
                     "The spectra are emissions, not reflectances: kept in fields " +
                         emission_field_name(roles.spectra.front().nm) + " to " +
                         emission_field_name(roles.spectra.back().nm) +
                         ", without Lab of a surface.",
                     table.data_line);
}

bool use_reflectance_factors(Table& table) {
  const Roles roles = table.roles();
  if (!roles.has_spectra() || table.row_count() == 0 || !are_wavelengths(roles)) return true;
  const Extent extent = extent_of(table, roles);
  const Scale scale = scale_of(table, roles, extent);
  if (scale == Scale::percent) {
    for (const SpectralField& spectral : roles.spectra) table.move_point(spectral.field, -2);
    table.findings.add(
        Severity::repaired, "spectra-in-percent",
        "Reflectances reach " + rounded(extent.largest) + ": taken as percent and divided by 100.",
        table.data_line);
    if (HeaderLine* norm = table.find("SPECTRAL_NORM")) table.set_value(*norm, "1");
  } else if (scale == Scale::neither) {
    for (const SpectralField& spectral : roles.spectra) {
      table.rename(spectral.field, "OTHER_" + text_of(spectral.nm) + "_NM");
    }
    table.findings.add(Severity::doubtful, "spectral-scale",
                       "Reflectances reach " + rounded(extent.largest) +
                           ", which are neither percent nor factors: kept in fields OTHER_" +
                           text_of(roles.spectra.front().nm) + "_NM and so on, without Lab.",
                       table.data_line);
  } else if (scale == Scale::unclear) {
    table.findings.add(Severity::doubtful, "spectral-scale",
                       "Reflectances reach " + rounded(extent.largest) +
                           ", which may be percent of a dark chart or factors of a fluorescent "
                           "one: left as they are, read as factors.",
                       table.data_line);
  }
  return scale != Scale::neither;
}

}  // namespace measkit
