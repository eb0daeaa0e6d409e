// Print figures, against numbers worked out by hand.
#include "kit/figures/display_white.h"
#include "kit/figures/neutral_ramp.h"
#include "kit/figures/print_figures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace measkit;  // NOLINT

struct Patch {
  std::vector<double> device;
  Triple lab;
};

// Each patch is a merged patch of its own.
Chart chart_of(const char* device_set, const std::vector<Patch>& patches) {
  Chart chart;
  chart.is_loaded = true;
  chart.device_set = device_set;
  chart.is_rgb = chart.device_set == "RGB";
  chart.patch_count = chart.merged.count = patches.size();
  const std::size_t channels = patches.front().device.size();
  double* device = chart.device.reset(channels, patches.size());
  double* lab = chart.lab.reset(3, patches.size());
  const std::array<const char*, 4> inks = {"Cyan", "Magenta", "Yellow", "Black"};
  chart.channels.resize(channels);
  for (std::size_t c = 0; c < channels; ++c) chart.channels[c].name = inks[c];
  for (std::size_t i = 0; i < patches.size(); ++i) {
    device = std::ranges::copy(patches[i].device, device).out;
    lab = std::ranges::copy(patches[i].lab, lab).out;
    chart.merged.members.push_back(static_cast<std::uint32_t>(i));
    chart.merged.starts.push_back(static_cast<std::uint32_t>(i));
    const auto inks_used = std::ranges::count_if(patches[i].device, [](double v) { return v > 0; });
    if (inks_used == 0) chart.paper_white = i;
    if (inks_used != 1) continue;
    const auto c = static_cast<std::size_t>(std::ranges::max_element(patches[i].device) -
                                            patches[i].device.begin());
    chart.channels[c].wedge.push_back(i);
    if (patches[i].device[c] == 100.0) chart.channels[c].solid = i;
  }
  chart.merged.starts.push_back(static_cast<std::uint32_t>(patches.size()));
  chart.merged.device = chart.device;
  chart.merged.lab = chart.lab;
  return chart;
}

const double kNone = std::numeric_limits<double>::quiet_NaN();

TEST(PrintFigures, NameOverprintsAndSumInks) {
  const Chart chart = chart_of("CMYK", {{{0, 0, 0, 0}, {95, 0, -4}},
                                        {{100, 100, 100, 0}, {22, 0, 0}},
                                        {{100, 100, 0, 0}, {24, 17, -46}},
                                        {{0, 100, 100, 0}, {47, 68, 48}},
                                        {{100, 0, 100, 0}, {kNone, 0, 0}},
                                        {{0, 0, 100, 100}, {18, 0, 5}},
                                        {{100, 100, 100, 50}, {10, 0, 0}},
                                        {{90, 90, 90, 99}, {9, 0, 0}},
                                        {{100, 99, 0, 0}, {25, 17, -46}}});
  const PrintFigures figures = print_figures_of(chart);
  std::string names;
  for (const NamedPatch& patch : figures.overprints) names += patch.name + "; ";
  EXPECT_EQ(names, "Cyan + Magenta; Magenta + Yellow; Cyan + Magenta + Yellow; ");
  EXPECT_EQ(figures.total_ink, 369.0);
  EXPECT_EQ(figures.most_ink, 7U);
  EXPECT_EQ(figures.darkest, 7U);
}

// V = L* + 116/500 a*, L*, L* - 116/200 b*: all three are L* for greys.
TEST(PrintFigures, CurvesEndAtTheSolid) {
  const Chart chart = chart_of("CMYK", {{{0, 0, 0, 0}, {100, 0, 0}},
                                        {{0, 0, 0, 50}, {60, 0, 0}},
                                        {{0, 0, 0, 75}, {kNone, 0, 0}},
                                        {{0, 0, 0, 100}, {20, 0, 0}},
                                        {{50, 0, 0, 0}, {80, -20, -20}}});
  const PrintFigures figures = print_figures_of(chart);
  ASSERT_EQ(figures.curves.size(), 1U);  // cyan has no solid
  const InkCurve& black = figures.curves.front();
  EXPECT_EQ(black.channel, 3U);
  ASSERT_EQ(black.steps.size(), 2U);
  EXPECT_EQ(black.steps[0].nominal, 50.0);
  EXPECT_NEAR(black.steps[0].tone.spot, 50.0, 1e-12);
  // Y of L* 60 and 20: 100 (76/116)^3 and 100 (36/116)^3.
  EXPECT_NEAR(black.steps[0].tone.usual(), 74.0913, 1e-3);
  EXPECT_NEAR(black.steps[0].increase(), 24.0913, 1e-3);
  EXPECT_NEAR(black.steps[1].increase(), 0.0, 1e-12);
}

// Y of the patches, while their Lab would give tone values of 74 and 100.
TEST(PrintFigures, CurvesTakeTheFilesOwnXyz) {
  Chart chart = chart_of("SPOT", {{{0}, {100, 0, 0}}, {{50}, {60, 0, 0}}, {{100}, {20, 0, 0}}});
  chart.channels[0].name = "Magenta";
  std::ranges::copy(std::vector<double>{96.42, 100, 82.49, 30, 40, 30, 15, 20, 15},
                    chart.xyz.reset(3, 3));
  chart.lab_source = LabSource::file;
  const auto tone = [&chart] { return print_figures_of(chart).curves.at(0).steps.at(0).tone; };
  EXPECT_NEAR(tone().value.value_or(0.0), 75.0, 1e-9);
  chart.lab_source = LabSource::weighting_table;
  EXPECT_NEAR(tone().value.value_or(0.0), 74.0913, 1e-3);
  chart.channels[0].name = "Warm Red";
  EXPECT_FALSE(tone().value);
}

