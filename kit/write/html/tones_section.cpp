#include "kit/write/html/axis.h"
#include "kit/write/html/limits.h"
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

constexpr std::size_t kMostRows = 24;

// By reflectance, which only the inks of CMYK and CMY have, and by ISO 20654.
enum class Kind { reflectance, spot };

std::optional<double> increase_of(const InkStep& step, Kind kind) {
  const std::optional<double> tone =
      kind == Kind::spot ? std::optional(step.tone.spot) : step.tone.value;
  if (!tone || !is_drawable(*tone)) return std::nullopt;
  return *tone - step.nominal;
}

// Steps that are not of one wedge can have any tone value; no press is that far out.
double within_limits(double increase) { return std::clamp(increase, -50.0, 100.0); }

Axis increase_axis(Views charts, Kind kind) {
  Extent increases;
  increases.add(0.0);
  increases.add(10.0);
  for (const View& chart : charts) {
    for (const InkCurve& curve : chart.figures.curves) {
      for (const InkStep& step : curve.steps) {
        const auto increase = increase_of(step, kind);
        if (increase) increases.add(within_limits(*increase));
      }
    }
  }
  return axis_over(increases.low(), increases.high(), 6);
}

std::string colour_of(const View& chart, const InkStep& step) {
  return hex_colour(triple_at(chart.chart->merged.lab, step.index));
}

void draw_curve(Plot& plot, const View& chart, const InkCurve& curve, Kind kind,
                const Axis& increases) {
  SvgPath path;
  path.add(plot.x(0.0), plot.y(0.0));
  std::string dots;
  const std::size_t stride = 1 + (curve.steps.size() - 1) / kMostWedgeSteps;
  for (std::size_t i = (curve.steps.size() - 1) % stride; i < curve.steps.size(); i += stride) {
    const InkStep& step = curve.steps[i];
    const auto increase = increase_of(step, kind);
    if (!increase) continue;
    path.add(plot.x(step.nominal), plot.y(within_limits(*increase)));
    if (*increase < increases.first || *increase > increases.last) continue;
    dots += plot.dot(step.nominal, *increase, colour_of(chart, step),
                     chart.channels[curve.channel].name + " " + shortest(step.nominal) +
                         " %: " + decimal(*increase, 1));
  }
  plot.draw(plot.clipped(
      "<path class=\"halo\" d=\"" + path.data() + "\"/>\n<path class=\"wedge\" stroke=\"" +
      colour_of(chart, curve.steps.back()) + "\" d=\"" + path.data() + "\"/>\n"));
  plot.draw_dots(3.5, dots);
}

bool has_curves(const View& chart, Kind kind) {
  return std::ranges::any_of(chart.figures.curves, [kind](const InkCurve& curve) {
    return increase_of(curve.steps.back(), kind).has_value();
  });
}

std::string plot_of(const View& chart, Views charts, Kind kind, const Axis& increases) {
  if (!has_curves(chart, kind)) return "";
  const std::string name =
      kind == Kind::spot ? "Spot colour tone value, ISO 20654" : "Tone value by reflectance";
  Plot plot({half_width(charts), 320.0}, {{0.0, 100.0, 20.0}, "nominal tone value, %"},
            {increases, "increase, %"}, name + ": increase for the inks of " + chart.name);
  SvgPath straight;
  straight.add(plot.left(), plot.y(0.0));
  straight.add(plot.right(), plot.y(0.0));
  plot.draw("<path class=\"zero\" d=\"" + straight.data() + "\"/>\n");
  for (const InkCurve& curve : chart.figures.curves)
    draw_curve(plot, chart, curve, kind, increases);
  return figure_of(name, std::move(plot).finish());
}

std::string legend_of(const View& chart) {
  std::string html = "<ul class=\"legend\" aria-label=\"Inks\">\n";
  for (const InkCurve& curve : chart.figures.curves) {
    html += "<li>" + colour_field(colour_of(chart, curve.steps.back())) +
            chart.channels[curve.channel].name + "</li>\n";
  }
  return html + "</ul>\n";
}

// The nominal values of all inks: all of them or, where they are many, evenly thinned.
struct Nominals {
  std::vector<double> shown;
  std::size_t count = 0;
};

