#include "kit/write/html/view.h"

#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/view_rows.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <string_view>

namespace measkit::html {
namespace {

// Lab and its colour, as far as both can be shown.
struct Colour {
  std::optional<Triple> lab;
  std::string hex;
};

Colour colour_at(const Values& lab, std::size_t row) {
  if (lab.empty()) return {};
  const Triple values = triple_at(lab, row);
  if (!std::ranges::all_of(values, is_drawable)) return {};
  return {values, hex_colour(values)};
}

std::span<const double> row_at(const Values& values, std::size_t row) {
  return values.empty() ? std::span<const double>() : values.row(row);
}

void fill_findings(View& view, const Chart& chart) {
  std::vector<Finding> findings = chart.findings;
  std::ranges::stable_sort(findings, std::ranges::greater(), &Finding::severity);
  const std::size_t shown = std::min(findings.size(), kMostFindings);
  for (const Finding& finding : std::span(findings).first(shown)) {
    view.findings.push_back(
        {finding.severity, html_text(finding.sentence, kLongValue), finding.line});
  }
  view.more_findings = findings.size() - shown + chart.more_findings;
}

void fill_messages(View& view, const Chart& chart) {
  const std::size_t shown = std::min(chart.messages.size(), kMostMessages);
  for (const std::string& message : std::span(chart.messages).first(shown)) {
    view.messages.push_back(html_text(message, kLongValue));
  }
  view.more_messages = chart.messages.size() - shown;
}

// Identifier and, where there is more to tell, name and location.
std::string long_label_of(const Chart& chart, std::size_t patch) {
  const std::string first = patch_label(chart, patch);
  std::string label = html_text(first, kLongName);
  for (const Texts* texts : {&chart.names, &chart.locations}) {
    if (texts->empty() || (*texts)[patch].empty() || (*texts)[patch] == first) continue;
    label += " \u00B7 " + html_text((*texts)[patch], kLongName);
  }
  return label;
}

void fill_patches(View& view, const Chart& chart) {
  const std::size_t densities = std::min(chart.density_names.size(), kMostDensities);
  for (const std::string& name : std::span(chart.density_names).first(densities)) {
    view.density_names.push_back(html_text(name, kShortName));
  }
  const Values& spectra = chart.spectra.empty() ? chart.emission : chart.spectra;
  view.wavelengths = chart.spectra.empty() ? chart.emission_wavelengths : chart.wavelengths;
  const std::size_t shown = std::min(chart.patch_count, kMostPatches);
  view.patches.reserve(shown);
  for (std::size_t patch = 0; patch < shown; ++patch) {
    Colour colour = colour_at(chart.lab, patch);
    view.patches.push_back({long_label_of(chart, patch), std::move(colour.hex), colour.lab,
                            row_at(chart.device, patch), row_at(chart.densities, patch),
                            row_at(spectra, patch)});
  }
}

// "C" of "CMYK_C".
std::string letter_of(std::string_view field) {
  const std::size_t mark = field.rfind('_');
  const std::string_view end = field.substr(mark == std::string_view::npos ? 0 : mark + 1);
  const bool is_letter = end.size() == 1 && std::isalpha(static_cast<unsigned char>(end[0])) != 0;
  return is_letter ? std::string(end) : "";
}

// Paper for inks, black for lights.
std::optional<std::size_t> start_of_wedges(const Chart& chart) {
  if (!chart.is_rgb) return chart.paper_white;
  const auto black = std::ranges::find(chart.landmarks, LandmarkKind::black, &Landmark::kind);
  return black == chart.landmarks.end() ? std::nullopt : std::optional(black->index);
}

// The patch with all channels 0 and the steps of the wedge, evenly thinned when there are too many.
std::vector<WedgeStep> wedge_of(const Chart& chart, std::size_t channel) {
  std::vector<std::size_t> indices = chart.channels[channel].wedge;
  const std::optional<std::size_t> start = start_of_wedges(chart);
  if (start && !indices.empty()) indices.insert(indices.begin(), *start);
  const std::size_t stride = 1 + indices.size() / kMostWedgeSteps;
  std::vector<WedgeStep> steps;
  for (std::size_t i = 0; i < indices.size(); i += stride) {
    Colour colour = colour_at(chart.merged.lab, indices[i]);
    const double device = chart.merged.device.row(indices[i])[channel];
    if (!colour.lab || !is_drawable(device)) continue;
    steps.push_back({device, *colour.lab, std::move(colour.hex)});
  }
  return steps;
}

void fill_channels(View& view, const Chart& chart) {
  for (std::size_t c = 0; c < chart.channels.size(); ++c) {
    const Channel& channel = chart.channels[c];
    ChannelView shown = {html_text(channel.name, kLongName),
                         html_text(channel.name, kShortName),
                         letter_of(channel.field),
                         "",
                         channel.distinct_values,
                         wedge_of(chart, c)};
    if (!shown.wedge.empty()) shown.colour = shown.wedge.back().colour;
    view.channels.push_back(std::move(shown));
  }
  // Letters that only some channels have are those of "1 ... 9 A B C", not of inks.
  if (!std::ranges::any_of(view.channels, &std::string::empty, &ChannelView::letter)) return;
  for (ChannelView& channel : view.channels) channel.letter.clear();
}

void fill_landmarks(View& view, const Chart& chart) {
  for (const Landmark& landmark : chart.landmarks) {
    Colour colour = colour_at(chart.merged.lab, landmark.index);
    if (!colour.lab) continue;
    view.landmarks.push_back(
        {html_text(landmark.name, kLongName), std::move(colour.hex), *colour.lab});
  }
}

void fill_repeats(View& view, const Chart& chart) {
  const MergedPatches& merged = chart.merged;
  std::vector<std::size_t> repeated;
  for (std::size_t index = 0; index < merged.repeats.size(); ++index) {
    const Repeats& repeats = merged.repeats[index];
    if (repeats.count < 2 || !repeats.de_max || !is_drawable(*repeats.de_max)) continue;
    repeated.push_back(index);
    view.repeat_differences.push_back(*repeats.de_max);
  }
  const auto difference = [&merged](std::size_t i) { return *merged.repeats[i].de_max; };
  std::ranges::stable_sort(repeated, std::ranges::greater(), difference);
  for (const std::size_t index :
       std::span(repeated).first(std::min(repeated.size(), kMostRepeats))) {
    const Repeats& repeats = merged.repeats[index];
    view.worst_repeats.push_back({html_text(label_of(chart, index), kLongName),
                                  colour_at(merged.lab, index).hex, row_at(merged.device, index),
                                  repeats.count, repeats.de_mean, *repeats.de_max});
  }
}

}  // namespace

View view_of(const Chart& chart) {
  View view;
  view.name = html_text(chart.name, kLongValue);
  view.title = html_text(chart.title, kLongValue);
  view.chart = &chart;
  view.is_loaded = chart.is_loaded;
  fill_findings(view, chart);
  fill_messages(view, chart);
  if (!chart.is_loaded) return view;
  view.patch_count = chart.patch_count;
  view.merged_count = chart.merged.count;
  view.device_space = device_space_of(chart);
  view.is_rgb = chart.is_rgb;
  view.quantity = chart.quantity;
  fill_rows(view, chart);
  fill_patches(view, chart);
  fill_channels(view, chart);
  fill_landmarks(view, chart);
  fill_repeats(view, chart);
  view.figures = print_figures_of(chart);
  view.ramp = neutral_ramp_of(chart);
  view.display_white = display_white_of(chart);
  return view;
}

}  // namespace measkit::html
