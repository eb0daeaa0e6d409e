#include "kit/write/html/axis.h"
#include "kit/write/html/histogram.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/sections.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr int kMostClasses = 24;
constexpr const char* kDifference = "\u0394E*<sub>ab</sub>";

struct RepeatAxes {
  Axis difference;
  double class_width;
  Axis count;

  std::vector<std::size_t> histogram_for(const View& chart) const {
    const double classes = (difference.last - difference.first) / class_width;
    return histogram_of(chart.repeat_differences, class_width,
                        static_cast<std::size_t>(std::lround(classes)));
  }
};

RepeatAxes axes_over(Views charts) {
  Extent differences;
  differences.add(0.0);
  for (const View& chart : charts) {
    for (const double difference : chart.repeat_differences) differences.add(difference);
  }
  const double high = differences.high() > 0.0 ? differences.high() : 1.0;
  const Axis classes = axis_over(0.0, high, kMostClasses);
  RepeatAxes axes = {axis_over(0.0, high, 6), classes.step, {}};
  axes.difference.last = classes.last;
  Extent counts;
  counts.add(4.0);  // ticks at whole patches
  for (const View& chart : charts) {
    for (const std::size_t count : axes.histogram_for(chart)) {
      counts.add(static_cast<double>(count));
    }
  }
  axes.count = axis_over(0.0, counts.high(), 5);
  return axes;
}

std::string histogram_plot(const View& chart, Views charts, const RepeatAxes& axes) {
  Plot plot({half_width(charts), 320.0},
            {axes.difference, "\u0394E*<tspan class=\"sub\" dy=\"3\">ab</tspan>"},
            {axes.count, "patches"}, "Histogram of the repeats of " + chart.name);
  plot.draw("<g class=\"bars\">\n");
  double low = 0.0;
  for (const std::size_t count : axes.histogram_for(chart)) {
    const double high = low + axes.class_width;
    if (count > 0) {
      const double top = plot.y(static_cast<double>(count));
      plot.draw("<rect x=\"" + coordinate(plot.x(low) + 0.5) + "\" y=\"" + coordinate(top) +
                "\" width=\"" + coordinate(plot.x(high) - plot.x(low) - 1.0) + "\" height=\"" +
                coordinate(plot.bottom() - top) + "\"><title>" + shortest(low) + " to " +
                shortest(high) + ": " + grouped(count) + "</title></rect>\n");
    }
    low = high;
  }
  plot.draw("</g>\n");
  return figure_of("Largest " + std::string(kDifference) + " between two readings of a patch",
                   std::move(plot).finish());
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

std::string repeats_of(const View& chart, Views charts, const RepeatAxes& axes) {
  const std::vector<double>& differences = chart.repeat_differences;
  if (differences.empty()) return "";
  const std::string count = grouped(differences.size()) +
                            (differences.size() == 1 ? " patch was" : " patches were") +
                            " measured more than once";
  if (chart.worst_repeats.front().de_max == 0.0) {
    return "<p>" + count + ", always with the same result.</p>\n";
  }
  return "<p>" + count + ". Largest " + kDifference + " between their readings: median " +
         decimal(quantile_of(differences, 0.5), 2) + ", 95th percentile " +
         decimal(quantile_of(differences, 0.95), 2) + ", maximum " +
         decimal(quantile_of(differences, 1.0), 2) + ".</p>\n<div class=\"figures\">\n" +
         histogram_plot(chart, charts, axes) + worst_table(chart) + "</div>\n";
}

}  // namespace

Section repeats_section(Views charts) {
  const RepeatAxes axes = axes_over(charts);
  return section_of(
      {"repeats", "Repeats", "Patches with the same device values are readings of one colour.",
       "No patch was measured more than once, or no colour to compare."},
      charts, [&](const View& chart) { return repeats_of(chart, charts, axes); });
}

}  // namespace measkit::html
