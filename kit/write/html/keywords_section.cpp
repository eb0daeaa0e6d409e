#include "kit/write/html/numbers.h"
#include "kit/write/html/sections.h"

#include <string>

namespace measkit::html {
namespace {

std::string keywords_of(const View& chart) {
  if (chart.keywords.empty()) return "";
  const std::size_t count = chart.keywords.size() + chart.more_keywords;
  std::string html = "<details>\n<summary>" + grouped(count) +
                     (count == 1 ? " keyword" : " keywords") +
                     "</summary>\n<table class=\"keywords\">\n<thead><tr><th scope=\"col\">Keyword"
                     "</th><th scope=\"col\">Value</th></tr></thead>\n<tbody>\n";
  for (const Row& keyword : chart.keywords) {
    html += "<tr><th scope=\"row\">" + keyword.name + "</th><td>" + keyword.value + "</td></tr>\n";
  }
  html += "</tbody>\n</table>\n";
  if (chart.more_keywords > 0) {
    html += "<p class=\"note\">and " + grouped(chart.more_keywords) + " more</p>\n";
  }
  if (chart.empty_keywords > 0) {
    html += "<p class=\"note\">" + grouped(chart.empty_keywords) +
            (chart.empty_keywords == 1 ? " keyword" : " keywords") +
            " without a value left out</p>\n";
  }
  return html + "</details>\n";
}

}  // namespace

Section keywords_section(Views charts) {
  return section_of({"keywords", "Keywords", "", "No keywords in this file."}, charts, keywords_of);
}

}  // namespace measkit::html
