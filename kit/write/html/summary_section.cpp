#include "kit/write/html/findings_list.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <algorithm>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

std::string key_figures(const View& chart) {
  std::string html =
      "<ul class=\"key-figures\">\n" +
      key_figure(grouped(chart.patch_count), chart.patch_count == 1 ? "patch" : "patches");
  if (chart.merged_count != 0 && chart.merged_count != chart.patch_count) {
    html += key_figure(grouped(chart.merged_count), "different");
  }
  if (!chart.device_space.empty()) {
    const std::size_t blank = chart.device_space.find(' ');
    html += blank == std::string::npos ? key_figure(chart.device_space, "device values")
                                       : key_figure(chart.device_space.substr(0, blank),
                                                    "device" + chart.device_space.substr(blank));
  }
  if (!chart.wavelengths.empty()) {
    html += key_figure(std::to_string(chart.wavelengths.size()), "spectral bands");
  }
  if (!chart.worst_repeats.empty()) {
    html += key_figure(decimal(chart.worst_repeats.front().de_max, 2),
                       "largest \u0394E*<sub>ab</sub> of repeats");
  }
  return html + "</ul>\n";
}

// "1 thing is in doubt", "3 things were repaired".
std::string count_of(const View& chart, Severity severity, const char* one, const char* several) {
  const auto count = static_cast<std::size_t>(
      std::ranges::count(chart.findings, severity, &FindingView::severity));
  if (count == 0) return "";
  return grouped(count) + (count == 1 ? " thing " : " things ") + (count == 1 ? one : several) +
         ". ";
}

std::string verdict_of(const View& chart) {
  const std::string lost = count_of(chart, Severity::lost, "was lost", "were lost");
  const std::string doubts = count_of(chart, Severity::doubtful, "is in doubt", "are in doubt");
  const std::string repairs = count_of(chart, Severity::repaired, "was repaired", "were repaired");
  const std::string text = lost + doubts + repairs;
  const bool is_grave = !lost.empty() || !doubts.empty();
  return std::string("<p class=\"verdict") + (is_grave ? " alert" : "") + "\">" +
         (text.empty() ? "Nothing had to be repaired. Nothing is in doubt." : text) + "</p>\n";
}

std::string badges_of(const View& chart) {
  std::string html = "<ul class=\"badges\" aria-label=\"Measuring conditions\">\n";
  for (const Badge& badge : chart.badges) {
    html += badge.value.empty() ? "<li class=\"absent\">" : "<li>";
    html += std::string(badge.name) + " <strong>" +
            (badge.value.empty() ? "unknown" : badge.value) + "</strong></li>\n";
  }
  return html + "</ul>\n";
}

std::string instrument_of(const View& chart) {
  return "<p class=\"instrument\">" +
         (chart.instrument_line.empty()
              ? std::string("The file names no instrument.")
              : "Instrument, as the file tells it: <q>" + chart.instrument_line + "</q>") +
         "</p>\n";
}

std::string messages_of(const View& chart) {
  if (chart.messages.empty()) return "";
  std::string html =
      "<div class=\"messages\">\n<p class=\"label\">Messages of the load</p>\n<ul>\n";
  for (const std::string& message : chart.messages) html += "<li>" + message + "</li>\n";
  if (chart.more_messages > 0) html += "<li>and " + grouped(chart.more_messages) + " more</li>\n";
  return html + "</ul>\n</div>\n";
}

std::string landmarks_of(const View& chart) {
  if (chart.landmarks.empty()) return "";
  constexpr std::size_t kOneRow = 6;
  std::string html = std::string("<ul class=\"landmarks") +
                     (chart.landmarks.size() <= kOneRow ? " few" : "") +
                     "\" aria-label=\"Landmarks\">\n";
  for (const LandmarkView& landmark : chart.landmarks) {
    html += "<li>" + colour_field(landmark.colour) + "<strong>" + landmark.name +
            "</strong><span>L* " + decimal(landmark.lab[0], 1) + "</span> <span>a* " +
            decimal(landmark.lab[1], 1) + "</span> <span>b* " + decimal(landmark.lab[2], 1) +
            "</span></li>\n";
  }
  return html + "</ul>\n";
}

std::string rows_of(const char* title, const std::vector<Row>& rows) {
  if (rows.empty()) return "";
  std::string html =
      "<div>\n<p class=\"label\">" + std::string(title) + "</p>\n<dl class=\"entries\">\n";
  for (const Row& row : rows) {
    html += "<dt>" + row.name + "</dt><dd>" + row.value;
    if (!row.source.empty()) html += " <small>" + row.source + "</small>";
    html += "</dd>\n";
  }
  return html + "</dl>\n</div>\n";
}

// Folded for charts side by side, which would be several screens high.
std::string entry_lists(const View& chart, bool is_alone) {
  const std::string html = "<div class=\"entry-lists\">\n" + rows_of("Colour", chart.colour) +
                           rows_of("Conditions, and who tells them", chart.conditions) +
                           rows_of("Instrument", chart.instrument) +
                           rows_of("Sample", chart.sample) + rows_of("File", chart.facts) +
                           "</div>\n";
  return is_alone ? html
                  : "<details>\n<summary>Colour, conditions, instrument, file</summary>\n" + html +
                        "</details>\n";
}

std::string summary_of(const View& chart, bool is_alone) {
  return verdict_of(chart) + findings_list(chart.findings, chart.more_findings) + badges_of(chart) +
         instrument_of(chart) + messages_of(chart) + key_figures(chart) + landmarks_of(chart) +
         entry_lists(chart, is_alone);
}

std::string failure_of(const View& chart) {
  return "<p class=\"failure\"><strong>Not readable</strong> " + chart.name + "</p>\n" +
         findings_list(chart.findings, chart.more_findings) + messages_of(chart);
}

}  // namespace

Section summary_section(Views charts) {
  std::string html = "<section id=\"summary\" aria-label=\"Summary\">\n";
  if (charts.size() > 1) html += "<h2>Summary</h2>\n";  // the charts have headings below it
  html += "<div class=\"row\">\n";
  for (const View& chart : charts) {
    html += "<div class=\"cell\">\n" + chart_heading(charts, chart);
    if (charts.size() > 1 && !chart.title.empty()) {
      html += "<p class=\"chart-title\">" + chart.title + "</p>\n";
    }
    html +=
        (chart.is_loaded ? summary_of(chart, charts.size() == 1) : failure_of(chart)) + "</div>\n";
  }
  return {"summary", "Summary", html + "</div>\n</section>\n"};
}

}  // namespace measkit::html
