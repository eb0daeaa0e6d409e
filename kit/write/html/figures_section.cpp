#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <cmath>
#include <string>

namespace measkit::html {
namespace {

std::string colour_row(const View& chart, const std::string& name, std::size_t index) {
  const MergedPatches& merged = chart.chart->merged;
  const Triple lab = triple_at(merged.lab, index);
  const double chroma = std::hypot(lab[1], lab[2]);
  std::string html = "<tr><th scope=\"row\">" + colour_field(hex_colour(lab)) + name + "</th><td>" +
                     html_text(label_of(*chart.chart, index), kLongName) +
                     "</td><td class=\"number\">" + device_text(chart, merged.device.row(index)) +
                     "</td>";
  for (const double value : {lab[0], lab[1], lab[2], chroma, hue_angle(lab)}) {
    html += "<td class=\"number\">" + decimal(value, 1) + "</td>";
  }
  return html + "</tr>\n";
}

std::string colour_table(const View& chart) {
  std::string rows;
  for (const Landmark& landmark : chart.chart->landmarks) {
    const bool is_measured =
        !chart.chart->merged.lab.empty() &&
        !hex_colour(triple_at(chart.chart->merged.lab, landmark.index)).empty();
    if (is_measured) rows += colour_row(chart, html_text(landmark.name, kLongName), landmark.index);
  }
  for (const NamedPatch& overprint : chart.figures.overprints) {
    rows += colour_row(chart, html_text(overprint.name, kLongName), overprint.index);
  }
  if (chart.figures.darkest) rows += colour_row(chart, "Darkest patch", *chart.figures.darkest);
  if (rows.empty()) return "";
  std::string html =
      "<table class=\"compact\">\n<thead><tr><th scope=\"col\">Colour</th><th "
      "scope=\"col\" class=\"number\">Patch</th><th scope=\"col\" class=\"number\">Device</th>";
  for (const char* title : {"L*", "a*", "b*", "C*<sub>ab</sub>", "h<sub>ab</sub>"}) {
    html += "<th scope=\"col\" class=\"number\">" + std::string(title) + "</th>";
  }
  html += "</tr></thead>\n<tbody>\n" + rows + "</tbody>\n</table>\n";
  return scrolling("Colours of " + chart.name, html);
}

std::string key_figures(const View& chart) {
  std::string items;
  if (chart.figures.most_ink && chart.channels.size() > 1) {
    items += key_figure(decimal(chart.figures.total_ink, 0) + " %", "most ink on one patch");
  }
  if (chart.figures.darkest && !chart.chart->merged.lab.empty()) {
    const Triple lab = triple_at(chart.chart->merged.lab, *chart.figures.darkest);
    items += key_figure("L* " + decimal(lab[0], 1), "darkest patch");
  }
  if (chart.ramp.gamma) items += key_figure(decimal(*chart.ramp.gamma, 2), "gamma of the greys");
  if (!chart.display_white) return items;
  const DisplayWhite& white = *chart.display_white;
  if (white.kelvin) items += key_figure(decimal(*white.kelvin, 0) + " K", "white");
  if (white.luminance) {
    items += key_figure(shortest(*white.luminance) + " cd/m\u00B2", "luminance of the white");
  }
  return items;
}

std::string figures_of(const View& chart) {
  const std::string items = key_figures(chart);
  return (items.empty() ? "" : "<ul class=\"key-figures\">\n" + items + "</ul>\n") +
         colour_table(chart);
}

}  // namespace

Section figures_section(Views charts) {
  return section_of(
      {"figures", "Key colours", "", "No device values or no colours to tell them from."}, charts,
      figures_of);
}

}  // namespace measkit::html
