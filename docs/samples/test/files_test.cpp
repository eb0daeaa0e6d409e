// What the guide says about its example files.
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using test::Triple;

std::string path_of(const std::string& name) { return std::string(GUIDE_DATA) + "/" + name; }

TEST(GuideFiles, ExampleFilesGiveWhatIsSaid) {
  const struct {
    std::string name;
    int mode, result, patches, indices, channels;
    std::string messages;
  } cases[] = {
      {"chart.txt", 0, 1, 5, 4, 4, ""},
      {"iso28178.txt", 0, 1, 2, 2, 1, ""},
      {"older-form.txt", 0, 1, 2, 2, 3, ""},
      {"irregular.txt", 0, 1, 2, 2, 1, ""},
      {"ink-names.txt", 0, 1, 1, 1, 3, ""},
      {"free-text.txt", 0, 1, 1, 1, 0, ""},
      {"keywords-first.txt", 0, 1, 1, 1, 0, ""},
      {"five-nm.txt", 0, 1, 1, 1, 0, "Note: no weighting table for this spectral range.\n"},
      {"short-row.txt", 0, 0, 0, 0, 0,
       "Overwriting keyword 'SERIAL'\n"
       "In DATA block : line 10 has 3 fields, but 4 are required!\n"},
      {"table.csv", 1, 1, 3, 3, 4, ""},
      {"table.csv", 0, 0, 0, 0, 0, "Overwriting keyword '%'\nEOF, but no DATA found!\n"},
      {"chart.txt", 1, 1, 16, 16, 1, ""},
  };
  for (const auto& c : cases) {
    const test::Handle file;
    set_parse_mode(file, c.mode);
    EXPECT_EQ(parse_file(file, path_of(c.name).c_str()), c.result) << c.name;
    EXPECT_EQ(file.messages(), c.messages) << c.name;
    EXPECT_EQ(num_patches(file), c.patches) << c.name;
    EXPECT_EQ(num_indices(file), c.indices) << c.name;
    EXPECT_EQ(num_device_channels(file), c.channels) << c.name;
  }
}

TEST(GuideFiles, WhatIsSaidOfEach) {
  const test::Handle irregular;
  ASSERT_EQ(parse_file(irregular, path_of("irregular.txt").c_str()), 1);
  EXPECT_STREQ(get_value_of_keyword(irregular, "SERIAL"), "second");
  EXPECT_STREQ(get_value_of_keyword(irregular, "MATERIAL"), "coated paper");
  EXPECT_EQ(has_keyword(irregular, "PROD_DATE"), 0);
  EXPECT_STREQ(get_name_from_patch(irregular, 0), R"(Patch ""one"")");
  EXPECT_STREQ(get_name_from_patch(irregular, 1), "Patch,2");
  EXPECT_EQ(irregular.lab(1), (Triple{16, 0, 5}));
  EXPECT_STREQ(get_device_channel_name(irregular, 0), "irregular");

  const test::Handle table;
  set_parse_mode(table, 1);
  ASSERT_EQ(parse_file(table, path_of("table.csv").c_str()), 1);
  EXPECT_STREQ(get_name_from_patch(table, 1), "Cyan; solid");
  EXPECT_EQ(table.lab(2), (Triple{16.2, 0.1, 0.2}));
  EXPECT_EQ(dev_is_cmyk(table), 0);

  const test::Handle inks;
  ASSERT_EQ(parse_file(inks, path_of("ink-names.txt").c_str()), 1);
  const char* const names[] = {"Orange", "Dark Green", "Varnish"};
  for (int i = 0; i < 3; ++i) EXPECT_STREQ(get_device_channel_name(inks, i), names[i]);
}

}  // namespace
