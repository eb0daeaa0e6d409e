// The parts of a report that can be right or wrong; how it looks is for eyes.
#include "tools/report/axis.h"
#include "tools/report/histogram.h"
#include "tools/report/html_text.h"
#include "tools/report/numbers.h"
#include "tools/report/svg_path.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tools::report;  // NOLINT

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

}  // namespace
