#include "kit/write/html/section.h"

#include "kit/write/html/numbers.h"

#include <algorithm>

namespace measkit::html {

std::string chart_heading(Views charts, const View& chart) {
  if (charts.size() == 1) return "";
  constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const auto position = static_cast<std::size_t>(&chart - charts.data());
  return "<h3><span class=\"letter\">" + std::string(1, kLetters[position % kLetters.size()]) +
         "</span> " + chart.name + "</h3>\n";
}

Section section_of(const SectionHead& head, Views charts,
                   const std::function<std::string(const View&)>& content_of) {
  std::string cells;
  bool has_content = false;
  for (const View& chart : charts) {
    const std::string content = chart.is_loaded ? content_of(chart) : "";
    has_content = has_content || !content.empty();
    cells += "<div class=\"cell\">\n" + chart_heading(charts, chart);
    if (!content.empty()) {
      cells += content;
    } else {
      const std::string_view reason = chart.is_loaded ? head.missing : "This file was not read.";
      cells += "<p class=\"missing\">" + std::string(reason) + "</p>\n";
    }
    cells += "</div>\n";
  }
  if (!has_content) return {head.id, head.title, ""};
  const std::string id(head.id);
  std::string html = "<section id=\"" + id + "\" aria-labelledby=\"" + id + "-title\">\n";
  html += "<h2 id=\"" + id + "-title\">" + std::string(head.title) + "</h2>\n";
  if (!head.note.empty()) html += "<p class=\"note\">" + head.note + "</p>\n";
  html += "<div class=\"row\">\n" + cells + "</div>\n</section>\n";
  return {head.id, head.title, std::move(html)};
}

double full_width(Views charts) {
  constexpr double kWidths[] = {1140.0, 560.0, 400.0, 330.0};
  return kWidths[std::clamp<std::size_t>(charts.size(), 1, 4) - 1];
}

double half_width(Views charts) { return std::min(full_width(charts), 560.0); }

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
