#include "kit/write/html/comparison/figure_columns.h"
#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/numbers.h"

#include <algorithm>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr Measure kComponents[] = {Measure::dl, Measure::da, Measure::db};

std::string groups_of(const SampleView& sample, std::size_t samples) {
  const ComparisonOptions& options = sample.comparison.options;
  const bool has_components = samples == 1;
  std::vector<std::string> cells = {"Colours"};
  for (const FigureColumn& column : kFigureColumns) {
    if (column.is_short || has_room(samples)) cells.emplace_back(column.title);
  }
  for (const Measure measure : kComponents) {
    if (has_components) cells.push_back("Mean " + html_symbol(measure, options));
  }
  std::string html = number_table_head({"", "Group", true}, cells);
  for (std::size_t i = 0; i < kColourGroups; ++i) {
    const GroupFigures& group = sample.comparison.groups[i];
    if (group.colours.empty()) continue;
    const Figures& figures = group.of(sample.formula());
    cells = {grouped(group.colours.size())};
    for (const FigureColumn& column : kFigureColumns) {
      if (!column.is_short && !has_room(samples)) continue;
      cells.push_back(text_of(sample.formula(), figures.*column.value));
    }
    for (const Measure measure : kComponents) {
      if (has_components) cells.push_back(text_of(measure, group.of(measure).mean));
    }
    html += number_row(kColourGroupNames[i], cells);
  }
  return html + std::string(kTableEnd);
}

std::string overview_row(const SampleView& sample, std::size_t position, bool has_verdicts) {
  const Comparison& comparison = sample.comparison;
  std::vector<std::string> cells;
  if (has_verdicts) {
    cells.emplace_back(sample.verdicts.empty() ? "" : sample.has_failed() ? "failed" : "passed");
  }
  cells.push_back(comparison.is_refused() ? "not comparable" : grouped(comparison.colours.size()));
  const Figures& figures = comparison.of(ColourGroup::all).of(sample.formula());
  for (const FigureColumn& column : kFigureColumns) {
    cells.push_back(comparison.is_refused() ? ""
                                            : text_of(sample.formula(), figures.*column.value));
  }
  return number_row(lettered(position, sample.name), cells);
}

}  // namespace

Section groups_section(SampleViews samples) {
  return section_of(
      {"groups", "Groups",
       html_symbol(samples.front().formula(), samples.front().comparison.options) +
           ". Greys have a chroma of at most 6 when the paper is taken as white. The surface is "
           "that of the device space. A group without colours is left out.",
       ""},
      samples, [&](const SampleView& sample) { return groups_of(sample, samples.size()); });
}

Section overview_section(SampleViews samples) {
  if (samples.size() < 2) return {"overview", "Overview", ""};
  const bool has_verdicts =
      std::ranges::any_of(samples, [](const SampleView& s) { return !s.verdicts.empty(); });
  std::vector<std::string> titles;
  if (has_verdicts) titles.emplace_back("Verdict");
  titles.emplace_back("Colours");
  for (const FigureColumn& column : kFigureColumns) titles.emplace_back(column.title);
  std::string html = number_table_head({"", "Sample"}, titles);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    html += overview_row(samples[i], i, has_verdicts);
  }
  return section_of({"overview", "Overview",
                     html_symbol(samples.front().formula(), samples.front().comparison.options) +
                         " of all colours.",
                     ""},
                    html + std::string(kTableEnd));
}

}  // namespace measkit::html
