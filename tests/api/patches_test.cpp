#include "api/measdata.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>
#include <vector>

namespace {

using test::kUntouched;
using test::Loaded;
using test::Triple;

constexpr Triple kNoTriple = {kUntouched, kUntouched, kUntouched};

std::string repeated(const std::string& word, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += " " + word;
  return text;
}

// One patch whose spectrum has the same value at every wavelength.
std::string spectral_file(const std::string& prefix, int start, int step, int count,
                          const std::string& value, const std::string& more_fields = "",
                          const std::string& more_values = "") {
  return test::file_of(
      "SAMPLE_ID " + more_fields + " " + test::numbered(prefix, start, step, count),
      "1 " + more_values + repeated(value, count) + "\n");
}

void expect_near(const Triple& actual, const Triple& expected, double tolerance) {
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance);
}

TEST(Patches, ACmykChartWithSpectraFromFileToColour) {
  const Loaded chart(test::file_of("SAMPLE_ID SAMPLE_NAME SAMPLE_LOC CMYK_K CMYK_C CMYK_M CMYK_Y " +
                                       test::numbered("SPECTRAL_NM", 380, 10, 36),
                                   "A1 white \"1 1\" 0 0 0 0" + repeated("1", 36) + "\n" +
                                       "A2 \"half grey\" B2 50,5 1 2 3" +
                                       repeated("0.184186518", 36) + "\n"));
  ASSERT_EQ(chart.result, 1);
  EXPECT_EQ(chart.messages(), "");
  EXPECT_EQ(num_patches(chart), 2);
  EXPECT_EQ(num_device_channels(chart), 4);
  EXPECT_EQ(dev_is_cmyk(chart), 1);
  EXPECT_EQ(has_device_data(chart), 1);
  EXPECT_EQ(has_spectral_data(chart), 1);
  EXPECT_EQ(has_color_data(chart), 1);
  EXPECT_EQ(has_lab_data(chart), 0);
  EXPECT_EQ(spectral_start(chart), 380.0);
  EXPECT_EQ(spectral_end(chart), 730.0);
  EXPECT_EQ(spectral_step(chart), 10.0);
  EXPECT_EQ(spectral_size(chart), 36);

  EXPECT_STREQ(get_id_from_patch(chart, 0), "A1");
  EXPECT_STREQ(get_name_from_patch(chart, 1), "half grey");
  EXPECT_STREQ(get_loc_from_patch(chart, 0), "1 1");
  EXPECT_EQ(chart.device(1), (std::vector<double>{1, 2, 3, 50.5}));
  EXPECT_EQ(chart.spectrum(1), std::vector<double>(36, 0.184186518));
  EXPECT_EQ(chart.lab(0), (Triple{100, 0, 0}));
  // L* of a grey of reflectance ((50 + 16) / 116)^3 is 50.
  expect_near(chart.lab(1), {50, 0, 0}, 1e-6);
  EXPECT_EQ(chart.xyz(0), kNoTriple);
}

// Lab by hand: a spectrum that is 1 at 550 nm only gives X, Y, Z as the weights there over their
// sums (D50, 2 degrees, Table 5: 4.207, 9.650, 0.085 of 96.421, 99.997, 82.524).
TEST(Patches, LabFromASpectrumFollowsTheWeights) {
  std::string row = "1";
  for (int nm = 380; nm <= 730; nm += 10) row += nm == 550 ? " 1" : " 0";
  const Loaded chart(test::file_of("SAMPLE_ID " + test::numbered("nm", 380, 10, 36), row + "\n"));
  const double fx = std::cbrt(4.207 / 96.421);
  const double fy = std::cbrt(9.650 / 99.997);
  const double fz = 7.787037037037037 * 0.085 / 82.524 + 16.0 / 116.0;
  expect_near(chart.lab(0), {116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz)}, 1e-6);
}

