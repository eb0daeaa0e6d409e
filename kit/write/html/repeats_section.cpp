#include "kit/write/html/histogram.h"
#include "kit/write/html/histogram_plot.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <limits>
#include <span>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr const char* kDifference = "\u0394E*<sub>ab</sub>";

HistogramAxes axes_over(Views charts) {
  std::vector<std::span<const double>> differences;
  for (const View& chart : charts) differences.emplace_back(chart.repeat_differences);
  return histogram_axes(differences, std::numeric_limits<double>::infinity());
}

std::string plot_of(const View& chart, Views charts, const HistogramAxes& axes) {
  return figure_of("Largest " + std::string(kDifference) + " between two readings of a patch",
                   histogram_plot(chart.repeat_differences, axes, half_width(charts),
                                  {"\u0394E*<tspan class=\"sub\" dy=\"3\">ab</tspan>", "patches",
                                   "Histogram of the repeats of " + chart.name}));
}

std::string worst_table(const View& chart) {
  std::string html =
      "<table>\n<caption>Patches that repeat worst</caption>\n<thead><tr><th scope=\"col\">Patch"
      "</th><th scope=\"col\" class=\"number\">Readings</th><th scope=\"col\" "
      "class=\"number\">Mean " +
      std::string(kDifference) +
      "</th><th scope=\"col\" class=\"number\">Largest</th></tr></thead>\n"
      "<tbody>\n";
  for (const RepeatedPatch& patch : chart.worst_repeats) {
    const std::string device = device_text(chart, patch.device);
    html += "<tr><th scope=\"row\">" + colour_field(patch.colour) + patch.label +
            (device.empty() ? "" : " <small>" + device + "</small>") +
            "</th><td class=\"number\">" + std::to_string(patch.count) +
            "</td><td class=\"number\">" + decimal(patch.de_mean, 2) +
            "</td><td class=\"number\">" + decimal(patch.de_max, 2) + "</td></tr>\n";
  }
  return html + "</tbody>\n</table>\n";
}

std::string repeats_of(const View& chart, Views charts, const HistogramAxes& axes) {
  const std::vector<double>& differences = chart.repeat_differences;
  if (differences.empty()) return "";
  const std::string count = grouped(differences.size()) +
                            (differences.size() == 1 ? " patch was" : " patches were") +
                            " measured more than once";
  if (chart.worst_repeats.front().de_max == 0.0) {
    return "<p>" + count + ", always with the same result.</p>\n";
  }
  constexpr std::size_t kFewest = 5;  // a histogram of fewer says less than their table
  if (differences.size() < kFewest) return "<p>" + count + ".</p>\n" + worst_table(chart);
  return "<p>" + count + ". Largest " + kDifference + " between their readings: median " +
         decimal(quantile_of(differences, 0.5), 2) + ", 95th percentile " +
         decimal(quantile_of(differences, 0.95), 2) + ", maximum " +
         decimal(quantile_of(differences, 1.0), 2) + ".</p>\n<div class=\"figures\">\n" +
         plot_of(chart, charts, axes) + worst_table(chart) + "</div>\n";
}

}  // namespace

Section repeats_section(Views charts) {
  const HistogramAxes axes = axes_over(charts);
  return section_of(
      {"repeats", "Repeats", "Patches with the same device values are readings of one colour.",
       "No patch was measured more than once, or no colour to compare."},
      charts, [&](const View& chart) { return repeats_of(chart, charts, axes); });
}

}  // namespace measkit::html
