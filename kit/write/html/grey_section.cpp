#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <string>

namespace measkit::html {
namespace {

std::string row_of(const View& chart, const GreyStep& step) {
  const MergedPatches& merged = chart.chart->merged;
  const Triple lab = triple_at(merged.lab, step.index);
  std::string html = "<tr><th scope=\"row\">" + colour_field(hex_colour(lab)) +
                     html_text(label_of(*chart.chart, step.index), kLongName) +
                     "</th><td class=\"number\">" +
                     device_text(chart, merged.device.row(step.index)) + "</td>";
  for (const double value :
       {lab[0], lab[1], lab[2], step.grey[1], step.grey[2], step.chroma_error}) {
    html += "<td class=\"number\">" + decimal(value, 1) + "</td>";
  }
  return html + "</tr>\n";
}

std::string greys_of(const View& chart) {
  if (chart.figures.greys.empty()) return "";
  std::string html =
      "<table class=\"compact\">\n<thead><tr><th scope=\"col\">Patch</th><th scope=\"col\" "
      "class=\"number\">Device</th>";
  for (const char* title : {"L*", "a*", "b*", "grey a*", "grey b*", "\u0394C<sub>h</sub>"}) {
    html += "<th scope=\"col\" class=\"number\">" + std::string(title) + "</th>";
  }
  html += "</tr></thead>\n<tbody>\n";
  for (const GreyStep& step : chart.figures.greys) html += row_of(chart, step);
  return scrolling("Grey balance of " + chart.name, html + "</tbody>\n</table>\n");
}

}  // namespace

Section grey_section(Views charts) {
  return section_of(
      {"grey", "Grey balance",
       "The usual balance patches, 25/19/19, 50/40/40 and 75/66/66 %, where the chart has them, "
       "and "
       "the patches of cyan, magenta and yellow that are nearest to grey at each lightness. Grey "
       "is relative to the paper as in ISO 12647-2: its a* and b* fade "
       "to 15 % towards the three solids.",
       "No near-neutral patches of cyan, magenta and yellow."},
      charts, greys_of);
}

}  // namespace measkit::html
