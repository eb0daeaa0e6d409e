#include "dataset/spectral_grid.h"

#include "dataset/fill.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using namespace vantor::DataSet;

constexpr const char* kRefused = "Unsupported spectral resolution!\n";
constexpr const char* kAdjusted = "Note: range will be adjusted.\n";

struct Settled {
  std::string messages;
  int start = 0, step = 0, count = 0;
  bool operator==(const Settled&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Settled& settled) {
  return out << settled.messages << settled.start << '/' << settled.step << '/' << settled.count;
}

Settled settle(const std::vector<double>& wavelengths, const SpectralRequest& range = {},
               const SpectralRequest& grid = {}) {
  PatchDataSet data_set;
  data_set.wavelengths = wavelengths;
  data_set.spectral_fields.resize(wavelengths.size());
  MeasuredGrid measured;
  const bool is_settled = settle_spectral_grid(data_set, range, grid, measured);
  EXPECT_EQ(is_settled, data_set.messages != kRefused);
  EXPECT_EQ(measured.adjust, data_set.messages == kAdjusted);
  if (!is_settled) return {kRefused};
  return {data_set.messages, data_set.spectral_start_nm, data_set.spectral_step_nm,
          data_set.spectral_count};
}

TEST(SpectralGrid, WholeAndRegularWavelengthsAreTaken) {
  EXPECT_EQ(settle({380, 390, 400}), (Settled{"", 380, 10, 3}));
  EXPECT_EQ(settle({380}), (Settled{"", 380, 1, 1}));
  EXPECT_EQ(settle({400, 500}), (Settled{"", 400, 100, 2}));
  EXPECT_EQ(settle({400, 411, 420}), (Settled{"", 400, 10, 3}));    // 1 nm off
  EXPECT_EQ(settle({400, 410, 425, 430}), (Settled{kRefused}));     // 5 nm off
  EXPECT_EQ(settle({400, 410.1, 420}), (Settled{"", 400, 10, 3}));  // tenths: 0.15 nm
  EXPECT_EQ(settle({400, 410.2, 420}), (Settled{kRefused}));
  EXPECT_EQ(settle({400, 410.01, 420}), (Settled{"", 400, 10, 3}));  // hundredths: 0.015 nm
  EXPECT_EQ(settle({400, 410.02, 420}), (Settled{kRefused}));
  EXPECT_EQ(settle({250, 260.03, 270}), (Settled{"", 250, 10, 3}));  // no double's hundredths
  EXPECT_EQ(settle({400, 410.5, 421}), (Settled{kRefused}));         // step of 10.5 nm
  EXPECT_EQ(settle({400.5, 410.5, 420.5}), (Settled{kRefused}));
}

TEST(SpectralGrid, WavelengthsThatNoGridHasAreRefusedOrHarmless) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double odd : {inf, -inf, nan, 1e300, 3e9}) {
    EXPECT_EQ(settle({odd}), (Settled{kRefused})) << odd;
    EXPECT_EQ(settle({380, odd}), (Settled{kRefused})) << odd;
    EXPECT_EQ(settle({380, odd, 400}), (Settled{kRefused})) << odd;
  }
  EXPECT_EQ(settle({-2e9, 2e9}), (Settled{kRefused}));  // no int holds the step
  EXPECT_EQ(settle({2147483647}), (Settled{"", 2147483647, 1, 1}));
  EXPECT_EQ(settle({400, 390, 380}), (Settled{"", 400, -10, 3}));
  EXPECT_EQ(settle({730, 1e-14}), (Settled{kAdjusted, 730, -730, 2}));
  EXPECT_EQ(settle({380, 380, 380}), (Settled{"", 380, 0, 3}));
}

TEST(SpectralGrid, RequestsAreMetOrRefused) {
  const std::vector<double> measured = {380, 390, 400};
  EXPECT_EQ(settle(measured, {380, 10, 3}), (Settled{"", 380, 10, 3}));
  EXPECT_EQ(settle(measured, {390, 10, 2}), (Settled{"", 380, 10, 3}));
  EXPECT_EQ(settle(measured, {370, 10, 3}), (Settled{kRefused}));  // begins too early
  EXPECT_EQ(settle(measured, {380, 10, 4}), (Settled{kRefused}));  // ends too late
  EXPECT_EQ(settle(measured, {380, 5, 3}), (Settled{kRefused}));   // finer than measured
  EXPECT_EQ(settle(measured, {}, {370, 5, 9}), (Settled{kAdjusted, 370, 5, 9}));
  EXPECT_EQ(settle(measured, {}, {380, 10, 3}), (Settled{"", 380, 10, 3}));
}

TEST(SpectralGrid, SpectraAreResampledToTheGridAskedFor) {
  const struct {
    std::string fields, row;
    SpectralRequest grid;
    std::vector<double> spectrum;
  } cases[] = {
      {"R_400 R_410 R_420", "1 2 4", {390, 5, 8}, {1, 1, 1, 1.5, 2, 3, 4, 4}},
      {"R_420 R_410 R_400", "4 2 1", {400, 10, 3}, {1, 2, 4}},
      {"R_400", "3", {390, 10, 3}, {3, 3, 3}},
      {"R_400 R_400 R_400", "1 2 3", {390, 10, 3}, {1, 1, 3}},
  };
  for (const auto& c : cases) {
    vantor::MeasData::MeasFileParser reader(1);
    PatchDataSet data_set;
    const std::string text = test::file_of(c.fields, c.row + "\n");
    EXPECT_TRUE(read_memory(data_set, text, reader, {}, c.grid));
    EXPECT_EQ(data_set.messages, kAdjusted);
    EXPECT_TRUE(data_set.spectral_fields.empty());
    EXPECT_EQ(data_set.wavelengths.back(), c.grid.start_nm + (c.grid.count - 1) * c.grid.step_nm);
    const auto spectrum = data_set.spectra.row(0);
    EXPECT_EQ(std::vector<double>(spectrum.begin(), spectrum.end()), c.spectrum);
  }
}

}  // namespace
