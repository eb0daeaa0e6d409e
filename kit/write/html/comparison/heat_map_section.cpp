#include "kit/write/html/axis.h"
#include "kit/write/html/chart_layout.h"
#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kMostCells = 20'000;  // of all samples
constexpr std::size_t kFewCells = 60;       // of so many each has its label in it
constexpr int kSteps = 10;                  // classes h0 to h9 of the style

// Classes of differences, each with its colour. The last one is open when it does not reach the
// largest difference.
class HeatScale {
 public:
  explicit HeatScale(SampleViews samples) {
    const double end = scale_end(samples);
    axis_ = axis_over(0.0, end > 0.0 ? end : 1.0, kSteps);
    for (const SampleView& sample : samples) {
      is_open_ = is_open_ || std::ranges::any_of(sample.differences,
                                                 [this](double d) { return d > axis_.last; });
    }
  }

  std::string css_class(double difference) const {
    const double steps = std::floor(difference / axis_.step);
    return css_class(std::min(static_cast<int>(std::min(steps, 100.0)), classes() - 1));
  }

  std::string legend() const {
    std::string html = "<ul class=\"legend\" aria-label=\"Legend\">\n";
    for (int i = 0; i < classes(); ++i) {
      const std::string low = tick_text(axis_, i * axis_.step);
      const bool is_last = i + 1 == classes();
      html += "<li><i class=\"" + css_class(i) + "\"></i>" +
              (is_last && is_open_ ? "above " + low
                                   : low + " to " + tick_text(axis_, (i + 1) * axis_.step)) +
              "</li>\n";
    }
    return html + "<li><i class=\"unknown\"></i>not compared</li>\n</ul>\n";
  }

 private:
  int classes() const { return static_cast<int>(std::lround(axis_.last / axis_.step)); }
  // Few classes use the whole range of colours, too.
  std::string css_class(int position) const {
    return "h" + std::to_string(position * (kSteps - 1) / std::max(classes() - 1, 1));
  }

  Axis axis_;
  bool is_open_ = false;
};

// The difference of each patch of the reference; not a number where nothing was compared. The
// repeats of a colour have the difference of their average.
std::vector<double> differences_of(const SampleView& sample) {
  const Comparison& comparison = sample.comparison;
  const Chart& chart = *comparison.reference;
  std::vector<double> differences(chart.patch_count, std::nan(""));
  std::vector<std::uint32_t> counts(chart.patch_count, 0);
  for (const ComparedColour& colour : comparison.colours) {
    differences[colour.reference_patch] = colour.of(sample.formula());
    counts[colour.reference_patch] = colour.reference_count;
  }
  if (comparison.matched_by != MatchBy::device) return differences;
  for (std::size_t i = 0; i < chart.merged.starts.size() && i < chart.merged.count; ++i) {
    const auto patches = chart.merged.patches_of(i);
    if (counts[patches.front()] != patches.size()) continue;
    for (const std::uint32_t patch : patches) differences[patch] = differences[patches.front()];
  }
  return differences;
}

std::string patch_title(const Chart& chart, std::size_t patch) {
  std::string title = patch_label(chart, patch);
  if (!chart.locations.empty() && chart.locations[patch] != title) {
    title += " " + chart.locations[patch];
  }
  return html_text(title, kLongName);
}

// The last patch is the first one but for cells of several patches.
std::string cell_of(const Chart& chart, std::size_t first, std::size_t last, double difference,
                    const HeatScale& scale, bool has_label) {
  std::string title = patch_title(chart, first);
  if (last != first) title += " to " + patch_title(chart, last);
  const bool is_known = is_drawable(difference);
  const std::string value = is_known ? decimal(difference, 2) : "";
  std::string html = "<li class=\"" + (is_known ? scale.css_class(difference) : "unknown") +
                     "\" title=\"" + title + "&#10;" + (is_known ? value : "not compared") + "\">";
  if (has_label) html += "<span>" + title + " <b>" + value + "</b></span>";
  return html + "</li>\n";
}

struct HeatMap {
  std::size_t columns;
  std::string cells, note;
  bool has_labels;
};

HeatMap whole_map(const SampleView& sample, const HeatScale& scale,
                  const std::vector<double>& differences) {
  const Chart& chart = *sample.comparison.reference;
  const ChartLayout layout = layout_of(chart);
  HeatMap map = {layout.columns, "", "", layout.patches.size() <= kFewCells};
  map.note = layout.sentence("the reference");
  for (const std::uint32_t patch : layout.patches) {
    map.cells += patch == ChartLayout::kNoPatch
                     ? "<li></li>\n"
                     : cell_of(chart, patch, patch, differences[patch], scale, map.has_labels);
  }
  return map;
}

// Bands of patches that follow each other in the file.
HeatMap banded_map(const SampleView& sample, const HeatScale& scale,
                   const std::vector<double>& differences, std::size_t most_cells) {
  const std::size_t band = (differences.size() + most_cells - 1) / most_cells;
  const std::size_t cells = (differences.size() + band - 1) / band;
  HeatMap map = {columns_for(cells), "", "", false};
  map.note = "In the order of the reference's file. Each cell stands for " + grouped(band) +
             " patches and shows the largest difference among them.";
  for (std::size_t first = 0; first < differences.size(); first += band) {
    const std::size_t last = std::min(first + band, differences.size()) - 1;
    double largest = std::nan("");
    for (std::size_t i = first; i <= last; ++i) {
      if (is_drawable(differences[i])) largest = std::fmax(largest, differences[i]);
    }
    map.cells += cell_of(*sample.comparison.reference, first, last, largest, scale, false);
  }
  return map;
}

std::string heat_map_of(const SampleView& sample, SampleViews samples, const HeatScale& scale) {
  const std::size_t most_cells = kMostCells / samples.size();
  const std::vector<double> differences = differences_of(sample);
  const HeatMap map = differences.size() <= most_cells
                          ? whole_map(sample, scale, differences)
                          : banded_map(sample, scale, differences, most_cells);
  const char* const size = map.has_labels ? "few" : map.columns <= 60 ? "some" : "many";
  return scale.legend() + "<ol class=\"heat " + size +
         "\" style=\"--columns:" + std::to_string(map.columns) + "\" aria-label=\"Differences of " +
         sample.name + "\">\n" + map.cells + "</ol>\n<p class=\"note\">" + map.note + "</p>\n";
}

}  // namespace

Section heat_map_section(SampleViews samples) {
  const HeatScale scale(samples);
  return section_of(
      {"map", "Map",
       "The chart, each patch with its " +
           html_symbol(samples.front().formula(), samples.front().comparison.options) +
           ". Point at a patch for its value.",
       ""},
      samples, [&](const SampleView& sample) { return heat_map_of(sample, samples, scale); });
}

}  // namespace measkit::html
