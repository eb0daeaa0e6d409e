#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/histogram_plot.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

struct Mark {
  double percent;
  double Figures::*difference;
  const char* name;
};
constexpr Mark kMarks[] = {{50.0, &Figures::median, "median"}, {95.0, &Figures::p95, "95 %"}};

// A mark's text stands where the curve is not: below it at the right or, where there is no room,
// above it at the left.
void draw_mark(Plot& plot, const Mark& mark, double difference) {
  const std::string text = mark.name + (" " + decimal(difference, 2));
  const bool is_left = plot.x(difference) > plot.left() + 0.75 * (plot.right() - plot.left());
  plot.draw_dots(4.0, plot.dot(difference, mark.percent, "#2e2e2e", text));
  plot.draw("<text class=\"mark" + std::string(is_left ? " y" : "") + "\" x=\"" +
            coordinate(plot.x(difference) + (is_left ? -8.0 : 8.0)) + "\" y=\"" +
            coordinate(plot.y(mark.percent) + (is_left ? 2.0 : 8.0)) + "\">" + text + "</text>\n");
}

std::string curve_plot(const SampleView& sample, const HistogramAxes& axes, double width) {
  constexpr std::size_t kMostSteps = 400;
  const Axis percent = {0.0, 100.0, 20.0};
  Plot plot({width, 320.0},
            {axes.difference, svg_symbol(sample.formula(), sample.comparison.options)},
            {percent, "colours, %"}, "Share of colours by difference of " + sample.name);
  std::vector<double> sorted = sample.differences;
  std::ranges::sort(sorted);
  const std::size_t stride = 1 + sorted.size() / kMostSteps;
  SvgPath path;
  path.add(plot.x(0.0), plot.y(0.0));
  double share = 0.0;
  for (std::size_t i = 0; i < sorted.size(); i += stride) {
    const std::size_t last = std::min(i + stride, sorted.size()) - 1;
    if (sorted[last] > axes.difference.last) break;
    if (stride == 1) path.add(plot.x(sorted[last]), plot.y(share));
    share = 100.0 * static_cast<double>(last + 1) / static_cast<double>(sorted.size());
    path.add(plot.x(sorted[last]), plot.y(share));
  }
  path.add(plot.x(axes.difference.last), plot.y(share));
  plot.draw("<path class=\"curve\" d=\"" + path.data() + "\"/>\n<g class=\"dots\">\n");
  const Figures& figures = sample.comparison.of(ColourGroup::all).of(sample.formula());
  for (const Mark& mark : kMarks) {
    const double difference = figures.*mark.difference;
    if (difference <= axes.difference.last) draw_mark(plot, mark, difference);
  }
  plot.draw("</g>\n");
  return std::move(plot).finish();
}

std::string distribution_of(const SampleView& sample, const HistogramAxes& axes, double width) {
  if (sample.differences.empty()) return "";
  const std::string symbol = svg_symbol(sample.formula(), sample.comparison.options);
  return "<div class=\"figures\">\n" +
         figure_of("How many colours differ how much",
                   histogram_plot(sample.differences, axes, width,
                                  {symbol, "colours", "Differences of " + sample.name})) +
         figure_of("The share of colours that differ at most so much",
                   curve_plot(sample, axes, width)) +
         "</div>\n" + beyond_note(sample, axes.difference.last);
}

}  // namespace

Section distribution_section(SampleViews samples) {
  std::vector<std::span<const double>> differences;
  for (const SampleView& sample : samples) differences.emplace_back(sample.differences);
  const HistogramAxes axes = histogram_axes(differences, scale_end(samples));
  const double width = half_width(samples.size());
  return section_of({"distribution", "Distribution", "", "No difference that can be drawn."},
                    samples,
                    [&](const SampleView& sample) { return distribution_of(sample, axes, width); });
}

}  // namespace measkit::html
