#include "kit/measkit.h"

#include "kit/measkit_document.h"
#include "kit/write/html/page.h"
#include "kit/write/json.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

using measkit::Document;
using measkit::Finding;
using measkit::guarded;
using measkit::has_chart;
using measkit::Opening;

namespace {

struct FindingList {
  std::span<const Finding> list;
  std::size_t more;
};

// Those of a chart are known when it is gathered.
FindingList findings_of(const mk_document* document, int chart) noexcept {
  if (document != nullptr && chart == -1) {
    const measkit::Findings& findings = document->document->findings();
    return {findings.list(), findings.more()};
  }
  if (!has_chart(document, chart)) return {};
  return guarded<FindingList>({}, [=] {
    const measkit::Chart& gathered = document->document->charts()[static_cast<std::size_t>(chart)];
    return FindingList{gathered.findings, gathered.more_findings};
  });
}

const Finding* finding_at(const mk_document* document, int chart, int position) noexcept {
  const std::span<const Finding> list = findings_of(document, chart).list;
  const bool exists = position >= 0 && static_cast<std::size_t>(position) < list.size();
  return exists ? &list[static_cast<std::size_t>(position)] : nullptr;
}

int count_of(std::size_t count) {
  return static_cast<int>(std::min(count, static_cast<std::size_t>(INT_MAX)));
}

Opening opening_of(mk_options options) {
  return options == MK_AS_IS ? Opening::as_is : Opening::repair;
}

}  // namespace

mk_document* mk_open_file(const char* path, mk_options options) noexcept {
  return guarded<mk_document*>(nullptr, [=] {
    return std::make_unique<mk_document>(
               mk_document{Document::open_file(path == nullptr ? "" : path, opening_of(options))})
        .release();
  });
}

mk_document* mk_open_block(std::size_t length, const char* block, const char* name,
                           mk_options options) noexcept {
  return guarded<mk_document*>(nullptr, [=] {
    return std::make_unique<mk_document>(
               mk_document{Document::open_block(
                   block == nullptr ? std::string() : std::string(block, length),
                   name == nullptr ? "" : name, opening_of(options))})
        .release();
  });
}

void mk_close(mk_document** document) noexcept {
  if (document == nullptr) return;
  delete *document;
  *document = nullptr;
}

const char* mk_version() noexcept { return parser_version(); }

int mk_num_charts(const mk_document* document) noexcept {
  return document == nullptr ? 0 : count_of(document->document->size());
}

const char* mk_chart_name(const mk_document* document, int chart) noexcept {
  if (!has_chart(document, chart)) return nullptr;
  return document->document->chart_name(static_cast<std::size_t>(chart)).c_str();
}

void* mk_chart_handle(const mk_document* document, int chart) noexcept {
  if (!has_chart(document, chart)) return nullptr;
  return document->document->plain(static_cast<std::size_t>(chart)).loaded.handle();
}

const char* mk_plain_text(mk_document* document, int chart, std::size_t* length) noexcept {
  if (length != nullptr) *length = 0;
  if (!has_chart(document, chart)) return nullptr;
  return guarded<const char*>(nullptr, [=] {
    const auto position = static_cast<std::size_t>(chart);
    const measkit::PlainTable& plain = document->document->plain(position);
    const char* text = plain.made.c_str();
    if (plain.text.data() != plain.made.data()) {
      document->plain_texts.resize(document->document->size());
      std::string& copy = document->plain_texts[position];
      if (copy.size() != plain.text.size()) copy = plain.text;
      text = copy.c_str();
    }
    if (length != nullptr) *length = plain.text.size();
    return text;
  });
}

int mk_num_findings(const mk_document* document, int chart) noexcept {
  return count_of(findings_of(document, chart).list.size());
}

int mk_num_more_findings(const mk_document* document, int chart) noexcept {
  return count_of(findings_of(document, chart).more);
}

const char* mk_finding_code(const mk_document* document, int chart, int finding) noexcept {
  const Finding* found = finding_at(document, chart, finding);
  return found == nullptr ? nullptr : found->code.data();  // codes are literals
}

const char* mk_finding_sentence(const mk_document* document, int chart, int finding) noexcept {
  const Finding* found = finding_at(document, chart, finding);
  return found == nullptr ? nullptr : found->sentence.c_str();
}

mk_severity mk_finding_severity(const mk_document* document, int chart, int finding) noexcept {
  const Finding* found = finding_at(document, chart, finding);
  return found == nullptr ? MK_NOTE : static_cast<mk_severity>(found->severity);
}

int mk_finding_line(const mk_document* document, int chart, int finding) noexcept {
  const Finding* found = finding_at(document, chart, finding);
  return found == nullptr ? 0 : count_of(found->line);
}

const char* mk_json(mk_document* document) noexcept {
  if (document == nullptr) return nullptr;
  return guarded<const char*>(nullptr, [=] {
    if (document->json.empty())
      document->json = measkit::to_json(document->document->name(), document->document->charts(),
                                        document->document->findings());
    return document->json.c_str();
  });
}

const char* mk_html(mk_document* document) noexcept { return mk_html_of(&document, 1); }

const char* mk_html_of(mk_document* const* documents, int count) noexcept {
  if (documents == nullptr || count < 1 || documents[0] == nullptr) return nullptr;
  return guarded<const char*>(nullptr, [=] {
    std::vector<measkit::Chart> charts;
    for (int i = 0; i < count; ++i) {
      if (documents[i] == nullptr) continue;
      for (measkit::Chart& chart : documents[i]->document->page_charts()) {
        charts.push_back(std::move(chart));
      }
    }
    std::string html = measkit::html::html_of(charts);
    documents[0]->html = std::move(html);
    return documents[0]->html.c_str();
  });
}
