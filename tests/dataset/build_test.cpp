// What a load builds from a file, and from the next file on the same handle.
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using test::file_of;
using test::Loaded;

const std::string kNoTable = "Note: no weighting table for this spectral range.\n";

TEST(Build, TheStepIsThatOfTheFirstTwoBands) {
  EXPECT_EQ(spectral_step(Loaded(file_of("R_400 R_500", "1 2\n"))), 100.0);
  EXPECT_EQ(spectral_step(Loaded(file_of("R_400 R_411 R_420", "1 2 3\n"))), 11.0);
}

TEST(Build, AllColumnsOfASemicolonTableHoldNumbers) {
  const Loaded table("SAMPLE_NAME;LAB_L;LAB_A;LAB_B\na,b,c;1,5;;x\n", 1);
  EXPECT_STREQ(get_name_from_patch(table, 0), "a.b,c");
  EXPECT_EQ(table.lab(0), (test::Triple{1.5, 0, 0}));
}

TEST(Build, EveryDistinctValueIsCounted) {
  constexpr int kValues = 300;
  std::string rows;
  for (int i = 0; i < 2 * kValues; ++i) rows += std::to_string(i % kValues) + "\n";
  const Loaded chart(file_of("GRAY", rows));
  ASSERT_EQ(num_distinct_dev_values(chart, 0), kValues);
  for (int i = 0; i < kValues; ++i) {
    EXPECT_EQ(get_distinct_dev_value(chart, 0, i), i);
    EXPECT_EQ(get_distinct_dev_value_count(chart, 0, i), 2);
  }
}

TEST(Build, DensitiesReplaceEarlierNotes) {
  const Loaded chart(file_of("GRAY D_VIS R_400 R_405", "1 1 1 1\n"));
  EXPECT_EQ(chart.result, 1);
  EXPECT_EQ(chart.messages(), "Averaging of densities not implemented, yet!");
}

TEST(Build, AFullToneThatFailsComesBehindWhatIsBuilt) {
  Loaded chart(file_of("CMYK_C CMYK_M CMYK_Y CMYK_K", "0 0 0 0\n7 0 0 0\n8 0 0 0\n"));
  ASSERT_EQ(get_paperwhite_index(chart), 0);
  const std::string ink = "LGOMCCHANNEL01 \"InkName = A LabFullToneColor = 1e-400 0 0\"\n";
  EXPECT_EQ(chart.load(file_of("CMY_C CMY_M CMY_Y R_400 R_405", "9 0 0 1 1\n0 0 0 1 1\n", ink)), 0);
  EXPECT_EQ(chart.messages(), kNoTable + "stod argument out of range\n");
  EXPECT_EQ(dev_is_cmyk(chart), 0);
  EXPECT_EQ(dev_is_cmy(chart), 1);
  EXPECT_EQ(get_paperwhite_index(chart), 1);
  EXPECT_EQ(num_distinct_dev_values(chart, 0), 2);
  EXPECT_EQ(get_distinct_dev_value(chart, 0, 1), 9.0);
}

TEST(Build, ColorantsNameChannelsBeforeInkNames) {
  std::string header = "INK_NAME_1 Other\nINK_NAME_11 \"Baker's Dozen's Red\"\n";
  for (int i = 1; i <= 10; ++i) {
    const std::string number = std::to_string(i);
    header += "LGOMCCHANNEL" + std::string(i < 10 ? "0" : "") + number + " \"InkName = Ink" +
              number + "\"\n";
  }
  const Loaded chart(file_of(test::numbered("11CLR_", 1, 1, 11), "", header));
  EXPECT_STREQ(get_device_channel_name(chart, 0), "Ink1");
  EXPECT_STREQ(get_device_channel_name(chart, 9), "Ink10");
  EXPECT_STREQ(get_device_channel_name(chart, 10), "Baker's Dozen");
}

TEST(Build, KeywordsAreOrderedByUnsignedBytes) {
  const Loaded chart(file_of("GRAY", "",
                             "Key\xC3\xA4 1\nKeyz 2\nKey 3\nLong_name_\xFF 4\nLong_name_a 5\n"
                             "\x80 6\n"));
  std::string values;
  for (int i = 0; i < num_keywords(chart); ++i) values += get_value(chart, i);
  EXPECT_EQ(values, "321546");
  EXPECT_STREQ(get_value_of_keyword(chart, "\x80"), "6");
}

TEST(Build, TheFirstFileOfAHandleDescribesTheDevice) {
  Loaded chart(file_of("GRAY", "",
                       "INSTRUMENTATION \"Maker One\"\nMEASUREMENT_SOURCE \"Filter=A\"\n"
                       "WEIGHTING_FUNCTION \"OBSERVER, 2\"\n"));
  chart.load(
      file_of("GRAY", "",
              "INSTRUMENTATION \"Other Two\"\nMEASUREMENT_SOURCE \"Filter=B\"\n"
              "WEIGHTING_FUNCTION \"OBSERVER, 10\"\nWEIGHTING_FUNCTION \"ILLUMINANT, A\"\n"));
  EXPECT_STREQ(device_manufacturer(chart), "Maker");
  EXPECT_STREQ(device_model(chart), "One");
  EXPECT_STREQ(device_filter(chart), "A");
  EXPECT_STREQ(device_measurement_source(chart), "Filter=A");
  EXPECT_STREQ(observer(chart), "2");
  EXPECT_STREQ(illuminant(chart), "A");  // which only the second tells
}

}  // namespace
