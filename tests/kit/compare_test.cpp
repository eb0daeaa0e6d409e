// Two charts against each other. Expectations are derived by hand.
#include "kit/compare/average.h"
#include "kit/compare/comparison.h"
#include "kit/compare/tolerances.h"
#include "kit/document.h"
#include "kit/write/comparison_json.h"
#include "kit/write/comparison_text.h"
#include "kit/write/measurement_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace measkit;

constexpr std::string_view kFields = "SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B";
constexpr std::string_view kRows =
    "1 0 0 0 0 95 0 0\n"
    "2 100 0 0 0 55 -37 -50\n"
    "3 0 100 0 0 48 74 -3\n"
    "4 0 0 100 0 89 -5 93\n"
    "5 0 0 0 100 16 0 0\n"
    "6 100 100 0 0 24 22 -46\n"
    "7 50 0 0 0 75 -18 -25\n"
    "8 40 30 30 0 60 1 1\n"
    "9 0 0 0 50 60 0 0\n";

// Keeps the document, to which the chart belongs.
struct Opened {
  std::unique_ptr<Document> document;
  const Chart& chart;
};

Opened opened(std::string_view fields, std::string_view rows, std::string_view header = "") {
  std::string text = "CGATS.17\n" + std::string(header) + "BEGIN_DATA_FORMAT\n" +
                     std::string(fields) + "\nEND_DATA_FORMAT\nBEGIN_DATA\n" + std::string(rows) +
                     "END_DATA\n";
  auto document = Document::open_block(std::move(text), "chart.txt", Opening::repair);
  const Chart& chart = document->charts().front();
  return {std::move(document), chart};
}

Opened opened(std::string_view rows) { return opened(kFields, rows); }

// A line for each row whose id and Lab `change` may replace.
template <typename Change>
std::string changed_rows(Change change) {
  std::istringstream rows{std::string(kRows)};
  std::vector<std::string> lines;
  for (std::string line; std::getline(rows, line);) {
    std::istringstream cells(line);
    std::string id, c, m, y, k;
    Lab lab{};
    cells >> id >> c >> m >> y >> k >> lab.l >> lab.a >> lab.b;
    change(id, lab);
    std::ostringstream out;
    out << id << ' ' << c << ' ' << m << ' ' << y << ' ' << k << ' ' << lab.l << ' ' << lab.a << ' '
        << lab.b << '\n';
    lines.push_back(out.str());
  }
  std::string text;
  for (const std::string& line : lines) text += line;
  return text;
}

std::string codes_of(const std::vector<Finding>& findings) {
  std::string codes;
  for (const Finding& finding : findings) codes.append(finding.code).append(" ");
  return codes;
}

std::size_t count_of(const Comparison& comparison, ColourGroup group) {
  return comparison.of(group).colours.size();
}

TEST(Figures, OfAFewValues) {
  const Figures ten = figures_of({10, 9, 8, 7, 6, 5, 4, 3, 2, 1});
  EXPECT_EQ(ten.mean, 5.5);
  EXPECT_EQ(ten.median, 5.5);
  EXPECT_EQ(ten.p90, 9);
  EXPECT_EQ(ten.p95, 10);
  EXPECT_EQ(ten.max, 10);
  EXPECT_DOUBLE_EQ(ten.std, std::sqrt(82.5 / 9));
  EXPECT_EQ(ten.best90, 5);
  const Figures odd = figures_of({-7, std::numeric_limits<double>::quiet_NaN(), 2, 3});
  EXPECT_EQ(odd.count, 3U);
  EXPECT_EQ(odd.median, 2);
  EXPECT_EQ(odd.max, -7);
  EXPECT_EQ(figures_of({4}).std, 0);
  EXPECT_EQ(figures_of({4}).best90, 4);
  EXPECT_EQ(figures_of({}).count, 0U);
}

