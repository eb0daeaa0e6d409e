// What a page of comparisons must say, and in which order; how it looks is for eyes.
#include "kit/preflight/preflight.h"
#include "kit/write/html/comparison/comparison_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace measkit;        // NOLINT
using namespace measkit::html;  // NOLINT

Chart chart_of(std::string_view header, std::string_view fields, std::string_view rows) {
  const std::string text = "CGATS.17\n" + std::string(header) + "BEGIN_DATA_FORMAT\n" +
                           std::string(fields) + "\nEND_DATA_FORMAT\nBEGIN_DATA\n" +
                           std::string(rows) + "END_DATA\n";
  const Preflighted file = preflight(text, "chart.txt");
  return chart_of(*file.tables.front(), "<i>chart</i>");
}

std::string page_of(const Comparison& comparison, std::vector<Verdict> verdicts = {}) {
  const JudgedComparison sample = {comparison, std::move(verdicts)};
  return comparison_page_of(std::span(&sample, 1));
}

// The texts of a page in this order; empty, or the first that is missing.
std::string missing_in(const std::string& page, std::initializer_list<std::string_view> texts) {
  std::size_t at = 0;
  for (const std::string_view text : texts) {
    at = page.find(text, at);
    if (at == std::string::npos) return std::string(text);
  }
  return "";
}

// So many greys with the ids "0", "1", ... that all differ by 1.
struct Greys {
  explicit Greys(std::size_t count) {
    chart.patch_count = count;
    for (std::size_t i = 0; i < count; ++i) chart.ids.push_back(std::to_string(i));
    comparison.reference = comparison.sample = &chart;
    ComparedColour colour = {0, 0, 1, 1, {50, 0, 0}, {51, 0, 0}, {}};
    colour.measures.fill(1.0);
    for (std::uint32_t i = 0; i < count; ++i) {
      colour.reference_patch = colour.sample_patch = i;
      comparison.colours.push_back(colour);
    }
  }
  Chart chart;
  Comparison comparison;
};

constexpr std::string_view kIdLab = "SAMPLE_ID LAB_L LAB_A LAB_B";

TEST(ComparisonPage, TellsVerdictAndOtherConditionsBeforeAnyFigure) {
  const Chart reference = chart_of("MEASUREMENT_CONDITION \"M0\"\n", kIdLab,
                                   "\"<b>\" 50 0 0\n2 60 10 0\n3 70 0 20\nonly1 20 0 0\n");
  const Chart sample = chart_of("MEASUREMENT_CONDITION \"M1\"\n", kIdLab,
                                "\"<b>\" 51 0 0\n2 60 10 0\n3 70 0 22\nonly2 20 0 0\n");
  const Comparison comparison = compare(reference, sample, {{}, {}, Measure::de76});
  const std::string page =
      page_of(comparison, {{"all.de76.max", 1.5, 2.0, false}, {"all.<de00>.p95", 3.0, {}, true}});
  EXPECT_EQ(missing_in(page, {"<h1>&lt;i&gt;chart&lt;/i&gt;</h1>",
                              "<strong>Failed</strong> 1 of 2",
                              "M0, the sample M1",
                              "1 colour is only in the reference",
                              "all.de76.max",
                              "2.00",
                              "1.5",
                              "failed",
                              "all.&lt;de00&gt;.p95",
                              "not there",
                              "of 3 colours",
                              "<strong>1.00</strong> mean",
                              "<strong>1.00</strong> median",
                              "<strong>2.00</strong> max, 3",
                              "<summary>1 only in the reference</summary>",
                              "only1",
                              "<summary>1 only in the sample</summary>",
                              "only2",
                              "title=\"&lt;b&gt;&#10;1.00\"",
                              "title=\"2&#10;0.00\"",
                              "title=\"only1&#10;not compared\"",
                              "<strong>3</strong>",
                              "\u0394b* 2.00",
                              "<strong>&lt;b&gt;</strong>",
                              "\u0394L* 1.00",
                              "<td><strong>\u2260 M1</strong></td>"}),
            "");
  EXPECT_EQ(page.find("<b>\""), std::string::npos);
  EXPECT_EQ(page.find("<strong>2</strong>"), std::string::npos);  // does not differ
}

