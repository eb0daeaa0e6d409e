#include "kit/write/html/axis.h"
#include "kit/write/html/colour_plane.h"
#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/histogram.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kMostVectors = 2000;  // of all samples

struct VectorScales {
  ColourAxes axes;
  double factor = 1.0;   ///< by which differences are drawn longer
  std::size_t most = 0;  ///< vectors of a sample
  double width = 0.0;
};

std::span<const std::uint32_t> shown_of(const SampleView& sample, std::size_t most) {
  return std::span(sample.worst).first(std::min(sample.worst.size(), most));
}

bool is_drawable_pair(const ComparedColour& colour) {
  return !hex_of(colour.reference).empty() && !hex_of(colour.sample).empty();
}

// Differences are small beside the plane: most of them shall be as long as a few dots are wide.
double factor_for(SampleViews samples, double axis_length) {
  constexpr double kShareOfAxis = 0.04;
  std::vector<double> lengths;
  for (const SampleView& sample : samples) {
    for (const ComparedColour& colour : sample.comparison.colours) {
      if (!is_drawable_pair(colour)) continue;
      lengths.push_back(colour.of(Measure::de76));
    }
  }
  const double length = quantile_of(std::move(lengths), 0.9);
  double factor = 1.0;
  for (const double longer : {2.0, 5.0, 10.0, 20.0}) {
    if (longer * length <= kShareOfAxis * axis_length) factor = longer;
  }
  return length > 0.0 ? factor : 1.0;
}

VectorScales scales_for(SampleViews samples) {
  std::vector<Triple> colours;
  for (const SampleView& sample : samples) {
    for (const ComparedColour& colour : sample.comparison.colours) {
      if (!is_drawable_pair(colour)) continue;
      for (const Lab& lab : {colour.reference, colour.sample}) {
        colours.push_back({lab.l, lab.a, lab.b});
      }
    }
  }
  VectorScales scales;
  scales.width = half_width(samples.size());
  scales.axes = colour_axes_over(colours, scales.width);
  scales.factor = factor_for(samples, scales.axes.a.last - scales.axes.a.first);
  scales.most = kMostVectors / samples.size();
  return scales;
}

using Point = std::array<double, 2>;
Point hue_point(const Lab& lab) { return {lab.a, lab.b}; }
Point chroma_point(const Lab& lab) { return {chroma_of(lab), lab.l}; }

// Dots for the references and lines to the samples; the worst on top.
void draw_vectors(Plot& plot, const SampleView& sample, const VectorScales& scales,
                  Point (*point_of)(const Lab&)) {
  const std::span<const std::uint32_t> shown = shown_of(sample, scales.most);
  const double radius = 0.8 * dot_radius(shown.size());
  SvgPath lines;
  std::string dots;
  for (std::size_t i = shown.size(); i-- > 0;) {
    const ComparedColour& colour = sample.comparison.colours[shown[i]];
    if (!is_drawable_pair(colour)) continue;
    const Point from = point_of(colour.reference), to = point_of(colour.sample);
    dots += plot.dot(
        from[0], from[1], hex_of(colour.reference),
        safe_label(sample, colour) + " " + text_of(sample.formula(), colour.of(sample.formula())));
    lines.lift();
    lines.add(plot.x(from[0]), plot.y(from[1]));
    lines.add(plot.x(from[0] + scales.factor * (to[0] - from[0])),
              plot.y(from[1] + scales.factor * (to[1] - from[1])));
  }
  plot.draw_dots(radius, dots);
  plot.draw(plot.clipped("<path class=\"vectors " +
                         std::string(shown.size() <= 600 ? "some" : "many") + "\" d=\"" +
                         lines.data() + "\"/>\n"));
}

std::string vectors_of(const SampleView& sample, const VectorScales& scales) {
  if (sample.worst.empty()) return "";
  const double width = scales.width;
  Plot hue(square_plot(width), {scales.axes.a, "a*"}, {scales.axes.b, "b*"},
           "Differences in a* and b* of " + sample.name);
  draw_opponent_lines(hue, scales.axes);
  draw_vectors(hue, sample, scales, hue_point);
  Plot chroma(square_plot(width),
              {scales.axes.chroma, "C*<tspan class=\"sub\" dy=\"3\">ab</tspan>"},
              {scales.axes.lightness, "L*"}, "Differences in C* and L* of " + sample.name);
  draw_vectors(chroma, sample, scales, chroma_point);
  std::string html =
      "<div class=\"figures\">\n" + figure_of("a*b*: hue and chroma", std::move(hue).finish()) +
      figure_of("L*C*: lightness over chroma", std::move(chroma).finish()) + "</div>\n";
  if (sample.worst.size() > scales.most) {
    html += "<p class=\"note\">The " + grouped(scales.most) + " largest differences of " +
            grouped(sample.worst.size()) + ".</p>\n";
  }
  return html;
}

}  // namespace

Section vectors_section(SampleViews samples) {
  const VectorScales scales = scales_for(samples);
  std::string note = "A dot is a colour of the reference. A line leads from it to the sample";
  note += scales.factor > 1.0
              ? " and is drawn " + shortest(scales.factor) + " times as long as it is."
              : ".";
  return section_of({"vectors", "Directions", note, "No difference that can be drawn."}, samples,
                    [&](const SampleView& sample) { return vectors_of(sample, scales); });
}

}  // namespace measkit::html