TEST(Patches, LabComesFromTheBestSourceThereIs) {
  const std::string lab_fields = "LAB_L LAB_A LAB_B";
  const std::string xyz_fields = "XYZ_X XYZ_Y XYZ_Z";
  // The spectrum goes before the file's own Lab.
  const Loaded both(spectral_file("nm", 380, 10, 36, "1", lab_fields, "50 1 2"));
  EXPECT_EQ(has_lab_data(both), 1);
  EXPECT_EQ(both.lab(0), (Triple{100, 0, 0}));
  const Loaded coarse(spectral_file("nm", 400, 20, 16, "1", lab_fields, "50 1 2"));
  EXPECT_EQ(coarse.lab(0), (Triple{100, 0, 0}));
  const Loaded lab(test::file_of(lab_fields, "50 1 2\n"));
  EXPECT_EQ(lab.lab(0), (Triple{50, 1, 2}));
  // XYZ alone is no colour data.
  const Loaded xyz(test::file_of(xyz_fields, "96.422 100 82.521\n"));
  EXPECT_EQ(has_xyz_data(xyz), 1);
  EXPECT_EQ(has_color_data(xyz), 0);
  EXPECT_EQ(xyz.lab(0), kNoTriple);
  EXPECT_EQ(xyz.xyz(0), (Triple{96.422, 100, 82.521}));
}

TEST(Patches, SpectraWithoutAWeightingTableNeverMeetOtherWeights) {
  const char* note = "Note: no weighting table for this spectral range.\n";
  test::Handle handle;
  ASSERT_EQ(handle.load(spectral_file("nm", 380, 10, 36, "1")), 1);  // leaves weights behind
  for (const auto& [start, step, count] : {std::tuple{380, 5, 71},
                                           {400, 1, 301},
                                           {480, 10, 26},
                                           {400, 10, 20},
                                           {730, -10, 36},
                                           {400, 0, 36},
                                           {380, 10, 1}}) {
    ASSERT_EQ(
        handle.load(spectral_file("nm", start, step, count, "0.5", "LAB_L LAB_A LAB_B", "50 1 2")),
        1);
    EXPECT_EQ(handle.messages(), note) << start << ' ' << step;
    EXPECT_EQ(handle.lab(0), (Triple{50, 1, 2})) << start << ' ' << step;
    EXPECT_EQ(handle.spectrum(0).size(), static_cast<std::size_t>(count));
  }
  // Without Lab in the file such spectra are integrated with the colour-matching functions.
  const double half = 116.0 * std::cbrt(0.5) - 16.0;
  for (const auto& [start, step, count] : {std::tuple{380, 5, 71},
                                           {400, 1, 301},
                                           {380, 3, 118},
                                           {480, 10, 26},
                                           {730, -10, 36},
                                           {850, -1, 500},
                                           {300, 40, 14},
                                           {500, 100, 2}}) {
    ASSERT_EQ(handle.load(spectral_file("nm", start, step, count, "0.5")), 1);
    EXPECT_EQ(handle.messages(), note);
    expect_near(handle.lab(0), {half, 0, 0}, 1e-9);
  }
  // A step of 0 and a single wavelength give no colour; XYZ is the last resort.
  ASSERT_EQ(handle.load(spectral_file("nm", 400, 0, 36, "0.5")), 1);
  EXPECT_EQ(handle.lab(0), kNoTriple);
  ASSERT_EQ(
      handle.load(spectral_file("nm", 500, 10, 1, "0.5", "XYZ_X XYZ_Y XYZ_Z", "96.422 100 82.521")),
      1);
  EXPECT_EQ(handle.lab(0), (Triple{100, 0, 0}));
}

TEST(Patches, AnUnsupportedGridFailsTheLoad) {
  for (const char* fields :
       {"nm400 nm410.5 nm421", "nm400 nm410 nm425 nm430", "R_400 R_410 R_INDEX",
        "nm99999999999 nm1", "R_nan", "R_inf R_inf", "R_1e999"}) {
    const Loaded chart(test::file_of(std::string("SAMPLE_ID ") + fields, ""));
    EXPECT_EQ(chart.result, 0) << fields;
    EXPECT_EQ(chart.messages(), "Unsupported spectral resolution!\n") << fields;
    EXPECT_EQ(has_spectral_data(chart), 0);
  }
}

