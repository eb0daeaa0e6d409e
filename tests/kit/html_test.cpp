// The parts of a page that can be right or wrong; how it looks is for eyes.
#include "kit/write/html/axis.h"
#include "kit/write/html/chart_layout.h"
#include "kit/write/html/histogram.h"
#include "kit/write/html/html_text.h"
#include "kit/write/html/line_thinning.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/page.h"
#include "kit/write/html/svg_path.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace measkit;        // NOLINT
using namespace measkit::html;  // NOLINT

TEST(HtmlText, LetsNoMarkupAndNoControlsThrough) {
  const struct {
    std::string_view text;
    std::string html;
  } cases[] = {
      {"<script>\"a\" & 'b'</script>",
       "&lt;script&gt;&quot;a&quot; &amp; &#39;b&#39;&lt;/script&gt;"},
      {"&lt;", "&amp;lt;"},
      {"2\xB0 \xC3\xA9\xF0\x9F\x8E\xA8", "2\u00B0 \u00E9\U0001F3A8"},  // Latin-1, then UTF-8
      {"a\tb\r\nc", "a b  c"},
      {std::string_view("\0\x1B\x7F", 3), "\uFFFD\uFFFD\uFFFD"},
      {"\x9B\xC2\x9B", "\uFFFD\uFFFD"},              // C1 in either encoding
      {"\xE2\x80\xAE\xEF\xBF\xBF", "\uFFFD\uFFFD"},  // turns writing; none
      {"\xED\xA0\x80", "\u00ED\u00A0\uFFFD"},        // surrogate
  };
  for (const auto& c : cases) EXPECT_EQ(html_text(c.text), c.html);
  EXPECT_EQ(html_text("\xC3\xA9<<", 2), "\u00E9&lt;\u2026");
  EXPECT_EQ(html_text("ab", 2), "ab");
}

std::string tick_texts(double low, double high, int most_steps) {
  const Axis axis = axis_over(low, high, most_steps);
  std::string texts;
  for (const double tick : ticks_of(axis)) texts += tick_text(axis, tick) + ' ';
  return texts;
}

TEST(Axis, BeginsAndEndsAtRoundNumbers) {
  EXPECT_EQ(tick_texts(0.0, 100.0, 5), "0 20 40 60 80 100 ");
  EXPECT_EQ(tick_texts(-71.3, 88.0, 4), "\u2212100 \u221250 0 50 100 ");
  EXPECT_EQ(tick_texts(0.0, 0.3, 6), "0.00 0.05 0.10 0.15 0.20 0.25 0.30 ");
  EXPECT_EQ(tick_texts(5.0, 5.0, 2), "5.0 5.5 6.0 ");
  EXPECT_EQ(ticks_of({380.0, 730.0, 100.0}), (std::vector{400.0, 500.0, 600.0, 700.0}));
}

TEST(Extent, LeavesOutWhatNoPlotCanShow) {
  Extent extent;
  extent.add(std::numeric_limits<double>::quiet_NaN());
  extent.add(-std::numeric_limits<double>::infinity());
  extent.add(1.0e300);
  EXPECT_TRUE(extent.is_empty());
  extent.add(2.0);
  extent.add(-3.0);
  EXPECT_EQ(extent.low(), -3.0);
  EXPECT_EQ(extent.high(), 2.0);
}

TEST(Histogram, PutsBoundsIntoTheClassAboveAndTheLastIntoTheLast) {
  const std::vector<double> values = {0.0, 0.49, 0.5, 1.0, 1.5, 1.6, -0.1};
  EXPECT_EQ(histogram_of(values, 0.5, 3), (std::vector<std::size_t>{2, 1, 2}));
  EXPECT_EQ(quantile_of({4.0, 1.0, 3.0, 2.0}, 0.5), 2.0);
  EXPECT_EQ(quantile_of({4.0, 1.0, 3.0, 2.0}, 0.95), 4.0);
  EXPECT_EQ(quantile_of({}, 0.5), 0.0);
}

TEST(Numbers, HaveRealMinusSignsAndNoNegativeZero) {
  EXPECT_EQ(decimal(-36.72, 1), "\u221236.7");
  EXPECT_EQ(decimal(-0.04, 1), "0.0");
  EXPECT_EQ(shortest(8.5), "8.5");
  EXPECT_EQ(shortest(-std::numeric_limits<double>::infinity()), "\u2212inf");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1234567), "1,234,567");
}

