#include "kit/write/html/page.h"

#include "kit/write/html/page_frame.h"
#include "kit/write/html/report_style.h"
#include "kit/write/html/sections.h"

#include <algorithm>
#include <vector>

namespace measkit::html {
namespace {

std::string header_of(Views charts) {
  std::string html = "<header>\n<p class=\"label\">Measurement report</p>\n<h1>";
  if (charts.size() == 1) {
    html += charts.front().name;
  } else {
    html += charts.empty() ? "No charts" : std::to_string(charts.size()) + " charts";
  }
  html += "</h1>\n";
  if (charts.size() == 1 && !charts.front().title.empty()) {
    html += "<p class=\"chart-title\">" + charts.front().title + "</p>\n";
  }
  return html;
}

std::string title_of(Views charts) {
  std::string title = charts.empty() ? "Measurement report" : charts.front().name;
  if (charts.size() > 1) title += " and " + std::to_string(charts.size() - 1) + " more";
  return title;
}

std::string page_of(Views charts) {
  const std::vector<Section> sections = {
      summary_section(charts),     figures_section(charts), tones_section(charts),
      grey_section(charts),        wedges_section(charts),  colours_section(charts),
      chart_section(charts),       spectra_section(charts), repeats_section(charts),
      patch_table_section(charts), values_section(charts),  keywords_section(charts)};
  std::size_t groups = 0;  // paper, channels, mixtures
  for (const View& chart : charts) groups = std::max(groups, chart.channels.size() + 2);
  const std::string style = report_style(groups);
  return framed_page({title_of(charts), charts.size(), header_of(charts), style, kReportScript},
                     sections);
}

}  // namespace

std::string html_of(std::span<const Chart> charts) {
  std::vector<View> views;
  views.reserve(charts.size());
  for (const Chart& chart : charts) views.push_back(view_of(chart));
  return page_of(views);
}

}  // namespace measkit::html
