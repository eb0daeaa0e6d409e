#include "kit/write/html/view_rows.h"

#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"
#include "kit/write/words.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace measkit::html {
namespace {

// Names in a line, as many as a page can show; safe to stand in HTML.
std::string list_of(std::span<const std::string> names) {
  const std::size_t shown = std::min(names.size(), kMostColumnNames);
  std::string text;
  for (const std::string& name : names.first(shown)) {
    text += (text.empty() ? "" : ", ") + html_text(name, kLongName);
  }
  if (shown < names.size()) text += " and " + grouped(names.size() - shown) + " more";
  return text;
}

// What the file itself holds, not what was computed from it.
std::string contents_of(const Chart& chart) {
  const bool has_lab = chart.lab_source == LabSource::file || !chart.own_lab.empty();
  const std::pair<bool, const char*> kinds[] = {{!chart.device.empty(), "device values"},
                                                {!chart.xyz.empty(), "XYZ"},
                                                {has_lab, "Lab"},
                                                {!chart.lch.empty(), "LCh"},
                                                {!chart.densities.empty(), "densities"},
                                                {!chart.spectra.empty(), "spectra"},
                                                {!chart.emission.empty(), "emission"},
                                                {chart.holds.ids, "identifiers"},
                                                {chart.holds.names, "names"},
                                                {chart.holds.locations, "locations"}};
  std::string text;
  for (const auto& [is_there, name] : kinds) {
    if (is_there) text += (text.empty() ? "" : ", ") + std::string(name);
  }
  return text.empty() ? "nothing that is known" : text;
}

std::string form_of(const Chart& chart) {
  if (chart.is_semicolon_table) return "semicolon table";
  const std::string identifier = html_text(chart.identifier, kLongName);
  return "measurement file" + (identifier.empty() ? "" : ", " + identifier);
}

std::string grid_of(std::span<const double> wavelengths) {
  std::string text = shortest(wavelengths.front());
  if (wavelengths.size() > 1) {
    text += " to " + shortest(wavelengths.back()) + " nm by " +
            shortest(wavelengths[1] - wavelengths[0]);
  }
  return text + " nm";
}

void fill_facts(View& view, const Chart& chart) {
  view.facts.push_back({"form", form_of(chart), ""});
  if (chart.content != Content::measurement) {
    view.facts.push_back({"content", std::string(word_of(chart.content)), ""});
  }
  view.facts.push_back({"holds", contents_of(chart), ""});
  if (!view.device_space.empty()) {
    const std::string scale =
        chart.full_scale > 0.0 ? ", full at " + shortest(chart.full_scale) : "";
    view.facts.push_back({"device", view.device_space + scale, ""});
  }
  if (!chart.wavelengths.empty()) {
    view.facts.push_back({std::string(word_of(chart.quantity)), grid_of(chart.wavelengths), ""});
  }
  if (!chart.emission_wavelengths.empty()) {
    view.facts.push_back({"emission", grid_of(chart.emission_wavelengths), ""});
  }
  if (!chart.density_names.empty()) {
    view.facts.push_back({"densities", list_of(chart.density_names), ""});
  }
  if (!chart.unused_columns.empty()) {
    view.facts.push_back({"unused columns", list_of(chart.unused_columns), ""});
  }
}

void fill_colour(View& view, const Chart& chart) {
  if (!chart.lab_sentence.empty()) {
    view.colour.push_back({"Lab", html_text(chart.lab_sentence, kLongValue), ""});
  }
  if (!chart.lab_difference) return;
  const LabDifference& difference = *chart.lab_difference;
  view.colour.push_back(
      {difference.is_of_xyz ? "the file's own XYZ" : "the file's own Lab",
       "differ by \u0394E*<sub>ab</sub> " + decimal(difference.median, 2) + " in the median, " +
           decimal(difference.percentile_95, 2) + " for 95 %, " + decimal(difference.largest, 2) +
           " at most (" + html_text(patch_label(chart, difference.largest_patch), kLongName) + ")",
       ""});
}

// The keyword that tells a condition and, where the page does not show them yet, its words.
std::string source_of(const Stated& stated, std::vector<std::string_view>& shown_words) {
  std::string text = html_text(stated.keyword, kLongName);
  const bool is_shown = std::ranges::find(shown_words, stated.words) != shown_words.end();
  if (stated.words.empty() || stated.words == stated.value || is_shown) return text;
  shown_words.emplace_back(stated.words);
  return text + (text.empty() ? "" : " ") + "\u201C" + html_text(stated.words, kSourceWords) +
         "\u201D";
}

void fill_conditions(View& view, const Chart& chart) {
  const MeasuringConditions& told = chart.conditions;
  const struct {
    const char* name;
    const std::optional<Stated>& stated;
    const char* unit;
  } conditions[] = {
      {"M condition", told.m, ""},           {"illuminant", told.illuminant, ""},
      {"observer", told.observer, "\u00B0"}, {"geometry", told.geometry, ""},
      {"filter", told.filter, ""},           {"polarization", told.polarization, ""},
      {"backing", told.backing, ""},         {"density status", told.density_status, ""}};
  std::vector<std::string_view> shown_words = {chart.instrument};
  for (const auto& condition : conditions) {
    if (!condition.stated) continue;
    const std::string& value = condition.stated->value;
    const bool is_number =
        !value.empty() && value.find_first_not_of("0123456789") == std::string::npos;
    view.conditions.push_back({condition.name,
                               html_text(value, kLongValue) + (is_number ? condition.unit : ""),
                               source_of(*condition.stated, shown_words)});
  }
}

// Those that decide whether two measurements can be compared.
void fill_badges(View& view, const Chart& chart) {
  const MeasuringConditions& told = chart.conditions;
  const std::pair<std::string_view, const std::optional<Stated>&> conditions[] = {
      {"M condition", told.m},
      {"illuminant", told.illuminant},
      {"observer", told.observer},
      {"backing", told.backing},
      {"filter", told.filter}};
  for (const auto& [name, stated] : conditions) {
    const bool is_angle = stated && name == "observer";
    view.badges.push_back(
        {name, stated ? html_text(stated->value, kLongName) + (is_angle ? "\u00B0" : "") : ""});
  }
}

std::vector<Row> rows_of(std::span<const Answer> answers) {
  std::vector<Row> rows;
  for (const Answer& answer : answers) {
    if (!answer.text) continue;
    rows.push_back({html_text(answer.question), html_text(*answer.text, kLongValue), ""});
  }
  return rows;
}

// Conditions have a table of their own.
void fill_instrument(View& view, const Chart& chart) {
  view.instrument_line = html_text(chart.instrument, kLongValue);
  for (Row& row : rows_of(chart.instrument_answers)) {
    if (std::ranges::find(view.conditions, row.name, &Row::name) != view.conditions.end()) continue;
    view.instrument.push_back(std::move(row));
  }
}

void fill_keywords(View& view, const Chart& chart) {
  const std::size_t shown = std::min(chart.keywords.size(), kMostKeywords);
  for (const Entry& keyword : std::span(chart.keywords).first(shown)) {
    view.keywords.push_back(
        {html_text(keyword.name, kLongValue), html_text(keyword.value, kLongValue), ""});
  }
  view.more_keywords = chart.keywords.size() - shown;
  view.empty_keywords = chart.empty_keywords;
}

}  // namespace

std::string device_space_of(const Chart& chart) {
  if (chart.device.empty()) return "";
  if (!chart.device_set.empty()) return html_text(chart.device_set, kLongName);
  const std::size_t channels = chart.channels.size();
  return grouped(channels) + (channels == 1 ? " channel" : " channels");
}

void fill_rows(View& view, const Chart& chart) {
  fill_facts(view, chart);
  fill_colour(view, chart);
  fill_badges(view, chart);
  fill_conditions(view, chart);
  fill_instrument(view, chart);
  view.sample = rows_of(chart.sample_answers);
  fill_keywords(view, chart);
}

}  // namespace measkit::html
