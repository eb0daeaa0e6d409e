// Merged patches and what the chart tells about its channels.
#include "api/measdata.h"
#include "tests/api/charts.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <string>
#include <vector>

namespace {

using test::kUntouched;
using test::Loaded;
using test::Triple;
using Values = std::vector<double>;

constexpr Triple kNoTriple = {kUntouched, kUntouched, kUntouched};

Triple lab_from_index(void* handle, int index) {
  Triple lab = kNoTriple;
  get_lab_from_index(handle, index, lab.data());
  return lab;
}

Values stats(void* handle, int index) {
  DeStats record = {-7, kUntouched, kUntouched};
  get_de_stats_from_index(handle, index, &record);
  return {static_cast<double>(record.repeat_count), record.de_mean, record.de_max};
}

const Values kNoStats = {-7, kUntouched, kUntouched};

const std::string kCmykLab = "SAMPLE_ID SAMPLE_NAME CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B";

TEST(UniquePatches, RepeatsAreMergedIntoTheFirst) {
  const Loaded chart(test::file_of(kCmykLab,
                                   "1 paper 0 0 0 0 90 0 0\n"
                                   "2 cyan 100 0 0 0 50 0 0\n"
                                   "3 again 100 0 0 0 50 3 4\n"
                                   "4 white 0 0 0 0 92 0 0\n"
                                   "5 half 50 0 0 0 70 1 2\n"
                                   "6 third 0 -0.0 0 0 94 0 3\n"));
  EXPECT_EQ(num_patches(chart), 6);
  ASSERT_EQ(num_indices(chart), 3);
  EXPECT_STREQ(get_name_from_index(chart, 1), "cyan");
  EXPECT_STREQ(get_name_from_index(chart, 2), "half");
  EXPECT_EQ(lab_from_index(chart, 0), (Triple{92, 0, 1}));
  EXPECT_EQ(lab_from_index(chart, 1), (Triple{50, 1.5, 2}));
  EXPECT_EQ(stats(chart, 1), (Values{2, 5, 5}));
  EXPECT_EQ(stats(chart, 2), (Values{1, 0, -DBL_MAX}));  // no pair in a file with pairs
  const Values paper = stats(chart, 0);                  // distances 2, 5 and the root of 13
  EXPECT_EQ(paper[0], 3);
  EXPECT_NEAR(paper[1], (2 + 5 + 3.605551275463989) / 3, 1e-14);
  EXPECT_EQ(paper[2], 5);
  double device[4] = {};
  get_dev_from_index(chart, 2, device);
  EXPECT_EQ(device[0], 50.0);
  // Without any repeat all is 0, the count included.
  const Loaded single(
      test::file_of("SAMPLE_LOC " + kCmykLab, "A 1 a 0 0 0 0 90 0 0\nB 2 b 1 0 0 0 50 0 0\n"));
  EXPECT_EQ(num_indices(single), 2);
  for (const int index : {0, 1}) EXPECT_EQ(stats(single, index), (Values{0, 0, 0}));
  void* unique = pass_unique_data(single);
  EXPECT_EQ(get_id_from_patch(unique, 1) + std::string(get_loc_from_patch(unique, 1)) +
                get_name_from_index(single, 1),
            "2Bb");
}

// Two greys of reflectance f^3 with f = (50 + 16) / 116 and (60 + 16) / 116: Delta E is 10.
TEST(UniquePatches, SpectraAreAveragedAndJudgedByTheirLab) {
  const auto file = [](const test::Bands& bands, const std::string& fields,
                       const std::string& values) {
    std::string rows;
    for (const char* value : {"0.184186519", "0.281233343"}) {
      rows += "9 9 9 " + values + test::repeated(value, bands.count) + "\n";
    }
    return test::file_of("RGB_R RGB_G RGB_B " + fields + test::fields_of(bands), rows);
  };
  // By weighting table; by colour-matching functions.
  for (const test::Bands& bands : {test::Bands{380, 10, 36}, {380, 5, 71}}) {
    const Loaded chart(file(bands, "", ""));
    ASSERT_EQ(num_indices(chart), 1);
    EXPECT_NEAR(get_spectrum_from_index(chart, 0)[bands.count - 1], 0.232709931, 1e-15);
    EXPECT_EQ(stats(chart, 0)[0], 2);
    EXPECT_NEAR(stats(chart, 0)[1], 10.0, 1e-5);
    EXPECT_NEAR(stats(chart, 0)[2], 10.0, 1e-5);
    EXPECT_NEAR(lab_from_index(chart, 0)[0], 55.3504, 1e-3);  // of the mean spectrum
  }
  // A grid that no table fits, and Lab in the file: equal Lab, no difference.
  const Loaded own(file({380, 5, 71}, "LAB_L LAB_A LAB_B ", "50 1 2 "));
  EXPECT_EQ(stats(own, 0), (Values{2, 0, 0}));
  EXPECT_EQ(lab_from_index(own, 0), (Triple{50, 1, 2}));
  // A single band is a grid that no conversion takes.
  EXPECT_EQ(stats(Loaded(file({550, 1, 1}, "", "")), 0), (Values{2, 0, -DBL_MAX}));
}

// Pairs in tens of thousands of millions, which a load must not compare and nobody asks one by one.
TEST(UniquePatches, EqualRepeatsAreComparedOnce) {
  constexpr int kRows = 300000;
  std::string rows;
  for (int i = 0; i < kRows / 2; ++i) rows += "7 50 0 0\n7 50 3 4\n";
  const Loaded chart(test::file_of("GRAY LAB_L LAB_A LAB_B", rows + "9 1 1 1\n"));
  for (int times = 0; times < 2; ++times) {
    const Values of_all = stats(chart, 0);
    EXPECT_EQ(of_all[0], kRows);
    EXPECT_NEAR(of_all[1], 5.0 * kRows / 2 / (kRows - 1), 1e-11);
    EXPECT_EQ(of_all[2], 5);
    EXPECT_EQ(stats(chart, 1), (Values{1, 0, -DBL_MAX}));
  }
  // Another file forgets what was kept.
  const std::string other = test::file_of("GRAY LAB_L LAB_A LAB_B", "7 50 0 0\n7 50 6 8\n");
  EXPECT_EQ(parse_mem(chart, other.size(), other.data(), ""), 1);
  EXPECT_EQ(stats(chart, 0), (Values{2, 10, 10}));
}

TEST(UniquePatches, WithoutDeviceValuesNothingIsMerged) {
  const Loaded chart(test::file_of("SAMPLE_NAME LAB_L LAB_A LAB_B XYZ_X XYZ_Y XYZ_Z",
                                   "a 50 1 2 3 4 5\na 50 1 2 3 4 5\n"));
  EXPECT_EQ(num_indices(chart), 2);
  EXPECT_STREQ(get_name_from_index(chart, 1), "a");
  EXPECT_EQ(lab_from_index(chart, 1), (Triple{50, 1, 2}));
  EXPECT_EQ(stats(chart, 0), kNoStats);
  EXPECT_EQ(get_spectrum_from_index(chart, 0), nullptr);
  EXPECT_EQ(has_xyz_data(pass_unique_data(chart)), 1);
  EXPECT_EQ(get_paperwhite_index(chart), -1);
  // XYZ alone is no colour data.
  const Loaded xyz(test::file_of("XYZ_X XYZ_Y XYZ_Z", "50 50 50\n"));
  EXPECT_EQ(num_indices(xyz), 1);
  EXPECT_EQ(lab_from_index(xyz, 0), kNoTriple);
  const Loaded merged(test::file_of("GRAY XYZ_X XYZ_Y XYZ_Z", "0 50 50 50\n0 50 50 50\n"));
  EXPECT_EQ(stats(merged, 0), kNoStats);
}

TEST(UniquePatches, DensitiesAreNotMerged) {
  const Loaded chart(test::file_of("GRAY D_VIS nm500", "0 0.1 1\n0 0.1 1\n"));
  EXPECT_EQ(chart.result, 1);
  EXPECT_EQ(num_patches(chart), 2);
  EXPECT_EQ(num_indices(chart), 0);
  // In place of the note about the wavelength.
  EXPECT_EQ(chart.messages(), "Averaging of densities not implemented, yet!");
  EXPECT_STREQ(parse_messages(pass_unique_data(chart)), chart.messages().c_str());
  EXPECT_EQ(get_paperwhite_index(chart), -1);
  EXPECT_EQ(num_wedge_steps(chart, 0), 0);
  EXPECT_EQ(num_distinct_dev_values(chart, 0), 1);  // of every row
}

TEST(UniquePatches, ThePointerAnswersForMergedPatches) {
  const std::string ones = test::repeated("1", 16) + "\n";
  const Loaded chart(test::file_of(
      "SAMPLE_ID SAMPLE_NAME SAMPLE_LOC GRAY XYZ_X XYZ_Y XYZ_Z LAB_L LAB_A LAB_B LAB_C LAB_H " +
          test::fields_of({400, 20, 16}),
      "1 n l 0 1 2 3 4 5 6 7 8" + ones + "2 o m 5 1 2 3 4 5 6 7 8" + test::repeated("0", 16) +
          "\n3 p k 0 1 2 3 4 5 6 7 8" + ones));
  void* unique = pass_unique_data(chart);
  EXPECT_EQ(num_patches(unique), 2);
  EXPECT_EQ(num_device_channels(unique), 1);
  // XYZ and LCh are not carried over.
  EXPECT_EQ(test::contents(unique), "device lab spectral color id loc name 400-700/20 x16");
  EXPECT_STREQ(get_id_from_patch(unique, 1), "2");
  EXPECT_STREQ(get_name_from_patch(unique, 0), "n");
  EXPECT_STREQ(get_loc_from_patch(unique, 1), "m");
  EXPECT_STREQ(get_id_from_patch(unique, 2), "");
  EXPECT_EQ(get_spectrum_from_patch(unique, 1)[15], 0.0);
  Triple triple = kNoTriple;
  get_xyz_from_patch(unique, 0, triple.data());
  EXPECT_EQ(triple, kNoTriple);
  get_lab_from_patch(unique, 0, triple.data());
  EXPECT_EQ(triple, (Triple{100, 0, 0}));
  get_dev_from_patch(unique, 1, triple.data());
  EXPECT_EQ(triple[0], 5.0);
  EXPECT_EQ(pass_unique_data(nullptr), nullptr);
}

TEST(UniquePatches, IndicesThatDoNotExist) {
  const Loaded chart(test::file_of(kCmykLab, "1 a 0 0 0 0 9 0 0\n2 b 0 0 0 0 9 0 0\n"));
  for (void* handle : {static_cast<void*>(chart), static_cast<void*>(nullptr)}) {
    for (const int index : {-1, 1, 2, INT_MAX, INT_MIN}) {
      EXPECT_STREQ(get_name_from_index(handle, index), "");
      EXPECT_EQ(get_spectrum_from_index(handle, index), nullptr);
      EXPECT_EQ(lab_from_index(handle, index), kNoTriple);
      EXPECT_EQ(stats(handle, index), kNoStats);
      double device[4] = {kUntouched};
      get_dev_from_index(handle, index, device);
      EXPECT_EQ(device[0], kUntouched);
    }
  }
  get_dev_from_index(chart, 0, nullptr);
  get_lab_from_index(chart, 0, nullptr);
  get_de_stats_from_index(chart, 0, nullptr);
}

TEST(ChartAnalysis, PaperWedgesAndSolids) {
  const Loaded chart(test::file_of("CMYK_C CMYK_M CMYK_Y CMYK_K",
                                   "100 0 0 0\n"
                                   "0.25 0 -1 0\n"
                                   "0 -0.0 0 0\n"   // paper
                                   "0 99.9 0 0\n"   // no solid
                                   "40 0 0 -1\n"    // a negative value does not print
                                   "50 0 0 1e-9\n"  // a trace does
                                   "nan 0 0 0\n"    // sorts in front
                                   "0 0 0 0\n"));
  EXPECT_EQ(get_paperwhite_index(chart), 2);
  EXPECT_EQ(test::channel(chart, 0),
            "Cyan wedge 6 1 4 0 solid 0 values 0x3 0.25x1 40x1 50x1 100x1");
  EXPECT_EQ(test::channel(chart, 1), "Magenta wedge 3 solid -1 values 0x7 99.9x1");
  EXPECT_EQ(test::channel(chart, 2), "Yellow wedge solid -1 values -1x1 0x7");
  const Loaded beyond(test::file_of("GRAY", "255\n-1\n"));  // neither solid nor paper
  EXPECT_EQ(test::channel(beyond, 0), "test wedge 1 0 solid -1 values -1x1 255x1");
  EXPECT_EQ(get_paperwhite_index(beyond), -1);
  // A set that is not known has channels, but no analysis.
  const Loaded unknown("% Cyan;Magenta;Black\n0;0;1\n0;0;1\n", 1);
  EXPECT_EQ(num_device_channels(unknown), 3);
  EXPECT_EQ(num_indices(unknown), 2);
  EXPECT_EQ(test::channel(unknown, 0), "- wedge solid -1 values");
}

TEST(ChartAnalysis, ChannelsAndStepsThatDoNotExist) {
  const Loaded chart(test::file_of("GRAY LAB_L LAB_A LAB_B", "100 50 0 0\n"));
  EXPECT_EQ(num_wedge_steps(nullptr, 0), -1);
  EXPECT_EQ(get_wedge_index(nullptr, 0, 0), -1);
  EXPECT_EQ(get_paperwhite_index(nullptr), -1);
  for (const int bad : {-1, 1, INT_MAX, INT_MIN}) {
    EXPECT_EQ(num_wedge_steps(chart, bad), 0);
    EXPECT_EQ(get_wedge_index(chart, bad, 0), 0);
    EXPECT_EQ(get_wedge_index(chart, 0, bad), 0);
    for (const auto& [handle, channel] : {std::pair<void*, int>(chart, bad), {nullptr, 0}}) {
      EXPECT_EQ(get_solid_index(handle, channel), -1);
      EXPECT_EQ(get_device_channel_name(handle, channel), nullptr);
      EXPECT_EQ(num_distinct_dev_values(handle, channel), 0);
      EXPECT_EQ(get_distinct_dev_value(handle, channel, 0), 0.0);
    }
    EXPECT_EQ(get_distinct_dev_value(chart, 0, bad), 0.0);
    EXPECT_EQ(get_distinct_dev_value_count(chart, 0, bad), 0);
  }
}

}  // namespace
