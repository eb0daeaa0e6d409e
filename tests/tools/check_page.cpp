// Reads a page of HTML from standard input and checks that its tags are closed, that it has no
// script but its own and nothing from elsewhere, and that it holds the texts given as arguments.
#include <algorithm>
#include <cctype>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

// HTML lets the ends of these be left out.
bool may_stay_open(const std::string& name) {
  return name == "li" || name == "tr" || name == "td" || name == "th";
}

// Tells what is wrong with the tags; empty when each one is closed in turn and attributes are
// quoted. References and text in between are looked at by the caller.
std::string fault_in_tags(const std::string& page) {
  std::vector<std::string> open;
  for (std::size_t at = page.find('<'); at != std::string::npos; at = page.find('<', at + 1)) {
    if (page.compare(at, 9, "<!DOCTYPE") == 0) continue;
    const bool is_end = page[at + 1] == '/';
    const std::size_t begin = at + (is_end ? 2 : 1);
    std::size_t end = begin;
    while (end < page.size() && std::isalnum(static_cast<unsigned char>(page[end])) != 0) ++end;
    const std::string name = page.substr(begin, end - begin);
    bool is_quoted = false;
    for (; end < page.size() && (is_quoted || page[end] != '>'); ++end) {
      if (page[end] == '"') is_quoted = !is_quoted;
      if (page[end] == '=' && !is_quoted && page[end + 1] != '"') return "attribute of " + name;
      if (page[end] == '<') return "< in " + name;
    }
    if (name.empty() || end == page.size()) return "no tag at " + page.substr(at, 20);
    if (page[end - 1] == '/') continue;
    if (!is_end) {
      open.push_back(name);
      continue;
    }
    while (!open.empty() && open.back() != name && may_stay_open(open.back())) open.pop_back();
    if (open.empty() || open.back() != name) {
      return "unexpected end of " + name;
    } else {
      open.pop_back();
    }
  }
  return open.empty() ? "" : "open " + open.back();
}

}  // namespace

int main(int argc, char** argv) {
  std::string page((std::istreambuf_iterator<char>(std::cin)), {});
  const std::size_t script = page.rfind("<script>\n");
  if (script != std::string::npos) page.erase(script, page.find("</script>", script) + 9 - script);
  const std::string fault = fault_in_tags(page);
  if (!fault.empty()) return std::cerr << fault << '\n', 1;
  const auto is_control = [](char c) { return (c >= 0 && c < ' ' && c != '\n') || c == '\x7F'; };
  if (std::ranges::any_of(page, is_control)) return std::cerr << "holds controls\n", 1;
  for (const char* text : {"<script", "<img", "<link", "src=\"", "url(", "@import", "href=\"h"}) {
    if (page.find(text) != std::string::npos) return std::cerr << "holds " << text << '\n', 1;
  }
  for (int i = 1; i < argc; ++i) {
    if (page.find(argv[i]) == std::string::npos) return std::cerr << "lacks " << argv[i] << '\n', 1;
  }
}