TEST(Patches, WithoutSpectraThereIsNoRange) {
  const Loaded lab(test::file_of("LAB_L LAB_A LAB_B", "50 1 2\n"));
  EXPECT_EQ(spectral_size(lab), 0);
  EXPECT_EQ(spectral_start(lab), 0.0);
  EXPECT_EQ(get_spectrum_from_patch(lab, 0), nullptr);
  const Loaded one(test::file_of("nm500", "0.5\n"));
  EXPECT_EQ(spectral_start(one), 500.0);
  EXPECT_EQ(spectral_end(one), 500.0);
  EXPECT_EQ(spectral_step(one), 0.0);
  EXPECT_EQ(spectral_size(one), 1);
  EXPECT_EQ(one.spectrum(0), std::vector<double>{0.5});
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
  ASSERT_EQ(chart.result, 1);
  for (const int patch : {-1, 1, INT_MAX, INT_MIN}) expect_nothing(chart, patch);
  for (const int patch : {-1, 0, 1}) expect_nothing(nullptr, patch);
  get_lab_from_patch(chart, 0, nullptr);
  get_xyz_from_patch(chart, 0, nullptr);
  get_dev_from_patch(chart, 0, nullptr);
  lab_to_srgb(nullptr, nullptr);
}

TEST(Patches, ANullHandleHoldsNothing) {
  const auto yes_no = {num_patches,        num_device_channels, has_device_data,     has_xyz_data,
                       has_lab_data,       has_lch_data,        has_spectral_data,   has_color_data,
                       dev_is_cmyk,        dev_is_cmy,          dev_is_rgb,          spectral_size,
                       has_sample_id_data, has_sample_loc_data, has_sample_name_data};
  const test::Handle fresh;
  for (const auto question : yes_no) {
    EXPECT_EQ(question(nullptr), 0);
    EXPECT_EQ(question(fresh), 0);
  }
  for (const auto question : {spectral_start, spectral_end, spectral_step}) {
    EXPECT_EQ(question(nullptr), 0.0);
    EXPECT_EQ(question(fresh), 0.0);
  }
  EXPECT_EQ(parse_messages(nullptr), nullptr);
}

TEST(Patches, FlagsAndChannelsByForm) {
  const Loaded cmy(
      test::file_of("CMY_Y CMY_M CMY_C LAB_L LAB_C LAB_H D_VIS SampleName", "3 2 1 5 6 7 8 x\n"));
  EXPECT_EQ(dev_is_cmy(cmy), 1);
  EXPECT_EQ(dev_is_rgb(cmy) + dev_is_cmyk(cmy), 0);
  EXPECT_EQ(has_lch_data(cmy), 1);
  EXPECT_EQ(has_lab_data(cmy) + has_sample_id_data(cmy) + has_sample_loc_data(cmy), 0);
  EXPECT_EQ(has_sample_name_data(cmy), 1);
  EXPECT_EQ(cmy.device(0), (std::vector<double>{1, 2, 3}));
  const Loaded rgb(test::file_of("RGB_R RGB_G RGB_B", "255 0 7\n"));
  EXPECT_EQ(dev_is_rgb(rgb), 1);
  const Loaded three(test::file_of("3CLR_1 3CLR_2 3CLR_3", "1 2 3\n"));
  EXPECT_EQ(dev_is_cmy(three) + dev_is_rgb(three) + dev_is_cmyk(three), 0);
  EXPECT_EQ(num_device_channels(three), 3);
  const Loaded gap("% Cyan;Magenta;Black\n1;2;3\n", 1);  // no Yellow: its channel reads 0
  EXPECT_EQ(gap.device(0), (std::vector<double>{1, 2, 0}));
}

}  // namespace