// Black and the light red lie inside of the triangle of the others.
TEST(PrintFigures, OutlineGoesAroundAllCorners) {
  Chart chart = chart_of("4CLR", {{{0, 0, 0, 0}, {95, 0, 0}},
                                  {{100, 0, 0, 0}, {55, -40, -40}},
                                  {{0, 100, 0, 0}, {50, 70, -10}},
                                  {{0, 0, 100, 0}, {90, -5, 90}},
                                  {{0, 0, 0, 100}, {15, 0, 0}},
                                  {{0, 100, 0, 100}, {12, 10, 5}}});
  for (const std::size_t index : {1U, 2U, 3U, 4U}) {
    chart.landmarks.push_back({LandmarkKind::solid, chart.channels[index - 1].name, index});
  }
  std::string names;
  for (const NamedPatch& corner : print_figures_of(chart).outline) names += corner.name + "; ";
  EXPECT_EQ(names, "Cyan; Magenta; Yellow; ");
}

// Grey fades from the paper's a* 2 and b* -4 to 15 % of them at L* 20: half way, 57.5 % are left.
TEST(PrintFigures, GreyIsRelativeToThePaper) {
  const Chart chart = chart_of("CMY", {{{0, 0, 0}, {100, 2, -4}},
                                       {{40, 30, 30}, {60, 1.15, 0.7}},
                                       {{40, 31, 30}, {60.5, 5, 3}},
                                       {{45, 0, 40}, {61, 1, -2}},
                                       {{25, 19, 19}, {80, 12, -9}},
                                       {{100, 100, 100}, {20, 0.3, -0.6}}});
  const PrintFigures figures = print_figures_of(chart);
  ASSERT_EQ(figures.greys.size(), 3U);
  EXPECT_EQ(figures.greys[0].index, 4U);  // a balance patch, however far from grey
  EXPECT_EQ(figures.greys[1].index, 1U);
  EXPECT_NEAR(figures.greys[1].grey[1], 1.15, 1e-12);
  EXPECT_NEAR(figures.greys[1].grey[2], -2.3, 1e-12);
  EXPECT_NEAR(figures.greys[1].chroma_error, 3.0, 1e-12);
  EXPECT_NEAR(figures.greys[2].chroma_error, 0.0, 1e-12);
}

TEST(PrintFigures, AreEmptyWithoutColoursOrDeviceValues) {
  Chart chart = chart_of("CMYK", {{{0, 0, 0, 0}, {95, 0, 0}}, {{0, 0, 0, 100}, {20, 0, 0}}});
  chart.merged.lab = Values();
  PrintFigures figures = print_figures_of(chart);
  EXPECT_TRUE(figures.curves.empty() && figures.outline.empty() && !figures.darkest);
  EXPECT_EQ(figures.total_ink, 100.0);
  chart.merged.device = Values();
  figures = print_figures_of(chart);
  EXPECT_FALSE(figures.most_ink);
}

TEST(NeutralRamp, FindsTheGammaOfItsLuminance) {
  std::vector<Patch> patches;
  for (const double device : {255.0, 0.0, 51.0, 102.0, 204.0}) {
    const double y = 0.01 + 0.99 * std::pow(device / 255.0, 1.8);
    const double cube_root = std::cbrt(y);
    patches.push_back({{device, device, device}, {116.0 * cube_root - 16.0, 0, 0}});
  }
  patches.push_back({{0, 0, 255}, {30, 60, -100}});
  Chart chart = chart_of("RGB", patches);
  chart.full_scale = 255.0;
  const NeutralRamp ramp = neutral_ramp_of(chart);
  ASSERT_EQ(ramp.steps.size(), 5U);
  EXPECT_EQ(ramp.steps[1].index, 2U);
  EXPECT_NEAR(ramp.gamma.value_or(0.0), 1.8, 1e-9);
  chart.full_scale = 100.0;
  EXPECT_TRUE(neutral_ramp_of(chart).steps.empty());  // white is not reached
}

TEST(DisplayWhite, HasTheTemperatureOfTheNearestBlackBody) {
  // Illuminants of the CIE: D65 and D50 at 6504 K and 5003 K, A at 2856 K.
  const auto kelvin = [](double x, double y, double z) {
    return correlated_colour_temperature({x, y, z}).value_or(0.0);
  };
  EXPECT_NEAR(kelvin(95.047, 100.0, 108.883), 6504.0, 3.0);
  EXPECT_NEAR(kelvin(96.42, 100.0, 82.51), 5002.0, 3.0);
  EXPECT_NEAR(kelvin(109.85, 100.0, 35.585), 2856.0, 3.0);
  EXPECT_FALSE(correlated_colour_temperature({20.0, 70.0, 10.0}));
  EXPECT_FALSE(correlated_colour_temperature({0.0, 0.0, 0.0}));

  Chart chart = chart_of("RGB", {{{255, 255, 255}, {100, 0, 0}}});
  std::ranges::copy(std::vector{95.047, 100.0, 108.883}, chart.xyz.reset(3, 1));
  chart.paper_white = 0;
  EXPECT_FALSE(display_white_of(chart));
  chart.is_display = true;
  chart.keywords = {{"LUMINANCE_XYZ_CDM2", "114.06 120.0 130.66"}};
  const auto white = display_white_of(chart);
  ASSERT_TRUE(white);
  EXPECT_EQ(white->luminance, 120.0);
  EXPECT_NEAR(white->kelvin.value_or(0.0), 6504.0, 3.0);
}

}  // namespace