TEST(Compare, AChartWithItselfIsZeroAndKnowsItsGroups) {
  const Opened chart = opened(kRows);
  const Comparison comparison = compare(chart.chart, chart.chart, {});
  ASSERT_EQ(comparison.refusal, "");
  EXPECT_EQ(codes_of(comparison.findings), "");
  EXPECT_EQ(comparison.matched_by, MatchBy::device);
  for (const Measure formula : kFormulas) {
    EXPECT_EQ(comparison.of(ColourGroup::all).of(formula).max, 0);
  }
  EXPECT_EQ(count_of(comparison, ColourGroup::all), 9U);
  EXPECT_EQ(count_of(comparison, ColourGroup::paper), 1U);
  EXPECT_EQ(count_of(comparison, ColourGroup::solids), 4U);
  EXPECT_EQ(count_of(comparison, ColourGroup::wedges), 6U);
  EXPECT_EQ(count_of(comparison, ColourGroup::overprints), 1U);
  EXPECT_EQ(count_of(comparison, ColourGroup::greys), 4U);    // 1, 5, 8 and 9
  EXPECT_EQ(count_of(comparison, ColourGroup::surface), 6U);  // not 5, 8 and 9
}

TEST(Compare, RgbGroupsFollowTheScale) {
  const Opened chart = opened("SAMPLE_ID RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B",
                              "1 255 255 255 95 0 0\n2 255 0 0 50 60 40\n3 255 255 0 90 -5 80\n"
                              "4 128 0 128 40 30 -30\n5 9 8 7 5 0 0\n6 0 0 0 3 0 0\n");
  const Comparison comparison = compare(chart.chart, chart.chart, {});
  EXPECT_EQ(count_of(comparison, ColourGroup::paper), 1U);
  EXPECT_EQ(count_of(comparison, ColourGroup::solids), 1U);
  EXPECT_EQ(count_of(comparison, ColourGroup::overprints), 1U);
  EXPECT_EQ(count_of(comparison, ColourGroup::surface), 5U);  // not 5
  EXPECT_TRUE(comparison.wedges.empty());
  // The same chart on a scale of 1.
  const Opened unit = opened("SAMPLE_ID RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B",
                             "a 1 1 1 95 0 0\nb 1 0 0 50 60 40\nc 1 1 0 90 -5 80\n"
                             "d 0.50196 0 0.50196 40 30 -30\ne 0 0 0 3 0 0\n");
  const Comparison scaled = compare(chart.chart, unit.chart, {});
  EXPECT_EQ(scaled.colours.size(), 5U);
  EXPECT_EQ(scaled.of(ColourGroup::all).of(Measure::de76).max, 0);
}

TEST(Compare, AShiftIsFoundWhateverTheOrder) {
  const Opened reference = opened(kRows);
  std::string rows = changed_rows([](std::string& id, Lab& lab) {
    lab.l += 1;
    id = "x" + id;
  });
  // The first row goes to the end.
  rows = rows.substr(rows.find('\n') + 1) + rows.substr(0, rows.find('\n') + 1);
  const Opened sample = opened(rows);
  const Comparison comparison = compare(reference.chart, sample.chart, {});
  const GroupFigures& all = comparison.of(ColourGroup::all);
  EXPECT_EQ(all.of(Measure::de76).mean, 1);
  EXPECT_EQ(all.of(Measure::dl).mean, 1);
  EXPECT_EQ(all.of(Measure::da).max, 0);
  EXPECT_EQ(codes_of(comparison.findings), "other-ids other-order ");
  EXPECT_EQ(label_of(comparison, comparison.colours.front()), "1");
  ComparisonOptions options;
  options.match = MatchBy::order;
  EXPECT_EQ(codes_of(compare(reference.chart, sample.chart, options).findings),
            "other-device-values other-ids ");
  options.match = MatchBy::id;
  EXPECT_EQ(compare(reference.chart, sample.chart, options).refusal,
            "The charts have no ids in common.");
}

