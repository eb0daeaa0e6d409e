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
    text += kLineEnd + ("L* " + decimal(lab[0], 1)) + " a* " + decimal(lab[1], 1) + " b* " +
            decimal(lab[2], 1);
  }
  for (std::size_t i = 0; i < std::min(chart.density_names.size(), patch.densities.size()); ++i) {
    text +=
        (i == 0 ? kLineEnd : " ") + chart.density_names[i] + " " + decimal(patch.densities[i], 2);
  }
  if (!patch.colour.empty()) text += kLineEnd + patch.colour;
  return text;
}

const char* size_class(std::size_t patches) {
  if (patches <= kFewPatches) return "large";
  if (patches <= 400) return "medium";
  return patches <= 2000 ? "small" : "tiny";
}

std::string swatches_of(const View& chart) {
  if (chart.patches.empty()) return "";
  const bool has_labels = chart.patches.size() <= kFewPatches;
  std::string html = "<ol class=\"swatches " + std::string(size_class(chart.patches.size())) +
                     "\" aria-label=\"Patches of " + chart.name + "\">\n";
  for (const PatchView& patch : chart.patches) {
    html += patch.colour.empty() ? "<li class=\"unknown\""
                                 : "<li style=\"background:" + patch.colour + "\"";
    html += " title=\"" + tooltip_of(chart, patch) + "\">";
    if (has_labels) html += "<span>" + patch.label + "</span>";
    html += "</li>\n";
  }
  html += "</ol>\n";
  if (chart.patches.size() < chart.patch_count) {
    html += "<p class=\"note\">The first " + grouped(chart.patches.size()) + " of " +
            grouped(chart.patch_count) + " patches, here and in the plots.</p>\n";
  }
  if (std::ranges::all_of(chart.patches, &std::string::empty, &PatchView::colour)) {
    html += "<p class=\"note\">The chart has no Lab to tell the colours.</p>\n";
  }
  return html;
}

}  // namespace

Section patches_section(Views charts) {
  return section_of({"patches", "Patches",
                     "In the order of the file. Point at a patch for its values. Colours are sRGB, "
                     "those outside its gamut clipped.",
                     "No patches in this chart."},
                    charts, swatches_of);
}

}  // namespace measkit::html
