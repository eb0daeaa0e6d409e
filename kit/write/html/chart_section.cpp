#include "kit/write/html/chart_layout.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <algorithm>
#include <string>

namespace measkit::html {
namespace {

constexpr std::size_t kFewPatches = 60;  // of so many each has its label beside it

// What is known of a patch, a line each.
std::string tooltip_of(const View& chart, const PatchView& patch) {
  constexpr const char* kLineEnd = "&#10;";
  std::string text = patch.label;
  if (!patch.device.empty()) text += kLineEnd + device_text(chart, patch.device);
  if (patch.lab) {
    const Triple& lab = *patch.lab;
    text += kLineEnd + ("Lab " + decimal(lab[0], 1)) + " " + decimal(lab[1], 1) + " " +
            decimal(lab[2], 1);
  }
  for (std::size_t i = 0; i < std::min(chart.density_names.size(), patch.densities.size()); ++i) {
    text +=
        (i == 0 ? kLineEnd : " ") + chart.density_names[i] + " " + decimal(patch.densities[i], 2);
  }
  return text;
}

std::string swatch_of(const View& chart, const PatchView& patch, bool has_label) {
  std::string html = patch.colour.empty() ? "<li class=\"unknown\""
                                          : "<li style=\"background:" + patch.colour + "\"";
  html += " title=\"" + tooltip_of(chart, patch) + "\">";
  if (has_label) html += "<span>" + patch.label + "</span>";
  return html + "\n";
}

std::string size_class(std::size_t patches) {
  if (patches <= 400) return "medium";
  return patches <= 2000 ? "small" : "tiny";
}

// The first patches alone when there are more than a page can show.
ChartLayout shown_layout(const View& chart) {
  if (chart.patches.size() == chart.patch_count) return layout_of(*chart.chart);
  ChartLayout layout;
  layout.columns = columns_for(chart.patches.size());
  for (std::size_t i = 0; i < chart.patches.size(); ++i) {
    layout.patches.push_back(static_cast<std::uint32_t>(i));
  }
  return layout;
}

std::string swatches_of(const View& chart) {
  const bool has_colour =
      !std::ranges::all_of(chart.patches, &std::string::empty, &PatchView::colour);
  if (!has_colour) return "";
  const ChartLayout layout = shown_layout(chart);
  constexpr std::size_t kFewColumns = 12;  // of wider charts the labels would cover the patches
  // Labels need room: a chart in the order of its file flows as the page is wide.
  const bool is_few = layout.patches.size() <= kFewPatches;
  const bool flows = is_few && layout.placed_by.empty() && layout.row_keyword.empty();
  const bool is_large = flows || (is_few && layout.columns <= kFewColumns);
  std::string html = std::string("<ol class=\"swatches ") +
                     (is_large ? "large" : size_class(layout.patches.size())) +
                     (flows ? "" : " placed") +
                     "\" style=\"--columns:" + std::to_string(layout.columns) +
                     "\" aria-label=\"Patches of " + chart.name + "\">\n";
  for (const std::uint32_t patch : layout.patches) {
    html += patch == ChartLayout::kNoPatch ? "<li>\n"
                                           : swatch_of(chart, chart.patches[patch], is_large);
  }
  html += "</ol>\n<p class=\"note\">" + layout.sentence("");
  if (chart.patches.size() < chart.patch_count) {
    html += " The first " + grouped(chart.patches.size()) + " of " + grouped(chart.patch_count) +
            " patches, here and in the plots.";
  }
  return html + "</p>\n";
}

}  // namespace

Section chart_section(Views charts) {
  return section_of({"chart", "Chart",
                     "Point at a patch for its values. Colours are sRGB, those outside its gamut "
                     "clipped.",
                     "No colours in this chart."},
                    charts, swatches_of);
}

}  // namespace measkit::html
