#include "kit/write/html/comparison/figure_columns.h"
#include "kit/write/html/comparison/sections.h"
#include "kit/write/html/findings_list.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"

#include <algorithm>
#include <string>
#include <vector>

namespace measkit::html {
namespace {

std::string sign_of(bool passed) {
  return "<i aria-hidden=\"true\">" + std::string(passed ? "\u2713" : "\u2715") + "</i>";
}

std::string verdict_of(const SampleView& sample) {
  if (sample.verdicts.empty()) return "";
  const auto failed =
      static_cast<std::size_t>(std::ranges::count(sample.verdicts, false, &Verdict::passed));
  const std::string all = grouped(sample.verdicts.size()) +
                          (sample.verdicts.size() == 1 ? " tolerance" : " tolerances");
  const bool passed = failed == 0;
  return "<p class=\"verdict " + std::string(passed ? "passed" : "failed") + "\">" +
         sign_of(passed) + "<strong>" + (passed ? "Passed" : "Failed") + "</strong> " +
         (passed ? "within " + all
                 : grouped(failed) + " of " + all + (failed == 1 ? " is" : " are") + " not met") +
         "</p>\n";
}

std::string tolerances_of(const SampleView& sample) {
  if (sample.verdicts.empty()) return "";
  const std::vector<std::string> titles = {"Value", "Limit", "Verdict"};
  std::string html = number_table_head({"Tolerances", "Figure"}, titles);
  for (const Verdict& line : sample.verdicts) {
    const std::vector<std::string> cells = {
        line.value ? number_or_dash(*line.value, 2) : "not there", shortest(line.limit),
        "<span class=\"" + std::string(line.passed ? "passed" : "failed") + "\">" +
            sign_of(line.passed) + (line.passed ? "passed" : "failed") + "</span>"};
    html += number_row(html_text(line.figure, kLongName), cells);
  }
  return html + std::string(kTableEnd);
}

std::string findings_of(const SampleView& sample) {
  std::vector<Finding> findings = sample.comparison.findings;
  std::ranges::stable_sort(findings, std::ranges::greater(), &Finding::severity);
  const std::size_t shown = std::min(findings.size(), kMostFindings);
  std::vector<FindingView> views;
  for (const Finding& finding : std::span(findings).first(shown)) {
    views.push_back({finding.severity, html_text(finding.sentence, kLongValue), finding.line});
  }
  return findings_list(views, findings.size() - shown);
}

std::string formula_text(const SampleView& sample) {
  const ComparisonOptions& options = sample.comparison.options;
  if (sample.formula() == Measure::de76) return html_symbol(Measure::de76, options);
  return html_text(formula_name(sample.formula(), options.cmc_lightness, options.cmc_chroma));
}

std::string key_figures(const SampleView& sample) {
  const auto& colours = sample.comparison.colours;
  const Figures& figures = sample.comparison.of(ColourGroup::all).of(sample.formula());
  std::string html = "<p class=\"label\">" + formula_text(sample) + " of " +
                     grouped(colours.size()) + (colours.size() == 1 ? " colour" : " colours") +
                     "</p>\n<ul class=\"key-figures\">\n";
  for (const FigureColumn& column : kFigureColumns) {
    std::string name(column.long_title);
    if (column.value == &Figures::max && !sample.worst.empty()) {
      name += ", " + safe_label(sample, colours[sample.worst.front()]);
    }
    html += key_figure(text_of(sample.formula(), figures.*column.value), name);
  }
  return html + "</ul>\n";
}

// The chosen formula first.
std::vector<Measure> measures_of(const SampleView& sample) {
  std::vector<Measure> measures = {sample.formula()};
  for (std::size_t i = 0; i < kMeasures; ++i) {
    const auto measure = static_cast<Measure>(i);
    const bool is_there = sample.comparison.of(ColourGroup::all).of(measure).count > 0;
    if (measure != sample.formula() && is_there) measures.push_back(measure);
  }
  return measures;
}

std::string measures_table(const SampleView& sample, std::size_t samples) {
  std::vector<std::string> cells;
  for (const FigureColumn& column : kFigureColumns) {
    if (column.is_short || has_room(samples)) cells.emplace_back(column.title);
  }
  std::string html = number_table_head({"All measures", "Measure", true}, cells);
  for (const Measure measure : measures_of(sample)) {
    const Figures& figures = sample.comparison.of(ColourGroup::all).of(measure);
    const bool has_sign = measure >= Measure::dl && measure <= Measure::dh;
    cells.clear();
    for (const FigureColumn& column : kFigureColumns) {
      if (!column.is_short && !has_room(samples)) continue;
      cells.push_back(has_sign && !column.is_signed ? "" : text_of(measure, figures.*column.value));
    }
    html += number_row(html_symbol(measure, sample.comparison.options), cells);
  }
  return html + std::string(kTableEnd);
}

std::string list_of(const Chart& chart, const std::vector<std::uint32_t>& patches,
                    const char* title) {
  if (patches.empty()) return "";
  constexpr std::size_t kMostLabels = 100;
  const std::size_t shown = std::min(patches.size(), kMostLabels);
  std::string html = "<details>\n<summary>" + grouped(patches.size()) + " only in the " + title +
                     "</summary>\n<p class=\"note\">";
  for (std::size_t i = 0; i < shown; ++i) {
    html += (i == 0 ? "" : ", ") + html_text(patch_label(chart, patches[i]), kLongName);
  }
  if (shown < patches.size()) html += " and " + grouped(patches.size() - shown) + " more";
  return html + "</p>\n</details>\n";
}

std::string content_of(const SampleView& sample, std::size_t samples) {
  const Comparison& comparison = sample.comparison;
  if (comparison.is_refused()) {
    return verdict_of(sample) + "<p class=\"failure\"><strong>Not comparable</strong> " +
           html_text(comparison.refusal, kLongValue) + "</p>\n" + findings_of(sample) +
           tolerances_of(sample);
  }
  return verdict_of(sample) + "<p>" + html_text(comparison.match_sentence, kLongValue) + "</p>\n" +
         findings_of(sample) + tolerances_of(sample) + key_figures(sample) +
         measures_table(sample, samples) +
         list_of(*comparison.reference, comparison.only_in_reference, "reference") +
         list_of(*comparison.sample, comparison.only_in_sample, "sample");
}

}  // namespace

Section verdict_section(SampleViews samples) {
  std::string html = "<section id=\"summary\" aria-label=\"Summary\">\n";
  if (samples.size() > 1) html += "<h2>Summary</h2>\n";  // the samples have headings below it
  html += "<div class=\"row\">\n";
  for (const SampleView& sample : samples) {
    html += "<div class=\"cell\">\n" + sample_heading(samples, sample) +
            content_of(sample, samples.size()) + "</div>\n";
  }
  return {"summary", "Summary", html + "</div>\n</section>\n"};
}

}  // namespace measkit::html