TEST(SvgPath, StepsInTenthsWithoutDrifting) {
  SvgPath path;
  for (const double x : {10.0, 10.04, 10.08, 10.12}) path.add(x, 5.0);
  path.lift();
  path.add(0.0, 4.5);
  EXPECT_EQ(path.data(), "m10 5 0 0 .1 0 0 0m-10.1-.5");
}

TEST(ThinnedLine, KeepsCornersAndStaysWithinTheTolerance) {
  const std::vector<Point> line = {{0, 0}, {1, 0.1}, {2, -0.1}, {3, 5}, {4, 10}, {5, 15}, {6, 15}};
  std::vector<double> kept;
  for (const Point& point : thinned_line(line, 0.2)) kept.push_back(point.x);
  EXPECT_EQ(kept, (std::vector<double>{0, 2, 5, 6}));
  const std::vector<Point> drift = {{0, 0}, {1, 0.15}, {2, 0.4}, {3, 0.8}, {4, 1.4}};
  EXPECT_GT(thinned_line(drift, 0.1).size(), 2U);
  EXPECT_TRUE(thinned_line({}, 1.0).empty());
}

std::string page_of(const Chart& chart) { return html_of(std::span(&chart, 1)); }

// Whether the texts stand in the page in this order.
bool holds_in_order(const std::string& page, std::initializer_list<std::string_view> texts) {
  std::size_t at = 0;
  return std::ranges::all_of(texts, [&](std::string_view text) {
    at = page.find(text, at);
    return at != std::string::npos;
  });
}

Values values_of(std::size_t width, std::initializer_list<double> numbers) {
  Values values;
  std::ranges::copy(numbers, values.reset(width, numbers.size() / width));
  return values;
}

// White and black of a display, in this order.
Chart display_chart() {
  Chart chart;
  chart.is_loaded = chart.is_rgb = true;
  chart.patch_count = chart.merged.count = 2;
  chart.ids = {"<1>", ""};
  chart.device = chart.merged.device = values_of(3, {255, 255, 255, 0, 0, 0});
  chart.lab = chart.merged.lab = values_of(3, {100, 0, 0, 2, 0, 0});
  chart.channels = {
      {"Red", "RGB_R", {}, {}, {}}, {"Green", "RGB_G", {}, {}, {}}, {"Blue", "B", {}, {}, {}}};
  chart.merged.members = {0, 1};
  chart.merged.starts = {0, 1, 2};
  chart.paper_white = 1;
  chart.landmarks = {{LandmarkKind::white, "White", 0}, {LandmarkKind::black, "Black", 1}};
  return chart;
}

TEST(Page, ShowsTheGravestFindingsFirstAndCountsTheRest) {
  Chart chart = display_chart();
  chart.findings = {{"a", Severity::note, "n", 0},
                    {"b", Severity::doubtful, "d", 0},
                    {"c", Severity::lost, "<l>", 12},
                    {"d", Severity::repaired, "r", 0}};
  for (int i = 0; i < 97; ++i) chart.findings.push_back({"e", Severity::note, "n", 0});
  chart.more_findings = 5;
  EXPECT_TRUE(holds_in_order(
      page_of(chart),
      {"lost</strong><span>&lt;l&gt; <small>line 12</small>", "doubtful</strong><span>d</span>",
       "repaired</strong><span>r</span>", "note</strong><span>n</span>", "98 more",
       "and 6 that are not listed", "2</strong> patches"}));
  chart.is_loaded = false;
  EXPECT_TRUE(holds_in_order(page_of(chart), {"Not readable", "&lt;l&gt;"}));
}

TEST(Page, SaysWhichConditionsTheFileDoesNotState) {
  Chart chart = display_chart();
  chart.lab_sentence = "Lab is the file's own.";
  chart.instrument = "Maker X, 45/0";
  chart.conditions.observer = {"10", "WORDS", "D65 and 10 degrees", 3};
  chart.conditions.illuminant = {"D65", "WORDS", "D65 and 10 degrees", 3};
  chart.conditions.geometry = {"45/0", "INSTRUMENTATION", "Maker X, 45/0", 4};
  chart.instrument_answers = {{"model", "X"}, {"geometry", "0/45"}, {"serial number", {}}};
  const std::string page = page_of(chart);
  EXPECT_TRUE(holds_in_order(
      page, {"M condition <strong>unknown", "illuminant <strong>D65", "observer <strong>10\u00B0",
             "backing <strong>unknown", "<q>Maker X, 45/0</q>", "Lab is the file&#39;s own.",
             "<dd>D65 <small>WORDS \u201CD65 and 10 degrees\u201D</small></dd>",
             "<dd>10\u00B0 <small>WORDS</small></dd>",
             "<dt>geometry</dt><dd>45/0 <small>INSTRUMENTATION</small></dd>",
             "<dt>model</dt><dd>X</dd>"}));
  for (const char* text : {"0/45", "serial number", "<dt>backing"}) {
    EXPECT_EQ(page.find(text), std::string::npos) << text;
  }
}

