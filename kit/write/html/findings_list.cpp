#include "kit/write/html/findings_list.h"

#include "kit/write/html/numbers.h"
#include "kit/write/words.h"

#include <algorithm>

namespace measkit::html {
namespace {

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

}  // namespace

std::string findings_list(std::span<const FindingView> findings, std::size_t not_listed) {
  if (findings.empty()) return "";
  constexpr std::size_t kMostOpen = 8;
  const std::size_t open = std::min(findings.size(), kMostOpen);
  std::string html = "<div class=\"findings\">\n<p class=\"label\">Findings</p>\n";
  html += items_of(findings.first(open));
  const std::size_t more = findings.size() - open + not_listed;
  if (more == 0) return html + "</div>\n";
  html += "<details>\n<summary>" + grouped(more) + " more</summary>\n" +
          items_of(findings.subspan(open));
  if (not_listed > 0) {
    html += "<p class=\"note\">and " + grouped(not_listed) + " that are not listed</p>\n";
  }
  return html + "</details>\n</div>\n";
}

}  // namespace measkit::html
