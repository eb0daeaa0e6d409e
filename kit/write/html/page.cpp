#include "kit/write/html/page.h"

#include "api/measdata.h"
#include "kit/write/html/sections.h"

#include <vector>

namespace measkit::html {
namespace {

std::string head_of(Views charts) {
  std::string title = charts.empty() ? "Measurement report" : charts.front().name;
  if (charts.size() > 1) title += " and " + std::to_string(charts.size() - 1) + " more";
  return "<!DOCTYPE html>\n"
         "<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\">\n<head>\n"
         "<meta charset=\"utf-8\"/>\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
         "<meta name=\"color-scheme\" content=\"light dark\"/>\n"
         "<title>" +
         title + "</title>\n<style>\n" + std::string(kStyle) + "</style>\n</head>\n";
}

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

std::string navigation_of(const std::vector<Section>& sections) {
  std::string html = "<nav aria-label=\"Sections\">\n";
  for (const Section& section : sections) {
    if (section.html.empty()) continue;
    html += "<a href=\"#" + std::string(section.id) + "\">" + std::string(section.title) + "</a>\n";
  }
  return html + "</nav>\n";
}

std::string page_of(Views charts) {
  const std::vector<Section> sections = {summary_section(charts), patches_section(charts),
                                         spectra_section(charts), colours_section(charts),
                                         wedges_section(charts),  repeats_section(charts),
                                         values_section(charts),  keywords_section(charts)};
  std::string html = head_of(charts) + "<body style=\"--charts:" + std::to_string(charts.size()) +
                     "\">\n" + header_of(charts) + navigation_of(sections) + "</header>\n<main>\n";
  for (const Section& section : sections) html += section.html;
  return html + "</main>\n<footer>measdata " + parser_version() + "</footer>\n</body>\n</html>\n";
}

}  // namespace

std::string html_of(std::span<const Chart> charts) {
  std::vector<View> views;
  views.reserve(charts.size());
  for (const Chart& chart : charts) views.push_back(view_of(chart));
  return page_of(views);
}

}  // namespace measkit::html
