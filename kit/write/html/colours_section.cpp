#include "kit/write/html/colour_plane.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/sections.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kFewDots = 600;

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

// Only one of the two planes names its dots, which halves their size.
enum class Naming { labels, none };

template <typename Position>
void draw_patches(Plot& plot, const View& chart, Naming naming, Position position_of) {
  std::string dots;
  for (const PatchView& patch : chart.patches) {
    if (!patch.lab) continue;
    const auto [x, y] = position_of(*patch.lab);
    dots += plot.dot(x, y, patch.colour, naming == Naming::labels ? patch.label : "");
  }
  plot.draw_dots(dot_radius(chart.patches.size()), dots);
}

void draw_outline(Plot& plot, const View& chart) {
  const std::vector<NamedPatch>& corners = chart.figures.outline;
  if (corners.empty()) return;
  SvgPath outline;
  std::string dots;
  for (const NamedPatch& corner : corners) {
    const Triple lab = triple_at(chart.chart->merged.lab, corner.index);
    outline.add(plot.x(lab[1]), plot.y(lab[2]));
    dots += plot.dot(lab[1], lab[2], hex_colour(lab), html_text(corner.name, kLongName));
  }
  plot.draw("<path class=\"outline\" d=\"" + outline.data() + "z\"/>\n");
  plot.draw_dots(6.0, dots);
}

std::string hue_plot(const View& chart, Views charts, const ColourAxes& axes) {
  const double width = half_width(charts);
  Plot plot(square_plot(width), {axes.a, "a*"}, {axes.b, "b*"}, "a* and b* of " + chart.name);
  draw_opponent_lines(plot, axes);
  draw_patches(plot, chart, Naming::labels,
               [](const Triple& lab) { return std::pair(lab[1], lab[2]); });
  draw_outline(plot, chart);
  return figure_of("a*b*: hue and chroma", std::move(plot).finish());
}

std::string chroma_plot(const View& chart, Views charts, const ColourAxes& axes) {
  const double width = half_width(charts);
  Plot plot(square_plot(width), {axes.chroma, "C*<tspan class=\"sub\" dy=\"3\">ab</tspan>"},
            {axes.lightness, "L*"}, "Lightness L* over chroma C* of " + chart.name);
  const bool is_named = chart.patches.size() <= kFewDots;
  draw_patches(plot, chart, is_named ? Naming::labels : Naming::none,
               [](const Triple& lab) { return std::pair(chroma_of(lab), lab[0]); });
  return figure_of("L*C*: lightness over chroma", std::move(plot).finish());
}

std::string colours_of(const View& chart, Views charts, const ColourAxes& axes) {
  const bool has_lab = std::ranges::any_of(
      chart.patches, [](const PatchView& patch) { return patch.lab.has_value(); });
  if (!has_lab) return "";
  return "<div class=\"figures\">\n" + hue_plot(chart, charts, axes) +
         chroma_plot(chart, charts, axes) + "</div>\n";
}

}  // namespace

Section colours_section(Views charts) {
  const ColourAxes axes = axes_over(charts);
  return section_of(
      {"colours", "Colours",
       "CIELAB. Each patch is a dot in its own colour. The line joins solids and overprints, or "
       "primaries and secondaries, by hue.",
       "This chart has no Lab."},
      charts, [&](const View& chart) { return colours_of(chart, charts, axes); });
}

}  // namespace measkit::html
