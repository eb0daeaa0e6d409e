#include "colortypes/conversions.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kMostRows = 2000;
constexpr std::size_t kMostColumns = 16;  // of device values and densities

// Spreadsheets take it for a number: a hyphen for the minus sign, nothing for what was not
// measured.
std::string plain(double value, std::string text) {
  if (!is_drawable(value)) return "";
  constexpr std::string_view kMinus = "\u2212";
  if (text.starts_with(kMinus)) text.replace(0, kMinus.size(), "-");
  return text;
}

std::string plain_number(double value, int decimals) {
  return plain(value, decimal(value, decimals));
}

std::string plain_shortest(double value) { return plain(value, shortest(value)); }

// Which columns a chart has.
struct Columns {
  bool ids, names, locations, lab, xyz, repeats;
  std::size_t device, densities;

  explicit Columns(const Chart& chart)
      : ids(has_any(chart.ids)),
        names(has_any(chart.names)),
        locations(has_any(chart.locations)),
        lab(!chart.lab.empty()),
        xyz(!chart.xyz.empty() || !chart.lab.empty()),
        repeats(!chart.merged.repeats.empty() && chart.merged.count < chart.patch_count),
        device(std::min({chart.channels.size(), chart.device.width(), kMostColumns})),
        densities(std::min({chart.density_names.size(), chart.densities.width(), kMostColumns})) {}

 private:
  static bool has_any(const Texts& texts) {
    return !std::ranges::all_of(texts, &std::string::empty);
  }
};

void add_title(std::string& html, std::string_view title, bool is_number) {
  html += is_number ? "<th scope=\"col\" class=\"number\">" : "<th scope=\"col\">";
  html += title;
  html += "</th>";
}

std::string head_of(const View& chart, const Columns& columns) {
  std::string html = "<thead><tr>";
  add_title(html, "No.", true);
  if (columns.ids) add_title(html, "Id", false);
  if (columns.names) add_title(html, "Name", false);
  if (columns.locations) add_title(html, "Location", false);
  for (std::size_t c = 0; c < columns.device; ++c) {
    const ChannelView& channel = chart.channels[c];
    add_title(html, channel.letter.empty() ? channel.name : channel.letter, true);
  }
  for (std::size_t c = 0; c < columns.densities; ++c) {
    add_title(html, html_text(chart.chart->density_names[c], kShortName), true);
  }
  if (columns.xyz) {
    for (const char* title : {"X", "Y", "Z"}) add_title(html, title, true);
  }
  if (columns.lab) {
    for (const char* title : {"L*", "a*", "b*", "C*", "h"}) add_title(html, title, true);
    add_title(html, "sRGB", false);
  }
  if (columns.repeats) add_title(html, "Readings", true);
  return html + "</tr></thead>\n";
}

void add_cell(std::string& html, std::string_view text) {
  html += "<td>";
  html += text;
}

void add_lab(std::string& html, const Triple& lab) {
  for (const double value : lab) add_cell(html, plain_number(value, 2));
  add_cell(html, plain_number(std::hypot(lab[1], lab[2]), 2));
  add_cell(html, plain_number(hue_angle(lab), 1));
  add_cell(html, std::ranges::all_of(lab, is_drawable) ? hex_colour(lab) : "");
}

// The file's own, else those of Lab for D50.
Triple xyz_of(const Chart& chart, std::size_t patch) {
  if (!chart.xyz.empty()) return triple_at(chart.xyz, patch);
  const Triple lab = triple_at(chart.lab, patch);
  const auto xyz =
      vantor::ColorTypes::labToXyz({lab[0], lab[1], lab[2]}, vantor::ColorTypes::kD50White);
  return {xyz.x, xyz.y, xyz.z};
}

// How often the colour of each patch was measured.
std::vector<std::size_t> readings_of(const Chart& chart) {
  std::vector<std::size_t> readings(chart.patch_count, 1);
  for (std::size_t i = 0; i < chart.merged.count; ++i) {
    const auto patches = chart.merged.patches_of(i);
    for (const std::uint32_t patch : patches) readings[patch] = patches.size();
  }
  return readings;
}

// The ends of rows and cells may be left out, which halves the markup.
std::string rows_of(const Chart& chart, const Columns& columns, std::size_t rows) {
  const std::vector<std::size_t> readings =
      columns.repeats ? readings_of(chart) : std::vector<std::size_t>();
  std::string html;
  for (std::size_t i = 0; i < rows; ++i) {
    html += "<tr><td>" + std::to_string(i + 1);
    for (const auto& [is_there, texts] :
         {std::pair(columns.ids, &chart.ids), std::pair(columns.names, &chart.names),
          std::pair(columns.locations, &chart.locations)}) {
      if (is_there) html += "<th>" + html_text((*texts)[i], kLongName);
    }
    for (std::size_t c = 0; c < columns.device; ++c) {
      add_cell(html, plain_shortest(chart.device.row(i)[c]));
    }
    for (std::size_t c = 0; c < columns.densities; ++c) {
      add_cell(html, plain_shortest(chart.densities.row(i)[c]));
    }
    if (columns.xyz) {
      for (const double value : xyz_of(chart, i)) add_cell(html, plain_number(value, 2));
    }
    if (columns.lab) add_lab(html, triple_at(chart.lab, i));
    if (columns.repeats) add_cell(html, std::to_string(readings[i]));
    html += '\n';
  }
  return html;
}

std::string caption_of(const View& chart, std::size_t rows) {
  const std::string count =
      grouped(chart.patch_count) + (chart.patch_count == 1 ? " patch" : " patches");
  return rows < chart.patch_count ? "The first " + grouped(rows) + " of " + count : count;
}

std::string table_of(const View& chart) {
  if (chart.patch_count == 0) return "";
  const Columns columns(*chart.chart);
  const std::size_t rows = std::min(chart.patch_count, kMostRows);
  const std::string table = "<table class=\"compact sortable\">\n<caption>" +
                            caption_of(chart, rows) + "</caption>\n" + head_of(chart, columns) +
                            "<tbody>\n" + rows_of(*chart.chart, columns, rows) +
                            "</tbody>\n</table>\n";
  std::string html = scrolling("Table of the patches of " + chart.name, table, "patch-table");
  if (rows < chart.patch_count) {
    html += "<p class=\"note\">The first " + grouped(rows) + " of " + grouped(chart.patch_count) +
            " patches. The command measinfo --json prints all of them.</p>\n";
  }
  return html;
}

}  // namespace

Section patch_table_section(Views charts) {
  return section_of({"patches", "Patches", "", "No patches in this chart."}, charts, table_of);
}

}  // namespace measkit::html
