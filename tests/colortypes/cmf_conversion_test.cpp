#include "colortypes/spectral/cmf_conversion.h"

#include "api/measdata.h"
#include "colortypes/difference.h"
#include "colortypes/spectral/astm_conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <functional>
#include <vector>

namespace {

using namespace vantor::ColorTypes::Spectral;
using LabTriple = std::array<double, 3>;

LabTriple lab_of(const ISpectralToLabConversion& converter, const std::vector<double>& spectrum) {
  LabTriple lab{};
  converter.spectralToLab(spectrum.data(), lab[0], lab[1], lab[2]);
  return lab;
}

std::vector<double> sampled(const std::function<double(double)>& reflectance, int start, int step,
                            int count) {
  std::vector<double> spectrum;
  for (int i = 0; i < count; ++i) spectrum.push_back(reflectance(start + step * i));
  return spectrum;
}

LabTriple converted(const std::function<double(double)>& reflectance, int start, int step,
                    int count) {
  CmfSpectralConversion converter;
  EXPECT_TRUE(converter.configure(start, step, count));
  return lab_of(converter, sampled(reflectance, start, step, count));
}

// Colours such as inks have: smooth edges and bands.
const std::vector<std::function<double(double)>> kReflectances = {
    [](double nm) { return 0.05 + 0.85 / (1.0 + std::exp((560.0 - nm) / 12.0)); },
    [](double nm) { return 0.08 + 0.7 / (1.0 + std::exp((nm - 520.0) / 15.0)); },
    [](double nm) { return 0.9 - 0.8 * std::exp(-std::pow((nm - 550.0) / 40.0, 2)); },
    [](double nm) { return 0.1 + 0.5 * std::exp(-std::pow((nm - 450.0) / 30.0, 2)); },
    [](double nm) { return 0.2 + 0.0005 * (nm - 400.0); },
};

TEST(CmfConversion, APerfectWhiteIsExactOnEveryGrid) {
  for (const int step : {-20, -10, -3, 1, 2, 3, 4, 5, 7, 10, 20, 50, 400}) {
    for (const int start : {-1000, 300, 382, 700, 1200}) {
      for (const int count : {2, 3, 5, 100}) {
        const LabTriple lab = converted([](double) { return 1.0; }, start, step, count);
        EXPECT_EQ(lab, (LabTriple{100, 0, 0})) << start << ' ' << step << ' ' << count;
      }
    }
  }
}

TEST(CmfConversion, AgreesWithTheWeightingTables) {
  for (const auto& reflectance : kReflectances) {
    for (const auto& [start, step, count] :
         {std::array{380, 10, 36}, {400, 10, 31}, {360, 10, 43}}) {
      AstmParameters parameters;
      parameters.startNm = start;
      parameters.stepNm = step;
      parameters.sampleCount = count;
      ASTMSpectralConversion astm;
      ASSERT_TRUE(astm.configure(parameters));
      const LabTriple expected = lab_of(astm, sampled(reflectance, start, step, count));
      const LabTriple actual = converted(reflectance, start, step, count);
      EXPECT_LT(vantor::ColorTypes::vectorDistance(actual, expected), 0.1);
    }
  }
}

// The tables for a chart as it is measured, patch by patch.
TEST(CmfConversion, AgreesWithTheWeightingTablesOnAChart) {
  void* handle = init_parser();
  ASSERT_EQ(parse_file(handle, MEASDATA_EXAMPLES "/cmyk-spectral-310.txt"), 1);
  CmfSpectralConversion converter;
  ASSERT_TRUE(converter.configure(380, 10, 36));
  double largest = 0.0;
  for (int patch = 0; patch < num_patches(handle); ++patch) {
    LabTriple expected{};
    LabTriple actual{};
    get_lab_from_patch(handle, patch, expected.data());
    converter.spectralToLab(get_spectrum_from_patch(handle, patch), actual[0], actual[1],
                            actual[2]);
    largest = std::max(largest, vantor::ColorTypes::vectorDistance(actual, expected));
  }
  cleanup_parser(&handle);
  EXPECT_LT(largest, 0.02);
}

TEST(CmfConversion, TheSameColourFromEveryGrid) {
  for (const auto& reflectance : kReflectances) {
    const LabTriple fine = converted(reflectance, 360, 5, 95);
    for (const auto& [start, step, count] : {std::array{360, 1, 471},
                                             {360, 2, 236},
                                             {360, 3, 157},
                                             {830, -5, 95},
                                             {830, -1, 471},
                                             {358, 4, 119},
                                             {360, 10, 48},
                                             {361, 7, 68}}) {
      const LabTriple lab = converted(reflectance, start, step, count);
      EXPECT_LT(vantor::ColorTypes::vectorDistance(lab, fine), 0.1) << start << ' ' << step;
    }
  }
}

// Only the neighbours of 600 nm are known: a step between them, repeated to both sides.
TEST(CmfConversion, TheEndsAreRepeatedOutsideTheRange) {
  const LabTriple narrow = converted([](double nm) { return nm < 600 ? 0.1 : 0.9; }, 595, 5, 2);
  const LabTriple wide = converted([](double nm) { return nm < 600 ? 0.1 : 0.9; }, 360, 5, 95);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(narrow[i], wide[i], 1e-9);
}

TEST(CmfConversion, GridsWithoutAColourAreRefused) {
  CmfSpectralConversion converter;
  EXPECT_FALSE(converter.configure(380, 0, 36));
  EXPECT_FALSE(converter.configure(380, 10, 1));
  EXPECT_FALSE(converter.configure(380, 10, INT_MIN));
  EXPECT_TRUE(converter.configure(INT_MIN, INT_MAX, 3));
  EXPECT_TRUE(converter.configure(INT_MAX, INT_MIN, 2));
  EXPECT_TRUE(converter.configure(INT_MIN, 1, 2));
}

}  // namespace
