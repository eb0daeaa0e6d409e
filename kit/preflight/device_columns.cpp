#include "kit/preflight/device_columns.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/loose_names.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <set>
#include <string>
#include <utility>

namespace measkit {
namespace {

constexpr std::size_t kMostChannels = 15;

std::string upper(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return result;
}

// Names that differ from those of the format in their letter case or by a common variation.
struct Alias {
  std::string_view upper_case, name;
};
constexpr std::array<Alias, 22> kAliases = {{{"SAMPLEID", "SAMPLE_ID"},
                                             {"SAMPLE_ID", "SAMPLE_ID"},
                                             {"SAMPLENAME", "SAMPLE_NAME"},
                                             {"SAMPLE_NAME", "SAMPLE_NAME"},
                                             {"SAMPLELOC", "SAMPLE_LOC"},
                                             {"SAMPLE_LOC", "SAMPLE_LOC"},
                                             {"LCH_L", "LAB_L"},
                                             {"LCH_C", "LAB_C"},
                                             {"LCH_H", "LAB_H"},
                                             {"LAB_CHROMA", "LAB_C"},
                                             {"LAB_HUE", "LAB_H"},
                                             {"GRAY_K", "GRAY"},
                                             {"GREY_K", "GRAY"},
                                             {"GRAY_W", "GRAY"},
                                             {"K_K", "GRAY"},
                                             {"GREY", "GRAY"},
                                             {"XYY_X", "XYY_X"},
                                             {"XYY_Y", "XYY_Y"},
                                             {"YXY_X", "XYY_X"},
                                             {"YXY_Y", "XYY_Y"},
                                             {"XYY_YY", "XYY_CAPY"},
                                             {"XYY_BIGY", "XYY_CAPY"}}};
constexpr std::array<std::string_view, 20> kFormatNames = {
    "XYZ_X",  "XYZ_Y", "XYZ_Z", "LAB_L", "LAB_A",  "LAB_B",   "LAB_C",
    "LAB_H",  "RGB_R", "RGB_G", "RGB_B", "CMYK_C", "CMYK_M",  "CMYK_Y",
    "CMYK_K", "CMY_C", "CMY_M", "CMY_Y", "GRAY",   "XYY_CAPY"};

// Names that the library knows in other letters, too.
bool is_known_spelling(std::string_view name) {
  static constexpr std::array<std::string_view, 6> kNames = {
      "SampleID", "SampleName", "Sample_Name", "Lab_L", "Lab_a", "Lab_b"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

std::string_view format_name_of(std::string_view name) {
  if (is_known_spelling(name)) return name;
  // Letter case alone tells y from Y here.
  if (name == "xyY_Y" || name == "Yxy_Y") return "XYY_CAPY";
  const std::string wanted = upper(name);
  for (const Alias& alias : kAliases) {
    if (alias.upper_case == wanted) return alias.name;
  }
  for (const std::string_view format_name : kFormatNames) {
    if (format_name == wanted) return format_name;
  }
  return name;
}

void use_format_spelling(Table& table) {
  std::string told;
  std::set<std::string> names;
  for (const Field& field : table.fields) names.insert(field.name);
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const std::string old(table.fields[i].name);
    const std::string_view name = format_name_of(old);
    if (name == old || !names.insert(std::string(name)).second) continue;
    told += (told.empty() ? "" : ", ") + old + " as " + std::string(name);
    table.rename(static_cast<int>(i), std::string(name));
  }
  if (!told.empty()) {
    table.findings.add(Severity::repaired, "field-names", "Field names are read as: " + told + ".",
                       table.data_line);
  }
}

struct InkName {
  char letter;
  std::string_view name;
};
constexpr std::array<InkName, 15> kInkNames = {{{'C', "Cyan"},
                                                {'M', "Magenta"},
                                                {'Y', "Yellow"},
                                                {'K', "Black"},
                                                {'O', "Orange"},
                                                {'G', "Green"},
                                                {'R', "Red"},
                                                {'B', "Blue"},
                                                {'V', "Violet"},
                                                {'W', "White"},
                                                {'c', "Light Cyan"},
                                                {'m', "Light Magenta"},
                                                {'y', "Light Yellow"},
                                                {'k', "Light Black"},
                                                {'N', "Black"}}};

bool is_ink_letter(char letter) {
  return std::any_of(kInkNames.begin(), kInkNames.end(),
                     [letter](const InkName& ink) { return ink.letter == letter; });
}

// The letters of a set such as CMYKOG, when fields CMYKOG_C, CMYKOG_M and so on exist for them all.
std::string_view letter_set_in(std::string_view field, const std::set<std::string>& names) {
  const std::size_t end = field.find('_');
  if (end == std::string_view::npos || end + 2 != field.size() || end > kMostChannels) return {};
  const std::string_view letters = field.substr(0, end);
  if (letters.size() < 2 || letters.find(field.back()) == std::string_view::npos) return {};
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const char letter = letters[i];
    if (letters.find(letter) != i || !(is_ink_letter(letter) || letters.starts_with("CMY"))) {
      return {};
    }
    if (!names.contains(std::string(letters) + "_" + letter)) return {};
  }
  return letters;
}

int position_of(const Table& table, const std::string& name) {
  const auto found = std::find_if(table.fields.begin(), table.fields.end(),
                                  [&name](const Field& field) { return field.name == name; });
  return static_cast<int>(found - table.fields.begin());
}

void name_inks(Table& table, const std::string& letters) {
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const std::string keyword = "INK_NAME_" + std::to_string(i + 1);
    if (table.find(keyword) != nullptr) continue;
    for (const InkName& ink : kInkNames) {
      if (ink.letter == letters[i]) table.add_keyword(keyword, std::string(ink.name));
    }
  }
}

void use_letter_set(Table& table, const std::string& letters) {
  const std::string set = std::string(1, "0123456789ABCDEF"[letters.size()]) + "CLR";
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const int field = position_of(table, letters + "_" + letters[i]);
    const std::string name = set + "_" + "0123456789ABCDEF"[i + 1];
    table.rename(field, name);
  }
  table.findings.add(Severity::repaired, "ink-letters",
                     "The fields " + letters + "_" + letters.front() + " to " + letters + "_" +
                         letters.back() + " hold " + std::to_string(letters.size()) +
                         " inks: read as " + set + " with the inks named by their letters.",
                     table.data_line);
  name_inks(table, letters);
}

