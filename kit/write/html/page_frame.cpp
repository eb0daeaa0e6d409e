#include "kit/write/html/page_frame.h"

#include "api/measdata.h"

namespace measkit::html {
namespace {

std::string navigation_of(std::span<const Section> sections) {
  std::string html = "<nav aria-label=\"Sections\">\n";
  for (const Section& section : sections) {
    if (section.html.empty()) continue;
    html += "<a href=\"#" + std::string(section.id) + "\">" + std::string(section.title) + "</a>\n";
  }
  return html + "</nav>\n";
}

}  // namespace

std::string framed_page(const PageHead& head, std::span<const Section> sections) {
  std::string html =
      "<!DOCTYPE html>\n"
      "<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\">\n<head>\n"
      "<meta charset=\"utf-8\"/>\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
      "<meta name=\"color-scheme\" content=\"light dark\"/>\n"
      "<title>" +
      head.title + "</title>\n<style>\n" + std::string(kStyle) + std::string(head.style) +
      "</style>\n</head>\n<body style=\"--charts:" + std::to_string(head.columns) +
      "; --least:" + (head.columns > 4 ? "250px" : "300px") + "\">\n" + head.header +
      navigation_of(sections) + "</header>\n<main>\n";
  for (const Section& section : sections) html += section.html;
  html += std::string("</main>\n<footer>measdata ") + parser_version() + "</footer>\n";
  if (!head.script.empty()) html += "<script>\n" + std::string(head.script) + "</script>\n";
  return html + "</body>\n</html>\n";
}

}  // namespace measkit::html
