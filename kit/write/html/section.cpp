#include "kit/write/html/section.h"

#include "kit/write/html/numbers.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace measkit::html {

std::string lettered(std::size_t position, std::string_view name) {
  constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  return "<span class=\"letter\">" + std::string(1, kLetters[position % kLetters.size()]) +
         "</span> " + std::string(name);
}

std::string chart_heading(Views charts, const View& chart) {
  if (charts.size() == 1) return "";
  const auto position = static_cast<std::size_t>(&chart - charts.data());
  return "<h3>" + lettered(position, chart.name) + "</h3>\n";
}

Section section_of(const SectionHead& head, std::span<const Cell> cells) {
  if (std::ranges::all_of(cells, &std::string::empty, &Cell::content)) {
    return {head.id, head.title, ""};
  }
  const std::string id(head.id);
  std::string html = "<section id=\"" + id + "\" aria-labelledby=\"" + id + "-title\">\n";
  html += "<h2 id=\"" + id + "-title\">" + std::string(head.title) + "</h2>\n";
  if (!head.note.empty()) html += "<p class=\"note\">" + head.note + "</p>\n";
  html += "<div class=\"row\">\n";
  for (const Cell& cell : cells) {
    html += "<div class=\"cell\">\n" + cell.heading;
    html += cell.content.empty() ? "<p class=\"missing\">" + std::string(cell.missing) + "</p>\n"
                                 : cell.content;
    html += "</div>\n";
  }
  return {head.id, head.title, html + "</div>\n</section>\n"};
}

Section section_of(const SectionHead& head, Views charts,
                   const std::function<std::string(const View&)>& content_of) {
  std::vector<Cell> cells;
  for (const View& chart : charts) {
    cells.push_back({chart_heading(charts, chart), chart.is_loaded ? content_of(chart) : "",
                     chart.is_loaded ? head.missing : "This file was not read."});
  }
  return section_of(head, cells);
}

double full_width(std::size_t columns) {
  constexpr double kWidths[] = {1140.0, 560.0, 400.0, 330.0};
  return kWidths[std::clamp<std::size_t>(columns, 1, 4) - 1];
}

double half_width(std::size_t columns) { return std::min(full_width(columns), 560.0); }

std::string scrolling(std::string_view name, std::string_view table, std::string_view kind) {
  std::string html = "<div class=\"";
  html.append(kind).append(kind.empty() ? "" : " ");
  html.append("scroll\" tabindex=\"0\" role=\"region\" aria-label=\"").append(name);
  return html.append("\">\n").append(table).append("</div>\n");
}

double hue_angle(const Triple& lab) {
  const double degrees = std::atan2(lab[2], lab[1]) * 180.0 / std::numbers::pi;
  return degrees < 0.0 ? degrees + 360.0 : degrees;
}

std::string key_figure(std::string_view value, std::string_view name) {
  return "<li><strong>" + std::string(value) + "</strong> " + std::string(name) + "</li>\n";
}

std::string figure_of(std::string_view caption, std::string_view picture) {
  return "<figure>\n<figcaption>" + std::string(caption) + "</figcaption>\n" +
         std::string(picture) + "</figure>\n";
}

std::string device_text(const View& chart, std::span<const double> device) {
  std::string text;
  for (std::size_t c = 0; c < device.size(); ++c) {
    const std::string& letter = chart.channels[c].letter;
    text += (c == 0 ? "" : " ") + letter + (letter.empty() ? "" : " ") + shortest(device[c]);
  }
  return text;
}

std::string colour_field(std::string_view colour) {
  if (colour.empty()) return "<i class=\"colour unknown\"></i>";
  return "<i class=\"colour\" style=\"background:" + std::string(colour) + "\"></i>";
}

}  // namespace measkit::html