TEST(ComparisonPage, HasTheRefusalInPlaceOfFigures) {
  const Chart reference = chart_of("", kIdLab, "1 50 0 0\n2 60 10 0\n");
  const Chart sample = chart_of("", "SAMPLE_ID RGB_R RGB_G RGB_B", "1 0 0 0\n2 255 255 255\n");
  const Comparison refused = compare(reference, sample, {});
  const std::string page = page_of(refused, {{"all.de00.max", 1.0, {}, false}});
  EXPECT_EQ(missing_in(page, {"Failed", "Not comparable</strong> The sample has no Lab",
                              "all.de00.max", "id=\"charts\""}),
            "");
  EXPECT_EQ(page.find("mean"), std::string::npos);

  const Comparison same = compare(reference, reference, {});
  const std::vector<JudgedComparison> samples(9, {same, {}});
  std::vector<JudgedComparison> mixed = samples;
  mixed[1].comparison = refused;
  EXPECT_EQ(missing_in(comparison_page_of(mixed),
                       {"8 samples", "1 more left out", ">A</span>", "0.00", ">B</span>",
                        "Not comparable", "id=\"overview\"", "not comparable", "id=\"groups\"",
                        ">B</span>", "These charts cannot be compared.", ">H</span>"}),
            "");
  EXPECT_EQ(missing_in(comparison_page_of({}), {"No samples", "</html>"}), "");
}

TEST(ComparisonPage, DrawsOnlyNumbers) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  Greys greys(8);
  auto& colours = greys.comparison.colours;
  const double values[] = {kNan, std::numeric_limits<double>::infinity(), 1.0e300};
  for (std::size_t i = 0; i < std::size(values); ++i) {
    colours[i].measures.fill(values[i]);
    colours[i + 3].sample.a = values[i];
  }
  greys.comparison.wedges = {
      {"<Ink>",
       0,
       {{50.0, 6, {64.0, 50.0}, {66.5, kNan}}, {100.0, 7, {kNan, kNan}, {kNan, 100.0}}}}};
  std::string page = page_of(greys.comparison);
  page.resize(page.find("id=\"charts\""));  // speaks of illuminants
  for (const char* text : {"nan", "inf ", "inf<", "inf\""}) {
    EXPECT_EQ(page.find(text), std::string::npos) << text;
  }
  EXPECT_EQ(page.find("e+300", page.find("id=\"vectors\"")), std::string::npos);
  EXPECT_EQ(missing_in(page, {"title=\"0&#10;not compared\"", "title=\"3&#10;1.00\"", "&lt;Ink&gt;",
                              ">50</th>", ">64.0<", ">66.5<", ">2.5<", ">14.0<", ">16.5<", ">50.0<",
                              ">\u2013<", ">\u2013<", ">100</th>"}),
            "");
}

TEST(ComparisonPage, GivesRepeatsTheDifferenceOfTheirAverage) {
  constexpr std::string_view kFields = "SAMPLE_ID RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B";
  const Chart reference =
      chart_of("", kFields, "1 0 0 0 10 0 0\n2 255 255 255 90 0 0\n3 0 0 0 12 0 0\n");
  const Chart sample = chart_of("", kFields, "7 0 0 0 12 0 0\n8 255 255 255 90 0 3\n");
  const Comparison comparison = compare(reference, sample, {{}, {}, Measure::de76});
  EXPECT_EQ(missing_in(page_of(comparison), {"title=\"1&#10;1.00\"", "title=\"2&#10;3.00\"",
                                             "title=\"3&#10;1.00\"", "<dd>255 255 255</dd>"}),
            "");
}

TEST(ComparisonPage, IsThinnedAndSaysSo) {
  Greys greys(20'001);
  greys.comparison.colours[1].measures.fill(50.0);
  const std::string page = page_of(greys.comparison);
  EXPECT_EQ(missing_in(page, {"1 colour lies beyond 3; the largest difference is 50.00",
                              "above 2.5", "title=\"0 to 1&#10;50.00\"",
                              "title=\"2 to 3&#10;1.00\"", "Each cell stands for 2 patches",
                              "The 2,000 largest differences of 20,001."}),
            "");
  EXPECT_LT(page.size(), 2'000'000U);
}

}  // namespace
