#include "api/measdata.h"
#include "tests/api/charts.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <string>
#include <vector>

namespace {

using test::flat_spectrum;
using test::kUntouched;
using test::Loaded;
using test::Triple;

constexpr Triple kNoTriple = {kUntouched, kUntouched, kUntouched};

void expect_near(const Triple& actual, const Triple& expected, double tolerance) {
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance);
}

TEST(Patches, ACmykChartWithSpectraFromFileToColour) {
  const Loaded chart(test::file_of("SAMPLE_ID SAMPLE_NAME SAMPLE_LOC CMYK_K CMYK_C CMYK_M CMYK_Y " +
                                       test::fields_of({380, 10, 36}),
                                   "A1 white \"1 1\" 0 0 0 0" + test::repeated("1", 36) +
                                       "\nA2 \"half grey\" B2 50,5 1 2 3" +
                                       test::repeated("0.184186518", 36) + "\n"));
  EXPECT_EQ(chart.messages(), "");
  ASSERT_EQ(num_patches(chart), 2);
  EXPECT_EQ(test::contents(chart), "device spectral color id loc name 380-730/10 x36");
  EXPECT_STREQ(get_id_from_patch(chart, 0), "A1");
  EXPECT_STREQ(get_name_from_patch(chart, 1), "half grey");
  EXPECT_STREQ(get_loc_from_patch(chart, 0), "1 1");
  EXPECT_EQ(chart.device(1), (std::vector<double>{1, 2, 3, 50.5}));
  EXPECT_EQ(chart.spectrum(1), std::vector<double>(36, 0.184186518));
  EXPECT_EQ(chart.lab(0), (Triple{100, 0, 0}));
  // L* of a grey of reflectance ((50 + 16) / 116)^3 is 50.
  expect_near(chart.lab(1), {50, 0, 0}, 1e-6);
}

// Lab by hand: a spectrum that is 1 at 550 nm only gives X, Y, Z as the weights there over their
// sums (D50, 2 degrees, Table 5: 4.207, 9.650, 0.085 of 96.421, 99.997, 82.524).
TEST(Patches, LabFromASpectrumFollowsTheWeights) {
  const Loaded chart(
      test::file_of(test::fields_of({380, 10, 36}),
                    test::repeated("0", 17) + " 1" + test::repeated("0", 18) + "\n"));
  const double fx = std::cbrt(4.207 / 96.421);
  const double fy = std::cbrt(9.650 / 99.997);
  const double fz = 7.787037037037037 * 0.085 / 82.524 + 16.0 / 116.0;
  expect_near(chart.lab(0), {116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz)}, 1e-6);
}

TEST(Patches, LabComesFromTheBestSourceThereIs) {
  // The spectrum goes before the file's own Lab.
  for (const test::Bands& bands : {test::Bands{380, 10, 36}, {400, 20, 16}}) {
    const Loaded both(flat_spectrum(bands, "1", "LAB_L LAB_A LAB_B", "50 1 2"));
    EXPECT_EQ(both.lab(0), (Triple{100, 0, 0}));
  }
  EXPECT_EQ(Loaded(test::file_of("LAB_L LAB_A LAB_B", "50 1 2\n")).lab(0), (Triple{50, 1, 2}));
  // XYZ alone is no colour data, but the last resort of a spectrum that gives no colour.
  const std::string fields = "XYZ_X XYZ_Y XYZ_Z";
  const Loaded xyz(test::file_of(fields, "96.422 100 82.521\n"));
  EXPECT_EQ(xyz.lab(0), kNoTriple);
  EXPECT_EQ(xyz.xyz(0), (Triple{96.422, 100, 82.521}));
  // f is 1 for X and 1/2 for Y and Z.
  const Loaded last(flat_spectrum({500, 10, 1}, "0.5", fields, "96.422 12.5 10.315125"));
  expect_near(last.lab(0), {42, 250, 0}, 1e-9);
}

TEST(Patches, SpectraWithoutAWeightingTableNeverMeetOtherWeights) {
  const double half = 116.0 * std::cbrt(0.5) - 16.0;
  test::Handle handle;
  ASSERT_EQ(handle.load(flat_spectrum({380, 10, 36}, "1")), 1);  // leaves weights behind
  for (const test::Bands& bands : {test::Bands{380, 5, 71},
                                   {400, 1, 301},
                                   {380, 3, 118},
                                   {480, 10, 26},
                                   {400, 10, 20},
                                   {730, -10, 36},
                                   {850, -1, 500},
                                   {500, 100, 2},
                                   {400, 0, 36},
                                   {380, 10, 1}}) {
    // Lab of the file; without it the colour-matching functions, where two wavelengths differ.
    ASSERT_EQ(handle.load(flat_spectrum(bands, "0.5", "LAB_L LAB_A LAB_B", "50 1 2")), 1);
    EXPECT_EQ(handle.lab(0), (Triple{50, 1, 2})) << bands.start << ' ' << bands.step;
    EXPECT_EQ(handle.spectrum(0).size(), static_cast<std::size_t>(bands.count));
    ASSERT_EQ(handle.load(flat_spectrum(bands, "0.5")), 1);
    EXPECT_EQ(handle.messages(), "Note: no weighting table for this spectral range.\n");
    const bool is_converted = bands.step != 0 && bands.count > 1;
    expect_near(handle.lab(0), is_converted ? Triple{half, 0, 0} : kNoTriple, 1e-9);
  }
}

