#include "kit/write/summary_tables.h"

#include "kit/write/labelled_lines.h"
#include "kit/write/layout.h"
#include "kit/write/summary_graphs.h"
#include "kit/write/text_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace measkit {
namespace {

constexpr std::size_t kLongName = 24;

std::string number(double value) {
  return std::isnan(value) ? std::string("-") : formatted("%g", value);
}

std::string name_cell(std::string_view text) { return shortened(text, kLongName); }

// Which rows of many are shown: the first and the last.
class Shown {
 public:
  Shown(std::size_t count, std::size_t most) : count_(count) {
    if (count <= most || count - 1 == most) {  // a gap takes a line, too
      first_ = count;
    } else {
      last_ = most / 3;
      first_ = most - last_;
    }
  }
  std::vector<std::size_t> rows() const {
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < first_; ++i) rows.push_back(i);
    for (std::size_t i = count_ - last_; i < count_; ++i) rows.push_back(i);
    return rows;
  }
  // Says how many are left out, where they would stand below the line of titles.
  void tell_gap(TableLines& lines) const {
    const std::size_t left_out = count_ - first_ - last_;
    if (left_out == 0) return;
    lines.insert(lines.begin() + 1 + static_cast<std::ptrdiff_t>(first_),
                 {"... " + std::to_string(left_out) + " more ...", {}});
  }

 private:
  std::size_t count_, first_ = 0, last_ = 0;
};

std::string colour_of(const Values& lab, std::size_t row) {
  return lab.empty() ? std::string() : hex_colour(triple_at(lab, row));
}

// Gives the lines below the titles the colours of the rows that they show.
TableLines coloured(std::vector<std::string> lines, const Values& lab,
                    const std::vector<std::size_t>& rows) {
  TableLines table;
  for (std::string& line : lines) {
    const bool is_title = table.empty();
    table.push_back(
        {std::move(line), is_title ? std::string() : colour_of(lab, rows[table.size() - 1])});
  }
  return table;
}

std::size_t width_of(const Screen& screen) {
  const std::size_t swatch = screen.colours == Colours::none ? 0 : kSwatchColumns;
  return kTerminalWidth - kIndent - swatch;
}

std::string wavelengths_title(const Chart& chart) {
  return formatted("%.4g", chart.wavelengths.front()) + "-" +
         formatted("%.4g", chart.wavelengths.back()) + " nm";
}

void add_device_columns(TextTable& table, const Chart& chart) {
  for (const Channel& channel : chart.channels) {
    const std::size_t end = channel.field.rfind('_');
    const bool has_short_name = end != std::string::npos && end + 1 < channel.field.size();
    table.add_column(name_cell(has_short_name ? channel.field.substr(end + 1) : channel.name),
                     Align::right);
  }
}

void add_row(TextTable& table, const Values& values, std::size_t row) {
  if (values.empty()) return;
  for (const double value : values.row(row)) table.add(number(value));
}

void add_colour_columns(TextTable& table, const Values& lab) {
  if (lab.empty()) return;
  for (const char* title : {"L*", "a*", "b*"}) table.add_column(title, Align::right);
  table.add_column("sRGB", Align::left);
}

void add_colour(TextTable& table, const Values& lab, std::size_t row) {
  if (lab.empty()) return;
  for (const double value : lab.row(row)) {
    table.add(std::isnan(value) ? std::string("-") : formatted("%.2f", value));
  }
  const std::string colour = colour_of(lab, row);
  table.add(colour.empty() ? "-" : colour);
}

void add_columns(TextTable& table, const Values& values, const std::array<const char*, 3>& titles) {
  if (values.empty()) return;
  for (const char* const title : titles) table.add_column(title, Align::right);
}

// What a list of all patches shows beside Lab, and a short one in its place.
void add_other_columns(TextTable& table, const Chart& chart) {
  add_columns(table, chart.own_lab, {"own L*", "own a*", "own b*"});
  add_columns(table, chart.lch, {"L*", "C*", "h"});
  add_columns(table, chart.xyz, {"X", "Y", "Z"});
  for (const std::string& name : chart.density_names) {
    table.add_column(name_cell(name), Align::right);
  }
}

void add_others(TextTable& table, const Chart& chart, std::size_t patch) {
  add_row(table, chart.own_lab, patch);
  add_row(table, chart.lch, patch);
  add_row(table, chart.xyz, patch);
  add_row(table, chart.densities, patch);
}