TEST(Compare, MatchesByWhatBothHold) {
  const std::string lab = "LAB_L LAB_A LAB_B";
  const Opened ids = opened("SAMPLE_ID " + lab, "a 50 0 0\nb 60 0 0\nc 70 0 0\n");
  const Opened more_ids = opened("SAMPLE_ID " + lab, "c 71 0 0\nb 61 0 0\nd 1 0 0\ne 1 0 0\n");
  const Comparison by_id = compare(ids.chart, more_ids.chart, {});
  EXPECT_EQ(by_id.matched_by, MatchBy::id);
  ASSERT_EQ(by_id.colours.size(), 2U);
  EXPECT_EQ(by_id.of(ColourGroup::all).of(Measure::dl).max, 1);
  EXPECT_EQ(by_id.only_in_reference, (std::vector<std::uint32_t>{0}));
  EXPECT_EQ(by_id.only_in_sample, (std::vector<std::uint32_t>{2, 3}));

  const Opened twice =
      opened("SAMPLE_ID SAMPLE_NAME " + lab, "1 a 50 0 0\n1 b 60 0 0\n2 c 70 0 0\n");
  const Opened named = opened("SAMPLE_NAME " + lab, "c 70 0 0\na 50 0 0\nb 60 0 0\n");
  const Comparison by_name = compare(twice.chart, named.chart, {});
  EXPECT_EQ(by_name.matched_by, MatchBy::name);
  EXPECT_EQ(by_name.of(ColourGroup::all).of(Measure::de76).max, 0);

  const Opened bare = opened(lab, "50 0 0\n60 0 0\n70 0 0\n");
  EXPECT_EQ(compare(ids.chart, bare.chart, {}).matched_by, MatchBy::order);
  EXPECT_NE(compare(more_ids.chart, bare.chart, {}).refusal, "");  // 4 and 3 patches
}

// Ids of other charts are running numbers, too.
TEST(Compare, RefusesWhatWouldMeanNothing) {
  const Opened cmyk = opened(kRows);
  const Opened rgb = opened("SAMPLE_ID RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B",
                            "1 255 255 255 95 0 0\n2 255 0 0 50 60 40\n");
  EXPECT_EQ(compare(cmyk.chart, rgb.chart, {}).refusal.find("The charts do not match"), 0U);
  const Opened none = opened("SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K", "1 0 0 0 0\n");
  EXPECT_EQ(compare(cmyk.chart, none.chart, {}).refusal.find("The sample has no Lab"), 0U);
  const Opened unmeasured = opened(changed_rows(
      [](std::string&, Lab& lab) { lab.l = std::numeric_limits<double>::quiet_NaN(); }));
  EXPECT_EQ(compare(cmyk.chart, unmeasured.chart, {}).refusal,
            "No colour that both charts hold was measured in both.");
}

TEST(Compare, RepeatsAreAveragedAndUnmeasuredPairsLeftOut) {
  const Opened reference = opened("1 0 0 0 0 95 0 0\n2 100 0 0 0 55 -37 -50\n");
  const Opened sample =
      opened("1 0 0 0 0 90 0 0\n2 0 0 0 0 94 0 0\n3 0 0 0 0 95 0 0\n4 100 0 0 0 nan -37 -50\n");
  const Comparison mean = compare(reference.chart, sample.chart, {});
  ASSERT_EQ(mean.colours.size(), 1U);
  EXPECT_EQ(mean.colours[0].sample.l, 93);
  EXPECT_EQ(mean.colours[0].sample_count, 3U);
  EXPECT_EQ(mean.not_measured, 1U);
  EXPECT_EQ(codes_of(mean.findings), "not-measured repeats-averaged ");
  ComparisonOptions options;
  options.averaging = Averaging::median;
  EXPECT_EQ(compare(reference.chart, sample.chart, options).colours[0].sample.l, 94);
}

TEST(Compare, ConditionsThatDifferAreTold) {
  const Opened m0 = opened(kFields, kRows, "MEASUREMENT_SOURCE \"MeasurementCondition=M0\"\n");
  const Opened m1 = opened(kFields, kRows, "MEASUREMENT_SOURCE \"MeasurementCondition=M1\"\n");
  const Opened silent = opened(kRows);
  const Comparison comparison = compare(m0.chart, m1.chart, {});
  ASSERT_EQ(codes_of(comparison.findings), "other-conditions ");
  EXPECT_EQ(comparison.findings[0].severity, Severity::doubtful);
  EXPECT_EQ(comparison.findings[0].sentence,
            "The charts differ in M condition: the reference states M0, the sample M1.");
  EXPECT_EQ(codes_of(compare(m0.chart, silent.chart, {}).findings), "unknown-condition ");
  const std::string text = comparison_text_of({comparison, {}});
  EXPECT_LT(text.find("differ in M condition"), text.find("CIEDE2000"));
}