// iRGB_R, iRGB_G and iRGB_B are RGB values for a printer.
bool use_inverse_rgb(Table& table, const std::set<std::string>& names) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kNames = {
      {{"iRGB_R", "RGB_R"}, {"iRGB_G", "RGB_G"}, {"iRGB_B", "RGB_B"}}};
  for (const auto& [from, to] : kNames) {
    if (!names.contains(std::string(from))) return false;
  }
  for (const auto& [from, to] : kNames) {
    table.rename(position_of(table, std::string(from)), std::string(to));
  }
  table.findings.add(Severity::repaired, "field-names",
                     "The fields iRGB_R, iRGB_G and iRGB_B are "
                     "read as RGB_R, RGB_G and RGB_B.",
                     table.data_line);
  return true;
}

// The colour of each row as three numbers of any kind that grow with the light.
std::vector<std::array<double, 3>> colours_of(Table& table, const Roles& roles) {
  std::vector<std::array<double, 3>> colours(table.row_count());
  const auto take = [&](const FieldTriple& fields) {
    for (std::size_t i = 0; i < 3; ++i) {
      const std::vector<double> values = table.numbers(fields[i]);
      for (std::size_t row = 0; row < values.size(); ++row) colours[row][i] = values[row];
    }
  };
  if (roles.has_xyz()) {
    take(roles.xyz);
  } else if (roles.has_spectra()) {
    SpectralRows spectra(table, roles);
    const std::size_t last = roles.spectra.size() - 1;
    for (std::size_t row = 0; row < spectra.size(); ++row) {
      const auto values = spectra.row(row);
      colours[row] = {values[last / 4], values[last / 2], values[3 * last / 4]};
    }
  } else if (roles.has_lab()) {
    take(roles.lab);
    // a* and b* may be negative: an offset makes their ratios tell little, so differences do.
    for (auto& colour : colours) {
      for (double& value : colour) value = std::exp(value / 50.0);
    }
  } else {
    colours.clear();
  }
  return colours;
}

// True when some component of the colours differs by more than half between two rows.
bool do_differ(const std::vector<std::array<double, 3>>& colours) {
  constexpr double kRatio = 1.5;
  for (std::size_t i = 0; i < 3; ++i) {
    double smallest = HUGE_VAL, largest = -HUGE_VAL;
    for (const auto& colour : colours) {
      if (std::isnan(colour[i])) continue;
      smallest = std::min(smallest, colour[i]);
      largest = std::max(largest, colour[i]);
    }
    if (largest > kRatio * smallest && largest > 0.0) return true;
  }
  return false;
}

bool are_all_equal(const std::vector<double>& values) {
  return std::all_of(values.begin(), values.end(),
                     [&values](double value) { return value == values.front(); });
}

}  // namespace

double full_scale(double largest_value) {
  for (const double full : {1.0, 100.0, 255.0}) {
    if (std::abs(largest_value - full) < 1e-6 * full) return full;
  }
  return 0.0;
}

void use_format_names(Table& table) {
  use_format_spelling(table);
  use_loose_names(table);
  if (table.roles().has_device()) return;
  std::set<std::string> names;
  for (const Field& field : table.fields) names.insert(field.name);
  if (use_inverse_rgb(table, names)) return;
  for (const std::string& name : names) {
    const std::string letters(letter_set_in(name, names));
    if (!letters.empty()) {
      use_letter_set(table, letters);
      return;
    }
  }
}

void set_placeholders_aside(Table& table) {
  constexpr std::size_t kLeastRows = 3;
  const Roles roles = table.roles();
  if (!roles.has_device() || table.row_count() < kLeastRows) return;
  std::string values;
  for (const int field : roles.device) {
    const std::vector<double> numbers = table.numbers(field);
    if (!are_all_equal(numbers)) return;
    values += (values.empty() ? "" : " ") + rounded(numbers.front());
  }
  if (!do_differ(colours_of(table, roles))) return;
  for (const int field : roles.device) {
    table.rename(field, "PLACEHOLDER_" + table.fields[static_cast<std::size_t>(field)].name);
  }
  table.findings.add(Severity::repaired, "device-placeholders",
                     "All " + std::to_string(table.row_count()) + " rows have the device values " +
                         values + " although their colours differ: taken as no device values.",
                     table.data_line);
}

}  // namespace measkit
