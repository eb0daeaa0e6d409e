#include "kit/write/html/axis.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/sections.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace measkit::html {
namespace {

struct ColourAxes {
  Axis opponent;  // a* and b*, as far to either side
  Axis chroma, lightness;
};

double chroma_of(const Triple& lab) { return std::hypot(lab[1], lab[2]); }

ColourAxes axes_over(Views charts) {
  Extent opponents;
  Extent chromas;
  Extent lightnesses;
  opponents.add(20.0);
  chromas.add(0.0);
  lightnesses.add(0.0);
  lightnesses.add(100.0);
  for (const View& chart : charts) {
    for (const PatchView& patch : chart.patches) {
      if (!patch.lab) continue;
      const Triple& lab = *patch.lab;
      opponents.add(std::abs(lab[1]));
      opponents.add(std::abs(lab[2]));
      chromas.add(chroma_of(lab));
      lightnesses.add(lab[0]);
    }
  }
  const int steps = half_width(charts) < 450.0 ? 6 : 12;
  return {axis_over(-opponents.high(), opponents.high(), steps), axis_over(0.0, chromas.high(), 7),
          axis_over(lightnesses.low(), lightnesses.high(), 10)};
}

double dot_radius(std::size_t patches) {
  if (patches <= 100) return 5.0;
  if (patches <= 600) return 3.6;
  return patches <= 2000 ? 2.6 : 2.0;
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

// The axes of the hues that oppose each other, and rings of equal chroma.
void draw_opponent_lines(Plot& plot, const Axis& axis) {
  SvgPath cross;
  cross.add(plot.left(), plot.y(0.0));
  cross.add(plot.right(), plot.y(0.0));
  cross.lift();
  cross.add(plot.x(0.0), plot.top());
  cross.add(plot.x(0.0), plot.bottom());
  plot.draw("<path class=\"zero\" d=\"" + cross.data() + "\"/>\n");
  const double ring = axis.last / axis.step > 4.0 ? 2.0 * axis.step : axis.step;
  for (int i = 1; i * ring <= axis.last; ++i) {
    plot.draw("<circle class=\"zero\" cx=\"" + coordinate(plot.x(0.0)) + "\" cy=\"" +
              coordinate(plot.y(0.0)) + "\" r=\"" + coordinate(plot.x(i * ring) - plot.x(0.0)) +
              "\"/>\n");
  }
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
