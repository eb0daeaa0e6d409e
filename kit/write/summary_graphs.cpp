#include "kit/write/summary_graphs.h"

#include "kit/colour/tone_value.h"
#include "kit/write/layout.h"
#include "kit/write/printable_text.h"
#include "kit/write/terminal_graphics.h"

#include <algorithm>
#include <utility>

namespace measkit {
namespace {

Lab lab_at(const Values& lab, std::size_t row) {
  const auto values = lab.row(row);
  return {values[0], values[1], values[2]};
}

std::vector<double> wedge_graph(const Chart& chart, const Channel& channel) {
  const Values& lab = chart.merged.lab;
  const bool has_tones = !chart.is_rgb && chart.paper_white.has_value();
  std::vector<double> heights;
  for (const std::size_t step : channel.wedge) {
    const double height =
        has_tones ? spot_colour_tone_value(lab_at(lab, *chart.paper_white), lab_at(lab, step),
                                           lab_at(lab, channel.wedge.back()))
                  : lab_at(lab, step).l;
    heights.push_back(height / 100.0);
  }
  return heights;
}

}  // namespace

Graphs spectrum_graphs(const Values& spectra, const std::vector<std::size_t>& rows) {
  Graphs graphs;
  double largest = 0.0;
  for (const std::size_t row : rows) {
    const auto values = spectra.row(row);
    for (const double value : values) largest = std::max(largest, value);  // NaN is not larger
    graphs.emplace_back(values.begin(), values.end());
  }
  for (auto& graph : graphs) {
    for (double& value : graph) value /= largest;
  }
  return graphs;
}

Graphs wedge_graphs(const Chart& chart) {
  if (chart.merged.lab.empty()) return {};
  Graphs graphs;
  for (const Channel& channel : chart.channels) graphs.push_back(wedge_graph(chart, channel));
  return graphs;
}

bool add_graphs(std::vector<std::string>& table, std::string_view title, const Graphs& graphs,
                std::size_t width) {
  constexpr std::size_t kMostColumns = 24, kFewestColumns = 12, kGap = 2;
  const auto is_empty = [](const std::vector<double>& graph) { return graph.empty(); };
  if (std::ranges::all_of(graphs, is_empty)) return true;
  std::size_t start = 0;
  for (const std::string& line : table) start = std::max(start, display_width(line) + kGap);
  if (start + kFewestColumns > width) return false;
  const std::size_t columns = std::min(width - start, kMostColumns);
  const auto add = [start](std::string& line, std::string_view text) {
    if (text.empty()) return;
    line.append(start - display_width(line), ' ').append(text);
  };
  add(table.front(), shortened(title, columns));
  for (std::size_t row = 0; row < graphs.size(); ++row) {
    add(table[row + 1], blocks(graphs[row], columns));
  }
  return true;
}

}  // namespace measkit
