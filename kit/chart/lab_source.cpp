// Where Lab comes from, and how the file's own Lab agree with it.
#include "colortypes/conversions.h"
#include "kit/chart/gather.h"
#include "kit/colour/adaptation.h"
#include "kit/preflight/lab_columns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

namespace measkit {
namespace {

// The library says so when the wavelengths fit none of its tables.
bool lacks_weighting_table(const Chart& chart) {
  return std::any_of(chart.messages.begin(), chart.messages.end(), [](const std::string& message) {
    return message.find("no weighting table") != std::string::npos;
  });
}

LabSource source_of_spectra(const Chart& chart) {
  if (!lacks_weighting_table(chart)) return LabSource::weighting_table;
  return chart.holds.lab ? LabSource::file : LabSource::integration;
}

bool is_of_file(const Table& table, int field) {
  return table.fields[static_cast<std::size_t>(field)].source != kNoField;
}

// Fields that no column of the file stands behind were added by the preflight.
LabSource source_of_columns(const Chart& chart, const Table& table, const Roles& roles) {
  if (!roles.has_lab()) return LabSource::file;
  const bool is_lab_of_file = std::all_of(roles.lab.begin(), roles.lab.end(),
                                          [&](int field) { return is_of_file(table, field); });
  if (is_lab_of_file) return LabSource::file;
  if (chart.is_display) return LabSource::display;
  return roles.has_lch() ? LabSource::lch : LabSource::xyz;
}

std::string sentence_of_finding(const Table* table, std::string_view code) {
  if (table == nullptr) return {};
  for (const Finding& finding : table->findings.list()) {
    if (finding.code == code) return finding.sentence;
  }
  return {};
}

std::string conditions_in_words(const MeasuringConditions& conditions) {
  std::string words;
  if (conditions.illuminant) words = conditions.illuminant->value;
  if (conditions.observer) {
    words += (words.empty() ? "" : " and ") + conditions.observer->value + " degrees";
  }
  return words;
}

// Why a chart has no Lab.
std::string reason_for_none(const Chart& chart) {
  if (chart.content == Content::correction_matrix) return "A correction matrix has no Lab.";
  if (chart.content == Content::calibration_curves) return "Calibration curves have no Lab.";
  if (chart.is_display && !chart.xyz.empty()) {
    return "There is no Lab, since no patch tells the white of the display.";
  }
  if (!chart.emission.empty() || chart.quantity == Quantity::emission) {
    return "There is no Lab, since emission spectra do not describe a surface.";
  }
  if (!chart.xyz.empty()) return "There is no Lab: the file holds XYZ alone.";
  return "There is no Lab, since the file holds no colours.";
}

std::string sentence_of(const Chart& chart, const Table* table) {
  const std::string words = conditions_in_words(chart.conditions);
  switch (chart.lab_source) {
    case LabSource::weighting_table:
      return "Lab is computed from the spectra with the weights of ASTM E308, Table 5, for D50 and "
             "2 degrees.";
    case LabSource::integration:
      return "Lab is computed from the spectra with the CIE 1931 colour-matching functions, for "
             "D50 and 2 degrees. No weighting table fits the wavelengths.";
    case LabSource::file:
      return "Lab is the file's own" + (words.empty() ? words : ", for " + words) +
             (chart.holds.spectra ? ". No weighting table fits the wavelengths of the spectra."
                                  : ".");
    case LabSource::xyz:
    case LabSource::lch:
      return sentence_of_finding(table, "lab-added");
    case LabSource::display:
      return sentence_of_finding(table, "lab-of-display");
    case LabSource::none:
      break;
  }
  return reason_for_none(chart);
}

Triple lab_of(const Triple& xyz, const Tristimulus& white) {
  const auto lab = vantor::ColorTypes::xyzToLab({xyz[0], xyz[1], xyz[2]}, white);
  return {lab.l, lab.a, lab.b};
}

double delta_e(const Triple& a, const Triple& b) {
  return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

// The value that `share` of the sorted values do not exceed.
double percentile(std::vector<double>& values, double share) {
  const double rank = std::ceil(share * static_cast<double>(values.size()));
  const auto at = values.begin() + static_cast<std::ptrdiff_t>(std::max(rank, 1.0)) - 1;
  std::nth_element(values.begin(), at, values.end());
  return *at;
}

std::string two_decimals(double value) {
  std::array<char, 400> text{};  // the longest double has 309 digits before the point
  const int length = std::snprintf(text.data(), text.size(), "%.2f", value);
  return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

void tell_difference(const Chart& chart, Findings& findings) {
  constexpr double kWorthTelling = 1.0;  // Delta E*ab
  const LabDifference& difference = *chart.lab_difference;
  if (difference.largest <= kWorthTelling) return;
  std::string sentence =
      std::string("The ") +
      (difference.is_of_xyz ? "Lab of the file's own XYZ" : "file's own Lab") +
      " differ from the Lab of its spectra by " + two_decimals(difference.median) +
      " Delta E*ab in the median, " + two_decimals(difference.percentile_95) + " for 95 % and " +
      two_decimals(difference.largest) + " at most (" +
      patch_label(chart, difference.largest_patch) + "). The Lab of the spectra are shown.";
  const MeasuringConditions& conditions = chart.conditions;
  const bool is_for_others = (conditions.observer && conditions.observer->value != "2") ||
                             (conditions.illuminant && conditions.illuminant->value != "D50");
  if (is_for_others) {
    sentence += " They are for D50 and 2 degrees; the file's own are for " +
                conditions_in_words(conditions) + ".";
  }
  const bool is_doubtful = difference.median > kWorthTelling && !is_for_others;
  findings.add(is_doubtful ? Severity::doubtful : Severity::note, "own-lab-differs",
               std::move(sentence));
}

}  // namespace

void gather_lab_source(Chart& chart, const Table* table, const Roles& roles) {
  const bool has_lab = !chart.lab.empty();
  if (has_lab && chart.holds.spectra) {
    chart.lab_source = source_of_spectra(chart);
  } else if (has_lab) {
    chart.lab_source = table == nullptr ? LabSource::file : source_of_columns(chart, *table, roles);
  }
  chart.lab_sentence = sentence_of(chart, table);
}

void gather_lab_difference(Chart& chart, Findings& findings) {
  const bool is_from_spectra =
      chart.lab_source == LabSource::weighting_table || chart.lab_source == LabSource::integration;
  if (!is_from_spectra || (chart.own_lab.empty() && chart.xyz.empty())) return;
  LabDifference difference;
  difference.is_of_xyz = chart.own_lab.empty();
  const Tristimulus white = white_of(chart.conditions.illuminant, chart.conditions.observer);
  std::vector<double> distances;
  for (std::size_t patch = 0; patch < chart.patch_count; ++patch) {
    const Triple own = difference.is_of_xyz ? lab_of(triple_at(chart.xyz, patch), white)
                                            : triple_at(chart.own_lab, patch);
    const double distance = delta_e(own, triple_at(chart.lab, patch));
    if (!std::isfinite(distance)) continue;
    if (distances.empty() || distance > difference.largest) {
      difference.largest = distance;
      difference.largest_patch = patch;
    }
    distances.push_back(distance);
  }
  if (distances.empty()) return;
  difference.median = percentile(distances, 0.5);
  difference.percentile_95 = percentile(distances, 0.95);
  chart.lab_difference = difference;
  tell_difference(chart, findings);
}

}  // namespace measkit
