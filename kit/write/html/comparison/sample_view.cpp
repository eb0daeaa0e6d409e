#include "kit/write/html/comparison/sample_view.h"

#include "kit/write/html/histogram.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/limits.h"
#include "kit/write/html/numbers.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace measkit::html {
namespace {

/// A symbol and its index, both safe to stand in HTML.
struct Symbol {
  std::string_view base;
  std::string index;
  std::string_view after;
};

Symbol symbol_of(Measure measure, const ComparisonOptions& options) {
  switch (measure) {
    case Measure::de76:
      return {"\u0394E*", "ab", ""};
    case Measure::de94:
      return {"\u0394E*", "94", ""};
    case Measure::de00:
      return {"\u0394E", "00", ""};
    case Measure::cmc:
      return {"\u0394E",
              "CMC(" + shortest(options.cmc_lightness) + ":" + shortest(options.cmc_chroma) + ")",
              ""};
    case Measure::dl:
      return {"\u0394L*", "", ""};
    case Measure::da:
      return {"\u0394a*", "", ""};
    case Measure::db:
      return {"\u0394b*", "", ""};
    case Measure::dc:
      return {"\u0394C*", "ab", ""};
    case Measure::dh:
      return {"\u0394H*", "ab", ""};
    case Measure::rms:
      return {"Spectral RMS", "", ""};
    case Measure::de00_a:
      return {"\u0394E", "00", " under A"};
    case Measure::de00_f11:
      break;
  }
  return {"\u0394E", "00", " under F11"};
}

}  // namespace

bool SampleView::has_failed() const {
  return std::ranges::any_of(verdicts, [](const Verdict& line) { return !line.passed; });
}

std::span<const std::uint32_t> SampleView::worst_that_differ(std::size_t most) const {
  const auto differs = [this](std::uint32_t i) {
    return comparison.colours[i].of(formula()) > 0.0;
  };
  const auto shown =
      std::ranges::find_if_not(std::span(worst).first(std::min(most, worst.size())), differs);
  return {worst.data(), static_cast<std::size_t>(std::to_address(shown) - worst.data())};
}

SampleView view_of(const JudgedComparison& sample) {
  const Comparison& comparison = sample.comparison;
  SampleView view = {
      comparison, sample.verdicts, html_text(comparison.sample->name, kLongValue), {}, {}};
  std::vector<std::pair<double, std::uint32_t>> order;
  for (std::size_t i = 0; i < comparison.colours.size(); ++i) {
    const double difference = comparison.colours[i].of(view.formula());
    if (!is_drawable(difference)) continue;
    view.differences.push_back(difference);
    order.emplace_back(-difference, static_cast<std::uint32_t>(i));
  }
  std::ranges::sort(order);
  for (const auto& [difference, colour] : order) view.worst.push_back(colour);
  return view;
}

Section section_of(const SectionHead& head, SampleViews samples,
                   const std::function<std::string(const SampleView&)>& content_of) {
  std::vector<Cell> cells;
  for (const SampleView& sample : samples) {
    const bool is_refused = sample.comparison.is_refused();
    cells.push_back({sample_heading(samples, sample), is_refused ? "" : content_of(sample),
                     is_refused ? "These charts cannot be compared." : head.missing});
  }
  return section_of(head, cells);
}

Section section_of(const SectionHead& head, std::string_view html) {
  const Cell cell = {"", std::string(html), ""};
  return section_of(head, std::span(&cell, 1));
}

std::string sample_heading(SampleViews samples, const SampleView& sample) {
  if (samples.size() == 1) return "";
  const auto position = static_cast<std::size_t>(&sample - samples.data());
  return "<h3>" + lettered(position, sample.name) + "</h3>\n";
}

std::string html_symbol(Measure measure, const ComparisonOptions& options) {
  const Symbol symbol = symbol_of(measure, options);
  return std::string(symbol.base) +
         (symbol.index.empty() ? "" : "<sub>" + symbol.index + "</sub>") +
         std::string(symbol.after);
}

std::string svg_symbol(Measure measure, const ComparisonOptions& options) {
  const Symbol symbol = symbol_of(measure, options);
  return std::string(symbol.base) + "<tspan class=\"sub\" dy=\"3\">" + symbol.index + "</tspan>";
}

std::string number_or_dash(double value, int decimals) {
  return std::isfinite(value) ? decimal(value, decimals) : "\u2013";
}

std::string text_of(Measure measure, double value) {
  return number_or_dash(value, measure == Measure::rms ? 4 : 2);
}

std::string lab_text(const Lab& lab) {
  return "<span>L* " + number_or_dash(lab.l, 1) + "</span> <span>a* " + number_or_dash(lab.a, 1) +
         "</span> <span>b* " + number_or_dash(lab.b, 1) + "</span>";
}

std::string hex_of(const Lab& lab) {
  const Triple values = {lab.l, lab.a, lab.b};
  return std::ranges::all_of(values, is_drawable) ? hex_colour(values) : "";
}

std::string swatch_pair(const ComparedColour& colour) {
  return "<span class=\"pair\">" + colour_field(hex_of(colour.reference)) +
         colour_field(hex_of(colour.sample)) + "</span>";
}

std::string safe_label(const SampleView& sample, const ComparedColour& colour) {
  return html_text(label_of(sample.comparison, colour), kLongName);
}

double scale_end(SampleViews samples) {
  constexpr double kFar = 3.0;
  double largest = 0.0;
  double percentile = 0.0;
  for (const SampleView& sample : samples) {
    largest = std::max(largest, quantile_of(sample.differences, 1.0));
    percentile = std::max(percentile, quantile_of(sample.differences, 0.95));
  }
  return percentile > 0.0 ? std::min(largest, kFar * percentile) : largest;
}

std::string beyond_note(const SampleView& sample, double end) {
  const auto beyond =
      std::ranges::count_if(sample.differences, [end](double value) { return value > end; });
  if (beyond == 0) return "";
  return "<p class=\"note\">" + grouped(static_cast<std::size_t>(beyond)) +
         (beyond == 1 ? " colour lies" : " colours lie") + " beyond " + shortest(end) +
         "; the largest difference is " + decimal(quantile_of(sample.differences, 1.0), 2) +
         ".</p>\n";
}

std::string number_row(std::string_view name, std::span<const std::string> numbers) {
  std::string html = "<tr><th scope=\"row\">" + std::string(name) + "</th>";
  for (const std::string& number : numbers) html += "<td class=\"number\">" + number + "</td>";
  return html + "</tr>\n";
}

std::string number_table_head(const TableHead& head, std::span<const std::string> titles) {
  std::string html = "<div class=\"scroll\">\n<table class=\"figures-table" +
                     std::string(head.first_row_leads ? " leading" : "") + "\">\n";
  if (!head.caption.empty()) html += "<caption>" + std::string(head.caption) + "</caption>\n";
  html += "<thead><tr><th scope=\"col\">" + std::string(head.name) + "</th>";
  for (const std::string& title : titles) {
    html += "<th scope=\"col\" class=\"number\">" + title + "</th>";
  }
  return html + "</tr></thead>\n<tbody>\n";
}

}  // namespace measkit::html