// The patches behind a merged patch by their ids, such as "3 7 12 +2".
std::string members_cell(const Chart& chart, std::size_t index) {
  constexpr std::size_t kMost = 3;
  const auto members = chart.merged.patches_of(index);
  std::string cell;
  for (std::size_t i = 0; i < std::min(members.size(), kMost); ++i) {
    cell += (i == 0 ? "" : " ") + shortened(patch_label(chart, members[i]), 12);
  }
  if (members.size() > kMost) cell += " +" + std::to_string(members.size() - kMost);
  return cell;
}

std::string range_cell(const Channel& channel) {
  const auto& values = channel.distinct_values;
  if (values.empty()) return "-";
  const std::string first = number(values.front().value);
  return values.size() == 1 ? first : first + " to " + number(values.back().value);
}

void keep_rows(TableLines& lines, std::size_t most_rows) {
  if (lines.size() <= 1 || lines.size() - 1 <= most_rows) return;
  const std::size_t rows = lines.size() - 1;
  const std::size_t kept = most_rows == 0 ? 0 : most_rows - 1;
  lines.resize(kept + 1);
  lines.push_back({"... " + std::to_string(rows - kept) + " more", {}});
}

std::vector<std::string> landmark_table(const Chart& chart, bool has_device) {
  TextTable table;
  table.add_column("landmark", Align::left);
  table.add_column("index", Align::right);
  table.add_column("patches", Align::left);
  add_colour_columns(table, chart.merged.lab);
  if (has_device) add_device_columns(table, chart);
  for (const Landmark& landmark : chart.landmarks) {
    table.add(name_cell(landmark.name));
    table.add(std::to_string(landmark.index));
    table.add(members_cell(chart, landmark.index));
    add_colour(table, chart.merged.lab, landmark.index);
    if (has_device) add_row(table, chart.merged.device, landmark.index);
  }
  return table.lines();
}

// The spectra take the place of the device values where there is no room for both: paper and
// solids have nothing but 0 and their full value.
std::vector<std::string> landmark_table(const Chart& chart, const std::vector<std::size_t>& indices,
                                        const Screen& screen) {
  std::vector<std::string> table = landmark_table(chart, true);
  if (!screen.has_blocks || chart.merged.spectra.empty()) return table;
  const Graphs graphs = spectrum_graphs(chart.merged.spectra, indices);
  const std::string title = wavelengths_title(chart);
  if (add_graphs(table, title, graphs, width_of(screen))) return table;
  std::vector<std::string> narrow = landmark_table(chart, false);
  return add_graphs(narrow, title, graphs, width_of(screen)) ? narrow : table;
}

}  // namespace

TableLines landmark_lines(const Chart& chart, std::size_t most_rows, const Screen& screen) {
  if (chart.landmarks.empty()) return {};
  std::vector<std::size_t> indices;
  for (const Landmark& landmark : chart.landmarks) indices.push_back(landmark.index);
  TableLines lines = coloured(landmark_table(chart, indices, screen), chart.merged.lab, indices);
  keep_rows(lines, most_rows);
  return lines;
}

TableLines channel_lines(const Chart& chart, std::size_t most_rows, const Screen& screen) {
  if (chart.channels.empty()) return {};
  TextTable table;
  table.add_column("channel", Align::left);
  table.add_column("field", Align::left);
  table.add_column("range", Align::left);
  table.add_column("values", Align::right);
  table.add_column("wedge steps", Align::right);
  table.add_column("solid", Align::left);
  for (const Channel& channel : chart.channels) {
    table.add(name_cell(channel.name));
    table.add(name_cell(channel.field));
    table.add(range_cell(channel));
    table.add(std::to_string(channel.distinct_values.size()));
    table.add(std::to_string(channel.wedge.size()));
    table.add(channel.solid ? "index " + std::to_string(*channel.solid) + " (" +
                                  shortened(label_of(chart, *channel.solid), kLongName) + ")"
                            : "none");
  }
  std::vector<std::string> titled = table.lines();
  if (screen.has_blocks) {
    add_graphs(titled, chart.is_rgb ? "L* of wedge" : "tone of wedge", wedge_graphs(chart),
               width_of(screen));
  }
  TableLines lines;
  for (std::string& line : titled) lines.push_back({std::move(line), {}});
  for (std::size_t c = 0; c < chart.channels.size(); ++c) {
    const auto& solid = chart.channels[c].solid;
    if (solid) lines[c + 1].colour = colour_of(chart.merged.lab, *solid);
  }
  keep_rows(lines, most_rows);
  return lines;
}

