#include "kit/write/html/colour_plane.h"
#include "kit/write/html/sections.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

double chroma_of(const Triple& lab) { return std::hypot(lab[1], lab[2]); }

ColourAxes axes_over(Views charts) {
  std::vector<Triple> colours;
  for (const View& chart : charts) {
    for (const PatchView& patch : chart.patches) {
      if (patch.lab) colours.push_back(*patch.lab);
    }
  }
  return colour_axes_over(colours, half_width(charts));
}

template <typename Position>
void draw_patches(Plot& plot, const View& chart, Position position_of) {
  const double radius = dot_radius(chart.patches.size());
  plot.draw("<g class=\"dots\">\n");
  for (const PatchView& patch : chart.patches) {
    if (!patch.lab) continue;
    const auto [x, y] = position_of(*patch.lab);
    plot.draw_dot(x, y, radius, patch.colour, patch.label);
  }
  plot.draw("</g>\n");
}

std::string hue_plot(const View& chart, Views charts, const Axis& axis) {
  // The margins leave a square.
  const double width = half_width(charts);
  Plot plot({width, width + 16.0}, {axis, "a*"}, {axis, "b*"}, "a* and b* of " + chart.name);
  draw_opponent_lines(plot, axis);
  draw_patches(plot, chart, [](const Triple& lab) { return std::pair(lab[1], lab[2]); });
  return figure_of("a*b*: hue and chroma", std::move(plot).finish());
}

std::string chroma_plot(const View& chart, Views charts, const ColourAxes& axes) {
  const double width = half_width(charts);
  Plot plot({width, width + 16.0}, {axes.chroma, "C*<tspan class=\"sub\" dy=\"3\">ab</tspan>"},
            {axes.lightness, "L*"}, "Lightness L* over chroma C* of " + chart.name);
  draw_patches(plot, chart, [](const Triple& lab) { return std::pair(chroma_of(lab), lab[0]); });
  return figure_of("L*C*: lightness over chroma", std::move(plot).finish());
}

std::string colours_of(const View& chart, Views charts, const ColourAxes& axes) {
  const bool has_lab = std::ranges::any_of(
      chart.patches, [](const PatchView& patch) { return patch.lab.has_value(); });
  if (!has_lab) return "";
  return "<div class=\"figures\">\n" + hue_plot(chart, charts, axes.opponent) +
         chroma_plot(chart, charts, axes) + "</div>\n";
}

}  // namespace

Section colours_section(Views charts) {
  const ColourAxes axes = axes_over(charts);
  return section_of({"colours", "Colours", "CIELAB. Each patch is a dot in its own colour.",
                     "This chart has no Lab."},
                    charts, [&](const View& chart) { return colours_of(chart, charts, axes); });
}

}  // namespace measkit::html