Nominals nominal_values(const View& chart) {
  std::vector<double> values;
  for (const InkCurve& curve : chart.figures.curves) {
    for (const InkStep& step : curve.steps)
      values.push_back(std::round(step.nominal * 100.0) / 100.0);
  }
  std::ranges::sort(values);
  values.erase(std::unique(values.begin(), values.end()), values.end());
  const std::size_t stride = 1 + (values.size() - 1) / kMostRows;
  Nominals nominals = {{}, values.size()};
  for (std::size_t i = (values.size() - 1) % stride; i < values.size(); i += stride) {
    nominals.shown.push_back(values[i]);
  }
  return nominals;
}

const InkStep* step_at(const InkCurve& curve, double nominal) {
  constexpr double kRounding = 0.006;
  const auto step = std::ranges::find_if(curve.steps, [nominal](const InkStep& one) {
    return std::abs(one.nominal - nominal) <= kRounding;
  });
  return step == curve.steps.end() ? nullptr : &*step;
}

std::string cell(std::optional<double> value) {
  return "<td class=\"number\">" + (value ? decimal(*value, 1) : "") + "</td>";
}

std::string cells_of(const InkStep* step, Kind kind) {
  if (step == nullptr) return cell(std::nullopt) + cell(std::nullopt);
  return cell(kind == Kind::spot ? std::optional(step->tone.spot) : step->tone.value) +
         cell(increase_of(*step, kind));
}

std::string table_of(const View& chart) {
  std::string inks, columns;
  for (const InkCurve& curve : chart.figures.curves) {
    const bool has_value = curve.steps.back().tone.value.has_value();
    inks += "<th scope=\"colgroup\" class=\"number\" colspan=\"" +
            std::string(has_value ? "4" : "2") + "\">" + chart.channels[curve.channel].name +
            "</th>";
    for (const char* kind : {"Tone", "Spot"}) {
      if (!has_value && kind == std::string_view("Tone")) continue;
      columns += "<th scope=\"col\" class=\"number\">" + std::string(kind) +
                 "</th><th scope=\"col\" class=\"number\">Increase</th>";
    }
  }
  std::string html =
      "<table class=\"compact\">\n<thead><tr><th scope=\"col\" rowspan=\"2\">Nominal, "
      "%</th>" +
      inks + "</tr>\n<tr>" + columns + "</tr></thead>\n<tbody>\n";
  const Nominals nominals = nominal_values(chart);
  for (const double nominal : nominals.shown) {
    html += "<tr><th scope=\"row\">" + shortest(nominal) + "</th>";
    for (const InkCurve& curve : chart.figures.curves) {
      const InkStep* const step = step_at(curve, nominal);
      if (curve.steps.back().tone.value) html += cells_of(step, Kind::reflectance);
      html += cells_of(step, Kind::spot);
    }
    html += "</tr>\n";
  }
  html = scrolling("Tone values of " + chart.name, html + "</tbody>\n</table>\n");
  if (nominals.shown.size() < nominals.count) {
    html += "<p class=\"note\">" + grouped(nominals.shown.size()) + " of " +
            grouped(nominals.count) + " steps.</p>\n";
  }
  return html;
}

struct Axes {
  Axis reflectance, spot;
};

std::string tones_of(const View& chart, Views charts, const Axes& axes) {
  if (chart.figures.curves.empty()) return "";
  const std::string table = table_of(chart);
  return "<div class=\"figures\">\n" + plot_of(chart, charts, Kind::reflectance, axes.reflectance) +
         plot_of(chart, charts, Kind::spot, axes.spot) + "</div>\n" + legend_of(chart) +
         (charts.size() == 1
              ? table
              : "<details>\n<summary>Tone values</summary>\n" + table + "</details>\n");
}

}  // namespace

Section tones_section(Views charts) {
  const Axes axes = {increase_axis(charts, Kind::reflectance), increase_axis(charts, Kind::spot)};
  const bool has_reflectance = std::ranges::any_of(
      charts, [](const View& chart) { return has_curves(chart, Kind::reflectance); });
  std::string note =
      "The increase is what a tone value exceeds its nominal value by: a straight line lies at 0. "
      "Spot colour tone values follow ISO 20654.";
  if (has_reflectance) {
    note +=
        " Tone values by reflectance are those of X for cyan, Y for magenta, black and grey, "
        "and Z for yellow.";
  }
  return section_of(
      {"tones", "Tone values", note, "No ink with a solid on a chart with its paper."}, charts,
      [&](const View& chart) { return tones_of(chart, charts, axes); });
}

}  // namespace measkit::html
