#include "dataset/device_channels.h"

#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vantor::MeasData::MeasFileParser;

struct Channels {
  int space;
  std::vector<std::int32_t> fields;
  bool operator==(const Channels&) const = default;
};

Channels detect(const std::string& text, int mode = 1) {
  MeasFileParser reader(mode);
  reader.load_memory(text);
  Channels channels;
  channels.space = vantor::DataSet::detect_device_channels(reader, channels.fields);
  return channels;
}

std::vector<std::int32_t> first(int count) {
  std::vector<std::int32_t> fields;
  for (int i = 0; i < count; ++i) fields.push_back(i);
  return fields;
}

TEST(DeviceChannels, EachSetIsFoundByItsNames) {
  const struct {
    std::string fields;
    Channels channels;
  } cases[] = {
      {"CMYK_K CMYK_C CMYK_M CMYK_Y", {0, {1, 2, 3, 0}}},  // channel order, not file order
      {"CMYK_C CMYK_M CMYK_Y", {-1, {}}},
      {"2CLR_1 2CLR_2 CMYK_C CMYK_M CMYK_Y CMYK_K", {0, {2, 3, 4, 5}}},
      {"CMY_C CMY_M CMY_Y CMYK_C CMYK_M CMYK_Y CMYK_K", {0, {3, 4, 5, 6}}},
      {"RGB_B RGB_G RGB_R CMY_C CMY_M CMY_Y", {1, {3, 4, 5}}},
      {"GRAY RGB_B RGB_G RGB_R", {2, {3, 2, 1}}},
      {"1CLR_1 GRAY", {3, {1}}},
      {"PC2_1 PC2_2 1CLR_1", {4, {2}}},
      {"2CLR_1 2CLR_2 1CLR_1", {4, {2}}},  // the fewest of a family
      {"SPOT_1 PC2_1 PC2_2", {5, {1, 2}}},
      {test::numbered("10CLR_", 1, 1, 10) + " SPOT_1", {4, {10}}},
      {"4CLR_1 4CLR_2 4CLR_3 4CLR_4", {7, first(4)}},
      {"4CLR_1 4CLR_2 4CLR_4", {-1, {}}},
      {"PC4_1 PC4_2 PC4_3 PC4_4", {7, first(4)}},
      {"SPOT_1 SPOT_2 SPOT_3 SPOT_4", {7, first(4)}},
      {"SPOT_1 SPOT_2 SPOT_4", {5, first(2)}},
      {"SPOT_2", {-1, {}}},
      {test::numbered("SPOT_", 1, 1, 14), {17, first(14)}},
      {test::numbered("SPOT_", 1, 1, 15), {-1, {}}},
      {test::numbered("10CLR_", 1, 1, 10), {13, first(10)}},
      {test::numbered("ACLR_", 1, 1, 9) + " ACLR_A", {13, first(10)}},
      {test::numbered("PC15_", 1, 1, 15), {18, first(15)}},
      {test::numbered("15CLR_", 1, 1, 15), {18, first(15)}},
      {test::numbered("9CLR_", 1, 1, 9), {12, first(9)}},
      {"SAMPLE_ID LAB_L", {-1, {}}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(detect(test::file_of(c.fields, "")), c.channels) << c.fields;
  }
}

TEST(DeviceChannels, ASemicolonTableKeepsTheChannelsBeforeTheGap) {
  EXPECT_EQ(detect("% Cyan;Magenta;Yellow;Black;L\n", 2), (Channels{0, first(4)}));
  EXPECT_EQ(detect("% Cyan;Magenta;Black\n", 2), (Channels{-1, {0, 1, -1}}));
  EXPECT_EQ(detect("CMYK_C;CMYK_M;CMYK_Y;CMYK_K\n", 2), (Channels{-1, {-1}}));
}

}  // namespace