// Grey patches: V is L* in X, Y and Z. Y of L* 75 is 48.278, of L* 50 18.419.
TEST(ToneValues, ByReflectanceAndBySpotColour) {
  EXPECT_NEAR(tone_value(100, 48.2781, 18.4187), 63.3992, 1e-4);
  EXPECT_DOUBLE_EQ(spot_colour_tone_value({100, 0, 0}, {75, 0, 0}, {50, 0, 0}), 50);
  // V of X, Y, Z: tint 50 + 0.232 * 50, 50, 50 - 0.58 * -50; paper 50; solid twice as far.
  EXPECT_DOUBLE_EQ(spot_colour_tone_value({50, 0, 0}, {50, 50, -50}, {50, 100, -100}), 50);

  const std::string rows = "1 0 0 0 0 100 0 0\n2 0 0 0 50 75 0 0\n3 0 0 0 100 50 0 0\n";
  const Opened reference = opened(rows);
  const Opened sample = opened("1 0 0 0 0 100 0 0\n2 0 0 0 50 70 0 0\n3 0 0 0 100 50 0 0\n");
  const Comparison comparison = compare(reference.chart, sample.chart, {});
  ASSERT_EQ(comparison.wedges.size(), 1U);
  EXPECT_EQ(comparison.wedges[0].ink, "Black");
  ASSERT_EQ(comparison.wedges[0].steps.size(), 2U);
  const WedgeStepTones& step = comparison.wedges[0].steps[0];
  EXPECT_EQ(step.nominal, 50);
  EXPECT_NEAR(*step.reference.value, 63.3992, 1e-3);
  EXPECT_NEAR(step.reference.spot, 50, 1e-9);
  EXPECT_NEAR(step.sample.spot, 60, 1e-9);
  EXPECT_NEAR(*comparison.wedges[0].steps[1].sample.value, 100, 1e-9);
}

// Constant spectra: reflectance r has Y = 100 r under any light.
TEST(Compare, SpectraOnTheCommonWavelengths) {
  const auto chart_of_constants = [](int first, int last, double paper, double grey) {
    std::string fields = "SAMPLE_ID GRAY";
    for (int nm = first; nm <= last; nm += 10) fields += " SPECTRAL_NM" + std::to_string(nm);
    const auto row = [&](const char* start, double value) {
      std::string text = start;
      for (int nm = first; nm <= last; nm += 10) text += " " + std::to_string(value);
      return text + "\n";
    };
    return opened(fields, row("1 0", paper) + row("2 50", grey));
  };
  const Opened reference = chart_of_constants(380, 730, 0.9, 0.25);
  const Opened sample = chart_of_constants(400, 700, 0.9, 0.27);
  const Comparison comparison = compare(reference.chart, sample.chart, {});
  ASSERT_EQ(comparison.common_wavelengths.size(), 31U);
  EXPECT_NEAR(comparison.colours[1].of(Measure::rms), 0.02, 1e-12);
  const double expected = comparison.colours[1].of(Measure::de00);
  EXPECT_NEAR(comparison.colours[1].of(Measure::de00_a), expected, 0.01);
  EXPECT_NEAR(comparison.colours[1].of(Measure::de00_f11), expected, 0.01);
  EXPECT_NEAR(comparison.colours[0].of(Measure::de00_a), 0, 1e-9);
  const Opened apart = chart_of_constants(385, 725, 0.9, 0.27);
  const Comparison none = compare(reference.chart, apart.chart, {});
  EXPECT_EQ(codes_of(none.findings), "no-common-spectra ");
  EXPECT_TRUE(std::isnan(none.colours[1].of(Measure::rms)));
}

