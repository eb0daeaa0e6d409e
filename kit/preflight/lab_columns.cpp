#include "kit/preflight/lab_columns.h"

#include "colortypes/conversions.h"
#include "colortypes/spectral/illuminants.h"
#include "kit/colour/adaptation.h"
#include "kit/preflight/conditions.h"
#include "kit/preflight/decimal_text.h"
#include "kit/preflight/device_columns.h"
#include "kit/preflight/scale_evidence.h"
#include "kit/preflight/spectral_columns.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <functional>
#include <numbers>
#include <optional>
#include <string>
#include <utility>

namespace measkit {
namespace {

using vantor::ColorTypes::kD50White;
using vantor::ColorTypes::Lab;
using vantor::ColorTypes::xyzToLab;

double largest_of(const std::vector<double>& values) {
  double largest = 0.0;
  for (const double value : values) largest = value > largest ? value : largest;
  return largest;
}

// Rows whose device values mean no ink or full light, or whose name says paper or white.
std::vector<std::size_t> white_rows(Table& table, const Roles& roles) {
  std::vector<std::size_t> rows;
  if (roles.has_device()) {
    std::vector<std::vector<double>> columns;
    double largest = 0.0;
    for (const int field : roles.device) {
      columns.push_back(table.numbers(field));
      largest = std::max(largest, largest_of(columns.back()));
    }
    const double white = roles.device_set == "RGB" ? full_scale(largest) : 0.0;
    if (roles.device_set == "RGB" && white == 0.0) return rows;
    for (std::size_t row = 0; row < table.row_count(); ++row) {
      const bool is_white = std::all_of(columns.begin(), columns.end(), [&](const auto& column) {
        return std::abs(column[row] - white) <= 1e-6 * white;
      });
      if (is_white) rows.push_back(row);
    }
    return rows;
  }
  const int named = roles.name != kNoField ? roles.name : roles.id;
  if (named == kNoField) return rows;
  for (std::size_t row = 0; row < table.row_count(); ++row) {
    std::string name(table.cell(row, named));
    for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (name.find("white") != std::string::npos || name.find("paper") != std::string::npos) {
      rows.push_back(row);
    }
  }
  return rows;
}

// Y of the same rows by what the file says elsewhere.
std::vector<double> expected_luminance(Table& table, const Roles& roles) {
  if (roles.has_spectra()) return luminance_from_spectra(table, roles);
  return roles.has_lab() ? luminance_from_lab(table, roles) : std::vector<double>();
}

enum class XyzScale { one, hundred, unclear };

XyzScale xyz_scale_of(Table& table, const Roles& roles, const std::vector<double>& y,
                      double largest) {
  constexpr double kLargestOfOne = 2.0;  // fluorescent samples pass 1
  if (largest > kLargestOfOne || largest <= 0.0) return XyzScale::hundred;
  const double ratio = median_ratio(y, expected_luminance(table, roles));
  if (ratio > 0.003 && ratio < 0.03) return XyzScale::one;
  if (ratio > 0.3 && ratio < 3.0) return XyzScale::hundred;
  constexpr double kDarkestWhite = 0.2;
  double white = 0.0;
  for (const std::size_t row : white_rows(table, roles)) white = std::max(white, y[row]);
  if (white >= kDarkestWhite && white >= 0.8 * largest) return XyzScale::one;
  // So many surfaces are never all darker than L* 9, and not one of them lighter.
  constexpr std::size_t kManyRows = 20;
  if (y.size() >= kManyRows && largest >= 0.5 && largest <= 1.2) return XyzScale::one;
  return XyzScale::unclear;
}

std::string triple_text(const Tristimulus& xyz) {
  return rounded(xyz.x) + " " + rounded(xyz.y) + " " + rounded(xyz.z);
}

using Columns = std::array<std::vector<double>, 3>;

Columns columns_of(Table& table, const FieldTriple& fields) {
  return {table.numbers(fields[0]), table.numbers(fields[1]), table.numbers(fields[2])};
}

using LabOf = std::function<Lab(const Tristimulus&)>;

void append_lab(Table& table, const Columns& columns, const LabOf& lab_of) {
  std::array<std::vector<std::string_view>, 3> texts;
  for (std::size_t row = 0; row < columns[0].size(); ++row) {
    const Lab lab = lab_of({columns[0][row], columns[1][row], columns[2][row]});
    texts[0].push_back(text_of(lab.l, table.pool));
    texts[1].push_back(text_of(lab.a, table.pool));
    texts[2].push_back(text_of(lab.b, table.pool));
  }
  const std::array<const char*, 3> names = {"LAB_L", "LAB_A", "LAB_B"};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto names_now = table.field_names();
    const auto found = std::find(names_now.begin(), names_now.end(), names[i]);
    if (found == names_now.end()) {
      table.add_field(names[i], std::move(texts[i]));
    } else {  // part of an incomplete Lab or of LCh
      table.set_texts(static_cast<int>(found - names_now.begin()), std::move(texts[i]));
    }
  }
}

// XYZ relative to a display's white, seen as on paper under D50.
void add_display_lab(Table& table, const Roles& roles) {
  const Columns xyz = columns_of(table, roles.xyz);
  const std::vector<std::size_t> rows =
      roles.device_set == "RGB" ? white_rows(table, roles) : std::vector<std::size_t>();
  Tristimulus white = {0.0, 0.0, 0.0};
  for (const std::size_t row : rows) {
    white.x += xyz[0][row] / static_cast<double>(rows.size());
    white.y += xyz[1][row] / static_cast<double>(rows.size());
    white.z += xyz[2][row] / static_cast<double>(rows.size());
  }
  if (!(white.x > 0.0 && white.y > 0.0 && white.z > 0.0)) {
    table.findings.add(Severity::doubtful, "display-without-white",
                       "No patch of this display has all RGB at full: without its white there is "
                       "no Lab.",
                       table.data_line);
    return;
  }
  const double scale = 100.0 / white.y;
  const Tristimulus scaled_white = {white.x * scale, 100.0, white.z * scale};
  append_lab(table, xyz, [&](const Tristimulus& c) {
    const Tristimulus scaled = {c.x * scale, c.y * scale, c.z * scale};
    return xyzToLab(adapt_bradford(scaled, scaled_white, kD50White), kD50White);
  });
  table.findings.add(Severity::repaired, "lab-of-display",
                     "Lab is added: XYZ relative to the display's white, " +
                         triple_text(scaled_white) + ", adapted to D50 by Bradford.",
                     table.data_line);
}

void add_lab_from_xyz(Table& table, const Columns& xyz) {
  const Conditions conditions = conditions_of(table.header);
  const Tristimulus white = white_of(conditions.illuminant, conditions.observer);
  append_lab(table, xyz, [&white](const Tristimulus& c) { return xyzToLab(c, white); });
  const bool is_d50 = white.x == kD50White.x && white.z == kD50White.z;
  std::string words = is_d50 ? "white D50" : "the white of the light that the file states";
  table.findings.add(
      Severity::repaired, "lab-added",
      "Lab is added, computed from XYZ with " + words + ", " + triple_text(white) + ".",
      table.data_line);
}

// Chromaticities with Y.
Columns xyz_of(const Columns& xyy) {
  Columns xyz = xyy;
  for (std::size_t row = 0; row < xyy[0].size(); ++row) {
    const double x = xyy[0][row], y = xyy[1][row], luminance = xyy[2][row];
    const bool is_black = y == 0.0;
    xyz[0][row] = is_black ? 0.0 : x * luminance / y;
    xyz[1][row] = luminance;
    xyz[2][row] = is_black ? 0.0 : (1.0 - x - y) * luminance / y;
  }
  return xyz;
}

void add_lab_from_lch(Table& table, const Roles& roles) {
  const Columns lch = columns_of(table, roles.lch);
  std::array<std::vector<std::string_view>, 2> texts;
  for (std::size_t row = 0; row < lch[0].size(); ++row) {
    const double angle = lch[2][row] * std::numbers::pi / 180.0;
    texts[0].push_back(text_of(lch[1][row] * std::cos(angle), table.pool));
    texts[1].push_back(text_of(lch[1][row] * std::sin(angle), table.pool));
  }
  table.add_field("LAB_A", std::move(texts[0]));
  table.add_field("LAB_B", std::move(texts[1]));
  table.findings.add(Severity::repaired, "lab-added", "Lab is added, computed from L*, C* and h.",
                     table.data_line);
}

// A print has the Y of its spectra, whatever the light; the numbers of a display differ by a factor
// of their units.
bool are_spectra_of_light(Table& table, const Roles& roles, const std::vector<double>& y) {
  constexpr double kMostReflected = 1.3;
  SpectralRows spectra(table, roles);
  double largest = 0.0;
  for (std::size_t row = 0; row < spectra.size(); ++row) {
    for (const double value : spectra.row(row)) largest = std::max(largest, value);
  }
  if (largest <= kMostReflected) return false;
  const double ratio = median_ratio(luminance_from_spectra(table, roles), y);
  const double decades = ratio > 0.0 ? std::log10(ratio) / 2.0 : 0.0;
  constexpr double kTolerance = 0.07;  // of a factor of 100: 1.38
  return std::abs(decades - std::round(decades)) > kTolerance;
}

}  // namespace

