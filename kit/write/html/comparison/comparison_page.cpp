#include "kit/write/html/comparison/comparison_page.h"

#include "kit/write/html/comparison/comparison_style.h"
#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/page_frame.h"

#include <algorithm>
#include <vector>

namespace measkit::html {
namespace {

constexpr std::size_t kMostSamples = 8;

std::string title_of(SampleViews samples) {
  if (samples.empty()) return "No samples";
  return samples.size() == 1 ? samples.front().name : grouped(samples.size()) + " samples";
}

std::string header_of(SampleViews samples, std::size_t left_out) {
  std::string html =
      "<header>\n<p class=\"label\">Comparison report</p>\n<h1>" + title_of(samples) + "</h1>\n";
  if (!samples.empty()) {
    html += "<p class=\"chart-title\">compared with the reference " +
            html_text(samples.front().comparison.reference->name, kLongValue) + "</p>\n";
  }
  if (left_out > 0) {
    html += "<p class=\"note\">A page shows " + grouped(kMostSamples) +
            " samples: " + grouped(left_out) + " more left out.</p>\n";
  }
  return html;
}

}  // namespace

std::string comparison_page_of(std::span<const JudgedComparison> samples) {
  const std::size_t shown = std::min(samples.size(), kMostSamples);
  std::vector<SampleView> views;
  views.reserve(shown);
  for (const JudgedComparison& sample : samples.first(shown)) views.push_back(view_of(sample));
  std::vector<Section> sections;
  if (!views.empty()) {
    sections = {verdict_section(views),      overview_section(views), groups_section(views),
                distribution_section(views), heat_map_section(views), worst_section(views),
                vectors_section(views),      tones_section(views),    spectra_pairs_section(views),
                charts_section(views)};
  }
  return framed_page(
      {title_of(views), shown, header_of(views, samples.size() - shown), kComparisonStyle},
      sections);
}

}  // namespace measkit::html