TableLines patch_lines(const Chart& chart, std::size_t most_rows, const Screen& screen) {
  if (chart.patch_count == 0) return {};
  const Shown shown(chart.patch_count, most_rows);
  const std::vector<std::size_t> rows = shown.rows();
  const bool has_others = chart.lab.empty() || most_rows == kAllRows;
  TextTable table;
  table.add_column("patch", Align::right);
  if (!chart.ids.empty()) table.add_column("id", Align::left);
  if (!chart.names.empty()) table.add_column("name", Align::left);
  if (!chart.locations.empty()) table.add_column("location", Align::left);
  add_colour_columns(table, chart.lab);
  if (has_others) add_other_columns(table, chart);
  add_device_columns(table, chart);
  for (const std::size_t patch : rows) {
    table.add(std::to_string(patch));
    for (const Texts* texts : {&chart.ids, &chart.names, &chart.locations}) {
      if (!texts->empty()) table.add(name_cell((*texts)[patch]));
    }
    add_colour(table, chart.lab, patch);
    if (has_others) add_others(table, chart, patch);
    add_row(table, chart.device, patch);
  }
  std::vector<std::string> titled = table.lines();
  if (screen.has_blocks && chart.landmarks.empty() && !chart.spectra.empty()) {
    add_graphs(titled, wavelengths_title(chart), spectrum_graphs(chart.spectra, rows),
               width_of(screen));
  }
  TableLines lines = coloured(std::move(titled), chart.lab, rows);
  shown.tell_gap(lines);
  return lines;
}

TableLines merged_patch_lines(const Chart& chart, std::size_t most_rows) {
  const MergedPatches& merged = chart.merged;
  if (merged.count == 0) return {};
  const Shown shown(merged.count, most_rows);
  const std::vector<std::size_t> rows = shown.rows();
  TextTable table;
  table.add_column("index", Align::right);
  table.add_column("patches", Align::left);
  if (!merged.names.empty()) table.add_column("name", Align::left);
  add_colour_columns(table, merged.lab);
  add_device_columns(table, chart);
  if (!merged.repeats.empty()) {
    for (const char* title : {"measured", "mean dE", "max dE"}) {
      table.add_column(title, Align::right);
    }
  }
  for (const std::size_t index : rows) {
    table.add(std::to_string(index));
    table.add(members_cell(chart, index));
    if (!merged.names.empty()) table.add(name_cell(merged.names[index]));
    add_colour(table, merged.lab, index);
    add_row(table, merged.device, index);
    if (merged.repeats.empty()) continue;
    const Repeats& repeats = merged.repeats[index];
    const bool has_pairs = repeats.count > 1 && repeats.de_max.has_value();
    table.add(std::to_string(merged.patches_of(index).size()));
    table.add(has_pairs ? formatted("%.3f", repeats.de_mean) : "-");
    table.add(has_pairs ? formatted("%.3f", *repeats.de_max) : "-");
  }
  TableLines lines = coloured(table.lines(), merged.lab, rows);
  shown.tell_gap(lines);
  return lines;
}

std::vector<std::string> channel_value_lines(const Chart& chart) {
  constexpr std::size_t kMostValues = 24;
  std::vector<std::string> lines;
  for (std::size_t c = 0; c < chart.channels.size(); ++c) {
    const Channel& channel = chart.channels[c];
    const std::size_t count = channel.distinct_values.size();
    std::string line = name_cell(channel.name) + ", value x patches:";
    for (std::size_t i = 0; i < std::min(count, kMostValues); ++i) {
      const DistinctValue& distinct = channel.distinct_values[i];
      line += " " + number(distinct.value) + "x" + std::to_string(distinct.count);
    }
    if (count > kMostValues) line += " ... and " + std::to_string(count - kMostValues) + " more";
    lines.push_back(std::move(line));
    if (channel.wedge.empty()) continue;
    line = "  wedge, value at index:";
    for (std::size_t i = 0; i < std::min(channel.wedge.size(), kMostValues); ++i) {
      const std::size_t index = channel.wedge[i];
      line += " " + number(chart.merged.device.row(index)[c]) + "@" + std::to_string(index);
    }
    if (channel.wedge.size() > kMostValues) {
      line += " ... and " + std::to_string(channel.wedge.size() - kMostValues) + " more";
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace measkit
