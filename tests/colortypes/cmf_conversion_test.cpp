#include "colortypes/spectral/cmf_conversion.h"

#include "api/measdata.h"
#include "colortypes/difference.h"
#include "colortypes/spectral/astm_conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <vector>

namespace {

using namespace vantor::ColorTypes::Spectral;
using vantor::ColorTypes::vectorDistance;
using LabTriple = std::array<double, 3>;
using Reflectance = double (*)(double nm);

struct Grid {
  int start, step, count;
};

LabTriple converted(Reflectance reflectance, const Grid& grid) {
  CmfSpectralConversion converter;
  EXPECT_TRUE(converter.configure(grid.start, grid.step, grid.count));
  std::vector<double> spectrum;
  for (int i = 0; i < grid.count; ++i) spectrum.push_back(reflectance(grid.start + grid.step * i));
  LabTriple lab{};
  converter.spectralToLab(spectrum.data(), lab[0], lab[1], lab[2]);
  return lab;
}

// Colours such as inks have: smooth edges and bands.
constexpr Reflectance kReflectances[] = {
    [](double nm) { return 0.05 + 0.85 / (1.0 + std::exp((560.0 - nm) / 12.0)); },
    [](double nm) { return 0.08 + 0.7 / (1.0 + std::exp((nm - 520.0) / 15.0)); },
    [](double nm) { return 0.9 - 0.8 * std::exp(-std::pow((nm - 550.0) / 40.0, 2)); },
    [](double nm) { return 0.1 + 0.5 * std::exp(-std::pow((nm - 450.0) / 30.0, 2)); },
};

TEST(CmfConversion, APerfectWhiteIsExactOnEveryGrid) {
  for (const int step : {-20, -3, 1, 4, 5, 7, 10, 50, 400}) {
    for (const int start : {-1000, 382, 700, 1200}) {
      for (const int count : {2, 3, 5, 100}) {
        EXPECT_EQ(converted([](double) { return 1.0; }, {start, step, count}),
                  (LabTriple{100, 0, 0}))
            << start << ' ' << step << ' ' << count;
      }
    }
  }
}

// The weighting tables for a chart as it is measured, patch by patch.
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
    largest = std::max(largest, vectorDistance(actual, expected));
  }
  cleanup_parser(&handle);
  EXPECT_LT(largest, 0.02);
}

TEST(CmfConversion, TheSameColourFromEveryGrid) {
  for (const Reflectance reflectance : kReflectances) {
    const LabTriple fine = converted(reflectance, {360, 5, 95});
    for (const Grid& grid : {Grid{360, 1, 471},
                             {360, 2, 236},
                             {360, 3, 157},
                             {830, -5, 95},
                             {830, -1, 471},
                             {358, 4, 119},
                             {360, 10, 48},
                             {361, 7, 68}}) {
      EXPECT_LT(vectorDistance(converted(reflectance, grid), fine), 0.1) << grid.start;
    }
  }
  // A parabola goes through a cubic's and a parabola's samples alike, wherever the grid stands:
  // coarse grids that cover all wavelengths give the colour of the fine one.
  const Reflectance parabola = [](double nm) { return 0.1 + std::pow((nm - 600.0) / 300.0, 2); };
  const LabTriple fine = converted(parabola, {360, 5, 95});
  for (const Grid& grid : {Grid{353, 37, 14}, {351, 61, 9}, {841, -17, 30}}) {
    EXPECT_LT(vectorDistance(converted(parabola, grid), fine), 1e-9) << grid.start;
  }
}

// Only the neighbours of 600 nm are known: a step between them, repeated to both sides.
TEST(CmfConversion, TheEndsAreRepeatedOutsideTheRange) {
  const Reflectance edge = [](double nm) { return nm < 600 ? 0.1 : 0.9; };
  EXPECT_LT(vectorDistance(converted(edge, {595, 5, 2}), converted(edge, {360, 5, 95})), 1e-9);
}

TEST(CmfConversion, GridsWithoutAColourAreRefused) {
  CmfSpectralConversion converter;
  EXPECT_FALSE(converter.configure(380, 0, 36));
  EXPECT_FALSE(converter.configure(380, 10, 1));
  EXPECT_FALSE(converter.configure(380, 10, INT_MIN));
  EXPECT_TRUE(converter.configure(INT_MIN, INT_MAX, 3));
  EXPECT_TRUE(converter.configure(INT_MAX, INT_MIN, 2));
}

}  // namespace