TEST(Page, NamesPatchesAndLandmarksOfTheirOwnScale) {
  const std::string page = page_of(display_chart());
  EXPECT_TRUE(holds_in_order(
      page, {"<strong>White</strong><span>L* 100.0", "<strong>Black</strong><span>L* 2.0",
             "title=\"&lt;1&gt;&#10;R 255 G 255 B 255&#10;Lab 100.0",
             "title=\"#1&#10;R 0 G 0 B 0&#10;Lab 2.0"}));
  EXPECT_EQ(page.find("Paper"), std::string::npos);
}

TEST(ChartLayout, FollowsPlacesWithTheLongerSideAcrossElseRowLengthsElseTheFile) {
  constexpr std::uint32_t kNone = ChartLayout::kNoPatch;
  const struct {
    Texts locations;
    std::size_t columns;
    std::vector<std::uint32_t> patches;
    std::string_view placed_by;
  } cases[] = {
      {{"A1", "A2", "b1", "B2", "AA1", "AA2"}, 3, {0, 2, 4, 1, 3, 5}, "locations"},
      {{"A10", "A2", "A3", "B3"}, 3, {1, 2, 0, kNone, 3, kNone}, "locations"},
      {{"A1", "A1", "B1"}, 3, {0, 1, 2}, ""},           // twice
      {{"A1", "B2", "C3", "D4"}, 3, {0, 1, 2, 3}, ""},  // mostly empty
      {{"A1", "B1", ""}, 3, {0, 1, 2}, ""},
      {{"A1", "ABC1", "B99999"}, 3, {0, 1, 2}, ""},
      {{"1a", "2a", "1B", "2B", "1C", "2C"}, 3, {0, 2, 4, 1, 3, 5}, "locations"},
  };
  for (const auto& c : cases) {
    Chart chart;
    chart.locations = c.locations;
    chart.patch_count = c.locations.size();
    const ChartLayout layout = layout_of(chart);
    EXPECT_EQ(layout.columns, c.columns) << c.locations[1];
    EXPECT_EQ(layout.patches, c.patches) << c.locations[1];
    EXPECT_EQ(layout.placed_by, c.placed_by) << c.locations[1];
  }
  Chart chart;
  chart.patch_count = 2;
  chart.locations = {"1", "2"};
  chart.ids = {"A1", "B1"};
  EXPECT_EQ(layout_of(chart).placed_by, "ids");
  Chart strip;
  strip.patch_count = 50;
  for (int i = 1; i <= 50; ++i) strip.ids.push_back("P" + std::to_string(i));
  EXPECT_EQ(layout_of(strip).placed_by, "");
  strip.keywords = {{"LGOROWLENGTH", "51"}, {"ROW_LENGTH", "0"}, {"STEPS_IN_PASS", "25"}};
  EXPECT_EQ(layout_of(strip).columns, 25U);
}

TEST(Page, IsThinnedForFilesOfAnySize) {
  constexpr std::size_t kPatches = 10'001;
  Chart chart = display_chart();
  chart.patch_count = kPatches;
  chart.ids.assign(kPatches, "id");
  double* const lab = chart.lab.reset(3, kPatches);
  std::fill(lab, lab + 3 * kPatches, 50.0);
  chart.device = Values();
  chart.keywords.assign(501, {"keyword", "value"});
  chart.unused_columns.assign(41, "column");
  chart.messages.assign(21, "message");
  EXPECT_TRUE(holds_in_order(
      page_of(chart), {"and 1 more", "column and 1 more", "The first 10,000 of 10,001 patches",
                       "The first 2,000 of 10,001 patches", "501 keywords", "and 1 more"}));
}

}  // namespace
