#include "kit/convert/ti3_form.h"

#include "kit/convert/computed_columns.h"
#include "kit/convert/text_form.h"
#include "kit/preflight/decimal_text.h"
#include "kit/preflight/plain_writer.h"
#include "kit/preflight/spectral_columns.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace measkit {
namespace {

void use_keyword(Table& table, std::string_view keyword, std::string value) {
  if (HeaderLine* const line = table.find(keyword)) {
    table.set_value(*line, std::move(value));
  } else {
    table.add_keyword(keyword, std::move(value));
  }
}

void use_scale_of_hundred_for_rgb(Table& table, double rgb_scale, int digits,
                                  std::vector<std::string>& left_behind) {
  if (table.roles().device_set != "RGB" || rgb_scale == 100.0) return;
  if (rgb_scale == 0.0) {
    left_behind.emplace_back("RGB stay as they are: no patch tells their scale.");
    return;
  }
  const std::vector<int> device = table.roles().device;
  for (const int field : device) {
    if (rgb_scale == 1.0) {
      table.move_point(field, 2);
      continue;
    }
    std::vector<std::string_view> texts;
    for (const double value : table.numbers(field)) {
      texts.push_back(number_text(value * 100.0 / rgb_scale, digits, table.pool));
    }
    table.set_texts(field, std::move(texts));
  }
}

// Fields of whole nanometres in one step.
bool is_regular(const std::vector<SpectralField>& spectra) {
  for (std::size_t i = 0; i < spectra.size(); ++i) {
    const double step = spectra[1].nm - spectra[0].nm;
    const bool is_next = i == 0 || std::abs(spectra[i].nm - spectra[i - 1].nm - step) < 1e-6;
    if (std::round(spectra[i].nm) != spectra[i].nm || !is_next) return false;
  }
  return true;
}

void use_spectra_in_percent(Table& table, std::vector<std::string>& left_behind) {
  const std::vector<SpectralField> spectra = table.roles().spectra;
  if (spectra.empty()) return;
  if (spectra.size() < 2 || !is_regular(spectra)) {
    std::vector<int> fields;
    fields.reserve(spectra.size());
    for (const SpectralField& spectral : spectra) fields.push_back(spectral.field);
    table.remove_fields(std::move(fields));
    left_behind.emplace_back(
        "Spectra: the form takes wavelengths of whole nanometres in one step.");
    return;
  }
  for (const SpectralField& spectral : spectra) {
    table.move_point(spectral.field, 2);
    table.rename(spectral.field, "SPEC_" + text_of(spectral.nm));
  }
  use_keyword(table, "SPECTRAL_BANDS", std::to_string(spectra.size()));
  use_keyword(table, "SPECTRAL_START_NM", text_of(spectra.front().nm));
  use_keyword(table, "SPECTRAL_END_NM", text_of(spectra.back().nm));
  use_keyword(table, "SPECTRAL_NORM", "100");
}

}  // namespace

std::string ti3_of(Table& table, double rgb_scale, const Values& lab, int digits,
                   std::vector<std::string>& left_behind, RefusalWords& refusal) {
  if (!table.roles().has_xyz() && !table.roles().has_lab()) {
    if (lab.empty()) {
      refusal = "the chart has neither XYZ nor Lab";
      return {};
    }
    use_lab(table, lab, digits);
  }
  const bool is_of_display = is_display(table);
  const std::string colour = table.roles().has_xyz() ? "XYZ" : "LAB";
  const std::string device = table.roles().device_set;
  use_scale_of_hundred_for_rgb(table, rgb_scale, digits, left_behind);
  table.identifier = "CTI3";
  use_keyword(table, "DEVICE_CLASS", is_of_display ? "DISPLAY" : "OUTPUT");
  use_keyword(table, "COLOR_REP", device.empty() ? colour : device + "_" + colour);
  if (is_of_display && table.find("NORMALIZED_TO_Y_100") == nullptr) {
    table.add_keyword("NORMALIZED_TO_Y_100", "NO");
  }
  use_spectra_in_percent(table, left_behind);
  declare_keywords(table, false);
  tell_comments_in_rows(table, left_behind);
  return plain_text(table);
}

}  // namespace measkit