Tristimulus white_of(const std::optional<Stated>& stated_illuminant,
                     const std::optional<Stated>& stated_observer) {
  namespace Spectral = vantor::ColorTypes::Spectral;
  using Spectral::Illuminant;
  using Spectral::Observer;
  static constexpr std::array<std::pair<std::string_view, Illuminant>, 9> kLights = {
      {{"A", Illuminant::A},
       {"C", Illuminant::C},
       {"D50", Illuminant::D50},
       {"D55", Illuminant::D55},
       {"D65", Illuminant::D65},
       {"D75", Illuminant::D75},
       {"F2", Illuminant::F2},
       {"F7", Illuminant::F7},
       {"F11", Illuminant::F11}}};
  const bool is_ten_degrees = stated_observer && stated_observer->value == "10";
  const Observer observer = is_ten_degrees ? Observer::Cie1964_10deg : Observer::Cie1931_2deg;
  std::string_view light = "D50";
  if (stated_illuminant) light = stated_illuminant->value;
  for (const auto& [name, illuminant] : kLights) {
    if (name == light) {
      return Spectral::tableWhitePoint(illuminant, observer, Spectral::TableType::Table5);
    }
  }
  return kD50White;
}

bool use_scale_of_hundred(Table& table) {
  const Roles roles = table.roles();
  if (!roles.has_xyz() || table.content != Content::measurement || is_display(table)) return true;
  const std::vector<double> y = table.numbers(roles.xyz[1]);
  const double largest = largest_of(y);
  constexpr double kMostReflected = 200.0;
  if (largest > kMostReflected && !roles.has_lab() && !roles.has_spectra()) {
    table.findings.add(Severity::doubtful, "xyz-scale",
                       "Y reaches " + rounded(largest) +
                           ", more than surfaces reflect, and the white is not known: no Lab.",
                       table.data_line);
    return false;
  }
  switch (xyz_scale_of(table, roles, y, largest)) {
    case XyzScale::hundred:
      return true;
    case XyzScale::unclear:
      table.findings.add(Severity::doubtful, "xyz-scale",
                         "Y reaches " + rounded(largest) +
                             ", which may be on a scale of 1 or of 100, and nothing in the file "
                             "decides: left as it is.",
                         table.data_line);
      return false;
    case XyzScale::one:
      break;
  }
  for (const int field : roles.xyz) table.move_point(field, 2);
  table.findings.add(Severity::repaired, "xyz-scale",
                     "Y reaches " + rounded(largest) +
                         ": XYZ is taken to be on a scale of 1 and multiplied by 100.",
                     table.data_line);
  return true;
}

