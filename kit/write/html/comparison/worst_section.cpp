#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"

#include <algorithm>
#include <string>

namespace measkit::html {
namespace {

std::size_t most_for(SampleViews samples) { return samples.size() <= 2 ? 12 : 6; }

constexpr Measure kComponents[] = {Measure::dl, Measure::da, Measure::db, Measure::dc, Measure::dh};

std::string entry(const std::string& name, const std::string& value) {
  return "<dt>" + name + "</dt><dd>" + value + "</dd>";
}

std::string device_of(const SampleView& sample, const ComparedColour& colour) {
  const Chart& chart = *sample.comparison.reference;
  if (chart.device.empty()) return "";
  std::string text;
  for (const double value : chart.device.row(colour.reference_patch)) {
    text += (text.empty() ? "" : " ") + shortest(value);
  }
  return text;
}

std::string card_of(const SampleView& sample, const ComparedColour& colour) {
  const ComparisonOptions& options = sample.comparison.options;
  std::string components;
  for (const Measure measure : kComponents) {
    components += "<span>" + html_symbol(measure, options) + " " +
                  text_of(measure, colour.of(measure)) + "</span> ";
  }
  const std::string device = device_of(sample, colour);
  std::string html = "<li>" + swatch_pair(colour) + "<p><strong>" + safe_label(sample, colour) +
                     "</strong> <strong>" + html_symbol(sample.formula(), options) + " " +
                     text_of(sample.formula(), colour.of(sample.formula())) +
                     "</strong></p>\n<dl class=\"entries\">";
  if (!device.empty()) html += entry("device", device);
  html += entry("reference", lab_text(colour.reference)) +
          entry("sample", lab_text(colour.sample)) + entry("difference", components);
  if (is_drawable(colour.of(Measure::de00_a))) {
    html += entry("light",
                  "<span>" + html_symbol(Measure::de00_a, options) + " " +
                      text_of(Measure::de00_a, colour.of(Measure::de00_a)) + "</span> <span>F11 " +
                      text_of(Measure::de00_f11, colour.of(Measure::de00_f11)) + "</span>");
  }
  return html + "</dl></li>\n";
}

std::string cards_of(const SampleView& sample, std::size_t most) {
  const auto worst = sample.worst_that_differ(most);
  if (worst.empty()) return "";
  std::string html = "<ol class=\"pairs\">\n";
  for (const std::uint32_t position : worst) {
    html += card_of(sample, sample.comparison.colours[position]);
  }
  return html + "</ol>\n";
}

}  // namespace

Section worst_section(SampleViews samples) {
  return section_of({"worst", "Largest differences",
                     "Reference at the left, sample at the right. Colours are sRGB, those outside "
                     "its gamut clipped.",
                     "No colour differs."},
                    samples,
                    [&](const SampleView& sample) { return cards_of(sample, most_for(samples)); });
}

}  // namespace measkit::html
