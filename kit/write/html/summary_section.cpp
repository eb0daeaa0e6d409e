#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"
#include "kit/write/words.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

std::string key_figure(const std::string& value, const std::string& name) {
  return "<li><strong>" + value + "</strong> " + name + "</li>\n";
}

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

struct SeverityLook {
  const char* css_class;
  const char* sign;  // tells the severity without colour, beside its word
};

SeverityLook look_of(Severity severity) {
  switch (severity) {
    case Severity::lost:
      return {"lost", "\u2715"};
    case Severity::doubtful:
      return {"doubtful", "?"};
    case Severity::repaired:
      return {"repaired", "\u2713"};
    case Severity::note:
      break;
  }
  return {"note", "i"};
}

std::string items_of(std::span<const FindingView> findings) {
  std::string html = "<ul>\n";
  for (const FindingView& finding : findings) {
    const SeverityLook look = look_of(finding.severity);
    html += "<li class=\"" + std::string(look.css_class) + "\"><strong><i aria-hidden=\"true\">" +
            look.sign + "</i>" + std::string(word_of(finding.severity)) + "</strong><span>" +
            finding.sentence;
    if (finding.line > 0) html += " <small>line " + std::to_string(finding.line) + "</small>";
    html += "</span></li>\n";
  }
  return html + "</ul>\n";
}

// The gravest findings stand open, the rest behind a line to click at.
std::string findings_of(const View& chart) {
  if (chart.findings.empty()) return "";
  constexpr std::size_t kMostOpen = 8;
  const std::span<const FindingView> all = chart.findings;
  const std::size_t open = std::min(all.size(), kMostOpen);
  std::string html = "<div class=\"findings\">\n<p class=\"label\">Findings</p>\n";
  html += items_of(all.first(open));
  const std::size_t more = all.size() - open + chart.more_findings;
  if (more == 0) return html + "</div>\n";
  html +=
      "<details>\n<summary>" + grouped(more) + " more</summary>\n" + items_of(all.subspan(open));
  if (chart.more_findings > 0) {
    html += "<p class=\"note\">and " + grouped(chart.more_findings) + " that are not listed</p>\n";
  }
  return html + "</details>\n</div>\n";
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
  std::string html = "<ul class=\"landmarks\" aria-label=\"Landmarks\">\n";
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

std::string summary_of(const View& chart) {
  return findings_of(chart) + key_figures(chart) + messages_of(chart) + landmarks_of(chart) +
         "<div class=\"entry-lists\">\n" + rows_of("Colour", chart.colour) +
         rows_of("Measuring conditions", chart.conditions) +
         rows_of("Instrument", chart.instrument) + rows_of("Sample", chart.sample) +
         rows_of("File", chart.facts) + "</div>\n";
}

std::string failure_of(const View& chart) {
  return "<p class=\"failure\"><strong>Not readable</strong> " + chart.name + "</p>\n" +
         findings_of(chart) + messages_of(chart);
}

}  // namespace

Section summary_section(Views charts) {
  std::string html = "<section id=\"summary\" aria-label=\"Summary\">\n<div class=\"row\">\n";
  for (const View& chart : charts) {
    html += "<div class=\"cell\">\n" + chart_heading(charts, chart);
    if (charts.size() > 1 && !chart.title.empty()) {
      html += "<p class=\"chart-title\">" + chart.title + "</p>\n";
    }
    html += (chart.is_loaded ? summary_of(chart) : failure_of(chart)) + "</div>\n";
  }
  return {"summary", "Summary", html + "</div>\n</section>\n"};
}

}  // namespace measkit::html