void recognise_display(Table& table) {
  constexpr double kLightestPaper = 120.0;  // Y, with fluorescence
  const bool is_without_class = table.content == Content::measurement &&
                                table.find("DEVICE_CLASS") == nullptr && !is_display(table);
  if (!is_without_class) return;
  const Roles roles = table.roles();
  if (roles.device_set != "RGB" || !roles.has_xyz() || roles.has_lab()) return;
  const std::vector<double> y = table.numbers(roles.xyz[1]);
  const double largest = largest_of(y);
  const bool is_light = largest > kLightestPaper && !std::isinf(largest);
  if (!is_light && !(roles.has_spectra() && are_spectra_of_light(table, roles, y))) return;
  table.add_keyword("DEVICE_CLASS", "DISPLAY");
  table.findings.add(Severity::repaired, "display-by-numbers",
                     is_light ? "Y of RGB patches reaches " + rounded(largest) +
                                    ", more than paper reflects: taken as a display."
                              : "The spectra of RGB patches are no reflectances, which their XYZ "
                                "prove: taken as a display.",
                     table.data_line);
}

void add_lab(Table& table, bool is_scale_known) {
  const Roles roles = table.roles();
  const bool is_measured = table.content == Content::measurement && table.row_count() != 0;
  if (!is_measured || roles.has_lab() || roles.has_spectra()) return;
  if (roles.has_xyz() && is_display(table)) {
    add_display_lab(table, roles);
  } else if (roles.has_lch()) {
    add_lab_from_lch(table, roles);
  } else if (roles.has_xyz() && is_scale_known) {
    add_lab_from_xyz(table, columns_of(table, roles.xyz));
  }
}

void use_xyz_of_chromaticities(Table& table) {
  const Roles roles = table.roles();
  if (!roles.has_xyy() || roles.has_xyz() || table.content != Content::measurement) return;
  const Columns xyz = xyz_of(columns_of(table, roles.xyy));
  const std::array<const char*, 3> names = {"XYZ_X", "XYZ_Y", "XYZ_Z"};
  for (std::size_t i = 0; i < 3; ++i) {
    std::vector<std::string_view> texts;
    for (const double value : xyz[i]) texts.push_back(text_of(value, table.pool));
    table.add_field(names[i], std::move(texts));
  }
  table.findings.add(Severity::repaired, "xyz-added", "XYZ is added, computed from x, y and Y.",
                     table.data_line);
}

}  // namespace measkit