TEST(Tolerances, AreReadAndJudged) {
  EXPECT_EQ(read_tolerances("[1]").error, "not an object of JSON with figures and their limits");
  EXPECT_EQ(read_tolerances("{\"all.de00.p99\": 3}").error,
            "\"all.de00.p99\" is no figure; figures look like \"all.de00.p95\"");
  EXPECT_EQ(read_tolerances("{\"all.de00.max\": -1}").error,
            "the limit of \"all.de00.max\" is not a number from 0");
  const Tolerances read = read_tolerances(
      "// house limits\n{\"all.de76.max\": 1, \"all.dl.mean\": 0.9, \"overprints.de00.max\": 5}");
  ASSERT_EQ(read.error, "");
  const Opened reference = opened("1 0 0 0 0 95 0 0\n2 100 0 0 0 55 -37 -50\n");
  const Opened sample = opened("1 0 0 0 0 94 0 0\n2 100 0 0 0 54 -37 -50\n");
  JudgedComparison judged = {compare(reference.chart, sample.chart, {}), {}};
  judged.verdicts = judge(judged.comparison, read.list);
  ASSERT_EQ(judged.verdicts.size(), 3U);
  EXPECT_TRUE(judged.verdicts[0].passed);
  EXPECT_FALSE(judged.verdicts[1].passed);  // -1 is as far as 1
  EXPECT_FALSE(judged.verdicts[2].value.has_value());
  EXPECT_FALSE(judged.has_passed());
  // Every figure stands in JSON where its name says.
  const auto json = nlohmann::json::parse(comparison_json_of({&judged, 1}));
  EXPECT_EQ(json["all"]["de76"]["max"], 1.0);
  EXPECT_EQ(json["passed"], false);
  EXPECT_EQ(json["colours"].size(), 2U);
  const std::string csv = comparison_csv_of({&judged, 1});
  EXPECT_NE(csv.find("\nchart.txt,2,,,100,0,0,0,55,-37,-50,54,-37,-50,1,"), std::string::npos)
      << csv;
}

TEST(Average, OfThreeChartsLeavesOutliersWhereTheyAre) {
  const auto chart_with = [](const char* lightness) {
    return opened("7 0 0 0 0 95 0 0\n8 100 0 0 0 " + std::string(lightness) + " -37 -50\n");
  };
  std::vector<Opened> files;
  for (const char* const lightness : {"55", "55.1", "55.2", "61"})
    files.push_back(chart_with(lightness));
  std::vector<const Chart*> charts;
  for (const Opened& file : files) charts.push_back(&file.chart);
  AverageOptions options;
  const AveragedChart kept = average_charts(charts, options);
  ASSERT_EQ(kept.refusal, "");
  EXPECT_EQ(codes_of(kept.findings), "outlier ");
  EXPECT_NEAR(kept.chart.lab.row(1)[0], 226.3 / 4, 1e-12);
  options.leaves_out_outliers = true;
  const AveragedChart dropped = average_charts(charts, options);
  EXPECT_NEAR(dropped.chart.lab.row(1)[0], 55.1, 1e-12);
  // The file reads back as the chart.
  const auto document =
      Document::open_block(measurement_text_of(dropped.chart, {}), "mean", Opening::repair);
  const Chart& chart = document->charts().front();
  EXPECT_EQ(chart.ids, (Texts{"7", "8"}));
  EXPECT_EQ(chart.device_set, "CMYK");
  EXPECT_EQ(chart.lab.row(1)[0], dropped.chart.lab.row(1)[0]);
  EXPECT_EQ(codes_of(chart.findings), "");
  // The first chart names a colour that only the other one, without ids and inks, measured.
  const Opened unmeasured = opened("7 0 0 0 0 nan 0 0\n");
  const Opened bare = opened("LAB_L LAB_A LAB_B", "95 0 0\n");
  const std::vector<const Chart*> pair = {&unmeasured.chart, &bare.chart};
  AverageOptions by_order;
  by_order.match = MatchBy::order;
  const AveragedChart named = average_charts(pair, by_order);
  EXPECT_EQ(named.chart.ids, (Texts{"7"}));
  EXPECT_EQ(named.chart.lab.row(0)[0], 95);
  const Opened other = opened("7 0 0 0 10 95 0 0\n");
  charts.push_back(&other.chart);
  EXPECT_NE(average_charts(charts, options).refusal, "");
}

}  // namespace
