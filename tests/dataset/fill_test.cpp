#include "dataset/fill.h"

#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace vantor::DataSet;

PatchDataSet filled(const std::string& text, int mode = 1) {
  vantor::MeasData::MeasFileParser reader(mode);
  PatchDataSet data_set;
  EXPECT_TRUE(read_memory(data_set, text, reader)) << data_set.messages;
  return data_set;
}

TEST(Fill, FieldKindsFollowTheFirstFieldOfEachGroup) {
  const auto kinds = [](const std::string& fields) {
    std::string codes;
    for (const FieldKind kind : filled(test::file_of(fields, "")).field_kinds) {
      codes += std::to_string(static_cast<int>(kind)) + ' ';
    }
    return codes;
  };
  // LAB_L is the first of Lab and of LCh and counts for Lab.
  EXPECT_EQ(kinds("SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B"), "6 0 2 ");
  EXPECT_EQ(kinds("SCW_INDEX SAMPLE_NAME SAMPLE_LOC D_VIS XYZ_X Lab_L R_400"), "9 8 7 5 4 2 1 ");
  EXPECT_EQ(kinds("CMYK_K CMYK_M CMYK_Y CMYK_C"), "0 ");
  EXPECT_EQ(kinds("LAB_A XYZ_Y X"), "");  // groups without their first field
}

TEST(Fill, KeepsWhatTheFileSays) {
  const PatchDataSet data_set = filled(test::file_of(
      "SCW_INDEX D_RED MEAN_DE LAB_L LAB_C LAB_H XYZ_Y D_VIS OTHER", "3 0,5 9 50 1 2 8 1.5 7\n",
      "SERIAL x # c\nWEIGHTING_FUNCTION a b\nWEIGHTING_FUNCTION c\nCOMPUTATIONAL_PARAMETER p\n"
      "PROCESSCOLOR_ID q\nSPOTCOLOR_ID r\n"));
  using Texts = std::vector<std::string>;
  using Values = std::vector<double>;
  const auto values_of = [](const auto& table) {
    return Values(table.values().begin(), table.values().end());
  };
  EXPECT_EQ(data_set.file_identifier, "CGATS.17");
  ASSERT_EQ(data_set.header_keywords.size(), 1U);
  EXPECT_EQ(data_set.header_keywords.values.at(0), "x");
  EXPECT_EQ(data_set.header_keywords.comments.at(0), "c");
  EXPECT_EQ(data_set.weighting_functions, (Texts{"a b", "c"}));
  EXPECT_EQ(data_set.computational_parameters, Texts{"p"});
  EXPECT_EQ(data_set.process_color_ids, Texts{"q"});
  EXPECT_EQ(data_set.spot_color_ids, Texts{"r"});
  // XYZ_Y belongs to a group, if to an incomplete one.
  EXPECT_EQ(data_set.unclassified_fields, (Texts{"MEAN_DE", "OTHER"}));
  EXPECT_EQ(data_set.scw_indices, Values{3});
  EXPECT_EQ(values_of(data_set.density_values), (Values{0.5, 1.5}));
  EXPECT_EQ(values_of(data_set.lch_values), (Values{50, 1, 2}));
}

TEST(Fill, DecimalsOfTheFirstDeviceValue) {
  const auto decimals = [](const std::string& cell) {
    return filled(test::file_of("GRAY", cell + "\n")).device_decimals;
  };
  EXPECT_EQ(decimals("12.500"), 3);
  EXPECT_EQ(decimals("12"), 0);
  EXPECT_EQ(decimals("12."), 0);
  EXPECT_EQ(decimals("12,50"), 2);
  EXPECT_EQ(decimals("1.2.3"), 1);
  EXPECT_EQ(decimals("x.75e1"), 2);
  EXPECT_EQ(filled(test::file_of("GRAY", "")).device_decimals, -1);
  EXPECT_EQ(filled(test::file_of("LAB_L", "1.5\n")).device_decimals, -1);
}

}  // namespace
