// Files loaded one after the other on one handle: what must survive and what must not.
#include "api/measdata.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// Everything that a load answers, but for the keywords, in one text.
std::string picture_of(void* handle) {
  std::string text =
      std::to_string(num_patches(handle)) + "/" + std::to_string(num_indices(handle)) + " white " +
      std::to_string(get_paperwhite_index(handle)) + " is " + std::to_string(dev_is_cmyk(handle)) +
      std::to_string(dev_is_cmy(handle)) + std::to_string(dev_is_rgb(handle)) + " holds " +
      std::to_string(has_xyz_data(handle)) + std::to_string(has_lab_data(handle)) +
      std::to_string(has_lch_data(handle)) + std::to_string(has_sample_id_data(handle)) +
      std::to_string(has_sample_name_data(handle)) + " bands " +
      std::to_string(spectral_size(handle)) + " from " + std::to_string(spectral_start(handle)) +
      " channels";
  for (int channel = 0; channel < num_device_channels(handle); ++channel) {
    const char* name = get_device_channel_name(handle, channel);
    text += std::string(" ") + (name == nullptr ? "-" : name) +
            std::to_string(num_wedge_steps(handle, channel)) +
            std::to_string(get_solid_index(handle, channel)) +
            std::to_string(num_distinct_dev_values(handle, channel));
  }
  for (int patch = 0; patch < num_patches(handle); ++patch) {
    double lab[3] = {-1, -1, -1};
    get_lab_from_patch(handle, patch, lab);
    DeStats stats = {-1, 0, 0};
    get_de_stats_from_index(handle, patch, &stats);
    text += "; " + std::string(get_id_from_patch(handle, patch)) + " " + std::to_string(lab[0]) +
            " x" + std::to_string(stats.repeat_count);
  }
  return text + " says " + parse_messages(handle);
}

std::string repeated(const std::string& word, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += word;
  return text;
}

const std::string kFiles[] = {
    test::file_of("SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B",
                  "1 0 0 0 0 95 0 0\n2 100 0 0 0 55 0 0\n3 0 0 0 0 96 0 0\n", "SERIAL 1\n"),
    test::file_of("RGB_R RGB_G RGB_B " + test::numbered("nm", 380, 10, 36),
                  "0 0 0" + repeated(" 0.5", 36) + "\n9 9 9" + repeated(" 1", 36) + "\n"),
    test::file_of("SAMPLE_NAME " + test::numbered("nm", 400, 150, 3), "n 1 1 1\n"),
    test::file_of("XYZ_X XYZ_Y XYZ_Z", "1 2 3\n"),
    test::file_of("GRAY D_VIS LAB_L LAB_A LAB_B", "0 1 2 3 4\n"),
    test::file_of("nm400 nm410 nm500", "1 1 1\n"),  // an irregular grid fails
    test::file_of("GRAY", "", "LGOMCCHANNEL01 \"InkName = A LabFullToneColor = x x x\"\n"),
    test::file_of("LAB_L LAB_C LAB_H SAMPLE_ID " + test::numbered("10CLR_", 1, 1, 10),
                  "1 2 3 id 9 8 7 6 5 4 3 2 1 0\n"),
    "nothing that is known",
};

TEST(Succession, AFileAnswersTheSameWhateverWasLoadedBefore) {
  for (const std::string& second : kFiles) {
    test::Handle fresh;
    const int expected_result = fresh.load(second);
    const std::string expected = picture_of(fresh);
    for (const std::string& first : kFiles) {
      test::Handle used;
      used.load(first);
      EXPECT_EQ(used.load(second), expected_result);
      // The colour model flags of an earlier file outlive a failed load.
      if (expected_result == 1) {
        EXPECT_EQ(picture_of(used), expected) << first << second;
      }
    }
  }
}

TEST(Succession, WhatAFailedLoadLeaves) {
  test::Handle handle;
  ASSERT_EQ(handle.load(kFiles[0]), 1);
  EXPECT_EQ(handle.load("nothing that is known"), 0);
  EXPECT_EQ(num_patches(handle) + num_indices(handle) + num_device_channels(handle), 0);
  EXPECT_EQ(get_paperwhite_index(handle), -1);
  EXPECT_EQ(num_wedge_steps(handle, 0), 0);
  EXPECT_EQ(get_device_channel_name(handle, 0), nullptr);  // there is no channel 0 any more
  EXPECT_EQ(dev_is_cmyk(handle), 1);
  EXPECT_EQ(num_keywords(handle), 1);
  EXPECT_STREQ(sample_serial_number(handle), "1");
}

// Whatever the handle gave out can be read again as a file, though the load replaces it.
TEST(Succession, MemoryOfTheHandleAsInput) {
  const std::string table = "% Cyan;Magenta;Yellow;Black;" + repeated("0", 80);
  test::Handle handle;
  ASSERT_EQ(handle.load(test::file_of("GRAY SAMPLE_NAME " + test::numbered("nm", 380, 10, 36),
                                      "1 \"" + table + "\"" + repeated(" 0.5", 36) + "\n",
                                      "INK_NAME_1 \"" + table + "\"\n")),
            1);
  const char* ink = get_device_channel_name(handle, 0);
  ASSERT_EQ(std::string(ink), table);
  set_parse_mode(handle, 1);
  EXPECT_EQ(parse_mem(handle, table.size(), ink, nullptr), 1);
  EXPECT_EQ(num_device_channels(handle), 4);

  set_parse_mode(handle, 0);
  const std::string repeats =
      test::file_of("GRAY " + test::numbered("nm", 380, 10, 36),
                    "1" + repeated(" 0.25", 36) + "\n1" + repeated(" 0.5", 36) + "\n");
  for (const auto& spectrum_of : {get_spectrum_from_patch, get_spectrum_from_index}) {
    ASSERT_EQ(handle.load(repeats), 1);
    const double* spectrum = spectrum_of(handle, 0);
    EXPECT_EQ(parse_mem(handle, 36 * sizeof(double), reinterpret_cast<const char*>(spectrum), ""),
              0);
    EXPECT_NE(handle.messages(), "");
  }
}

}  // namespace