TEST(Patches, AnUnsupportedGridFailsTheLoad) {
  for (const char* fields :
       {"nm400 nm410.5 nm421", "nm400 nm410 nm425 nm430", "R_400 R_410 R_INDEX",
        "nm99999999999 nm1", "R_nan", "R_inf R_inf", "R_1e999"}) {
    const Loaded chart(test::file_of(fields, ""));
    EXPECT_EQ(chart.result, 0) << fields;
    EXPECT_EQ(chart.messages(), "Unsupported spectral resolution!\n") << fields;
  }
}

// By the fields: every kind of data, and wavelengths that are few or of unequal steps.
TEST(Patches, ContentsByForm) {
  const struct {
    std::string fields, contents, color_model;
    int channels;
  } cases[] = {
      {"CMYK_C CMYK_M CMYK_Y CMYK_K SAMPLE_ID", "device id 0-0/0 x0", "100", 4},
      {"CMY_Y CMY_M CMY_C LAB_L LAB_C LAB_H SampleName", "device lch name 0-0/0 x0", "010", 3},
      {"RGB_R RGB_G RGB_B SAMPLE_LOC D_VIS", "device loc 0-0/0 x0", "001", 3},
      {"3CLR_1 3CLR_2 3CLR_3 LAB_L LAB_A LAB_B", "device lab color 0-0/0 x0", "000", 3},
      {"XYZ_X XYZ_Y XYZ_Z", "xyz 0-0/0 x0", "000", 0},
      {"GRAY nm500", "device spectral color 500-500/0 x1", "000", 1},
      {"nm500 nm520", "spectral color 500-520/20 x2", "000", 0},
      {"nm400 nm410 nm421 nm430", "spectral color 400-430/10 x4", "000", 0},
  };
  for (const auto& c : cases) {
    const auto fields = 1 + static_cast<int>(std::ranges::count(c.fields, ' '));
    const Loaded chart(test::file_of(c.fields, test::repeated("1", fields) + "\n"));
    EXPECT_EQ(test::contents(chart), c.contents);
    EXPECT_EQ(test::color_model(chart), c.color_model) << c.fields;
    EXPECT_EQ(num_device_channels(chart), c.channels) << c.fields;
  }
  const Loaded gap("% Cyan;Magenta;Black\n1;2;3\n", 1);  // no Yellow: its channel reads 0
  EXPECT_EQ(gap.device(0), (std::vector<double>{1, 2, 0}));
  const Loaded inks("% Cyan;Magenta;Yellow;Black\n50,5;2;3;4\n", 1);
  EXPECT_EQ(inks.device(0), (std::vector<double>{50.5, 2, 3, 4}));
  EXPECT_EQ(test::color_model(inks), "000");  // its fields have other names
  EXPECT_EQ(test::contents(nullptr) + test::color_model(nullptr), "0-0/0 x0000");
  for (const auto count : {num_patches, num_indices, num_device_channels}) {
    EXPECT_EQ(count(nullptr) + count(test::Handle()), 0);
  }
}

// Every accessor, for a position that does not exist or a handle that is none.
void expect_nothing(void* handle, int patch) {
  EXPECT_STREQ(get_id_from_patch(handle, patch), "");
  EXPECT_STREQ(get_loc_from_patch(handle, patch), "");
  EXPECT_STREQ(get_name_from_patch(handle, patch), "");
  EXPECT_EQ(get_spectrum_from_patch(handle, patch), nullptr);
  Triple out = kNoTriple;
  get_lab_from_patch(handle, patch, out.data());
  get_xyz_from_patch(handle, patch, out.data());
  get_dev_from_patch(handle, patch, out.data());
  EXPECT_EQ(out, kNoTriple);
}

TEST(Patches, PositionsThatDoNotExistAreAnsweredLikeMissingData) {
  const Loaded chart(test::file_of(
      "SAMPLE_ID SAMPLE_NAME SAMPLE_LOC GRAY XYZ_X XYZ_Y XYZ_Z LAB_L LAB_A LAB_B nm500",
      "1 n l 50 1 2 3 4 5 6 0.5\n"));
  for (const int patch : {-1, 1, INT_MAX, INT_MIN}) {
    expect_nothing(chart, patch);
    expect_nothing(nullptr, patch);
  }
  expect_nothing(nullptr, 0);
  get_lab_from_patch(chart, 0, nullptr);
  get_xyz_from_patch(chart, 0, nullptr);
  get_dev_from_patch(chart, 0, nullptr);
  Triple triple = kNoTriple;
  lab_to_srgb(nullptr, triple.data());
  lab_to_srgb(triple.data(), nullptr);
  EXPECT_EQ(triple, kNoTriple);
}

}  // namespace
