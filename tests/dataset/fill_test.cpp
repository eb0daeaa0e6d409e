// What the fields of a file become in its data set.
#include "dataset/fill.h"

#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace vantor::DataSet;
using Fields = std::vector<std::int32_t>;
using Texts = std::vector<std::string>;
using Values = std::vector<double>;

PatchDataSet read_text(const std::string& text, int mode) {
  vantor::MeasData::MeasFileParser reader(mode);
  PatchDataSet data_set;
  read_memory(data_set, text, reader);
  return data_set;
}

PatchDataSet filled(const std::string& fields, const std::string& rows = "",
                    const std::string& header = "") {
  return read_text(test::file_of(fields, rows, header), 1);
}

TEST(Fill, ColourGroupsAreCompleteOrAbsent) {
  const struct {
    std::string fields, groups;
  } cases[] = {
      {"XYZ_X XYZ_Y XYZ_Z", "xyz "},
      {"XYZ_X XYZ_Z", ""},
      {"LAB_L LAB_A LAB_B", "lab "},
      {"LAB_L LAB_C LAB_H", "lch "},
      {"LAB_L LAB_A LAB_B LAB_C LAB_H", "lab lch "},
      {"Lab_L Lab_a Lab_b", "lab "},
      {"Lab_L LAB_C LAB_H", ""},  // this L* serves Lab only
      {"Lab_l Lab_a Lab_b", ""},
      {"D_VIS", "density "},
      {"D_MAJOR_FILTER d_vis", ""},
  };
  for (const auto& c : cases) {
    const PatchDataSet data_set = filled(c.fields);
    EXPECT_EQ(std::string(data_set.has_xyz ? "xyz " : "") + (data_set.has_lab ? "lab " : "") +
                  (data_set.has_lch ? "lch " : "") + (data_set.has_density ? "density " : ""),
              c.groups)
        << c.fields;
  }
}

TEST(Fill, TheLaterOfTwoColourFieldsCountsAndTheFirstOfOthers) {
  const PatchDataSet data_set =
      filled("LAB_L SAMPLE_ID LAB_L SampleID SAMPLE_ID D_RED D_VIS D_RED SampleName Sample_Name");
  EXPECT_EQ(data_set.lab_fields[0], 2);
  EXPECT_EQ(data_set.lch_fields[0], 2);
  EXPECT_EQ(data_set.sample_id_field, 1);
  EXPECT_EQ(data_set.sample_name_field, 9);
  EXPECT_EQ(data_set.density_fields, (Fields{5, 6, 7}));
  EXPECT_EQ(data_set.density_names, (Texts{"D_RED", "D_VIS", "D_RED"}));
}

TEST(Fill, SpectralPrefixes) {
  const struct {
    std::string fields, prefix;
    Values wavelengths;
  } cases[] = {
      {"SPECTRAL_NM_380 SPECTRAL_NM_390", "SPECTRAL_NM_", {380, 390}},
      {"SPECTRAL_NM380", "SPECTRAL_NM", {380}},
      {"SPECTRAL_380", "SPECTRAL_", {380}},
      {"SPECTRUM_NM_380 SPECTRUM_390", "SPECTRUM_NM_", {380}},
      {"SPECTRUM_380", "SPECTRUM_", {380}},
      {"SPEC_380", "SPEC_", {380}},
      {"NM_380", "NM_", {380}},
      {"nm380 nm390.5 R_400", "nm", {380, 390.5}},     // the first prefix decides for the file
      {"R_380 R_INDEX R_ R_9", "R_", {380, 0, 0, 9}},  // whatever follows a fixed prefix
      {"380 390", "", {}},
      // The generic rule.
      {"REFL380 X REFL390 REFL", "REFL", {380, 390, 0}},
      {"REFL380", "", {}},                   // one is not enough
      {"REFL199 REFL1901 REFL380", "", {}},  // only one within 200 to 1900
      {"REFL200 REFL1900", "REFL", {200, 1900}},
      {"REFL38 REFL39", "", {}},  // three digits are asked for
      {"REFL99 REFL380 REFL390", "REFL", {380, 390}},
      {"A1 A380 A390", "A", {1, 380, 390}},  // but not of names this short
      {"A12 A380 A390", "A", {380, 390}},
      {"A100 A380nm B A390nm", "A", {100, 380, 390}},  // numbers are read as far as they go
      {"A380 A390 A400nm", "A", {380, 390, 400}},
      {"XA380 XA390 A380", "XA", {380, 390}},
      {"A9B380 A9B390", "A9B", {380, 390}},
      {"\"W 380\" \"W 390\"", "W ", {380, 390}},
      {"OWN380 OWN390", "", {}},         // declared fields are standard ones
      {"Q500 Q0x190", "Q", {500, 400}},  // numbers of every form count
      {"Q500 Q4e2", "Q", {500, 400}},
      {"Q500 Q4E+2", "Q", {500, 400}},
      {"Q500 Q+4.005e2", "Q", {500, 400.5}},
      {"Q500 Q.5e3", "Q", {500, 500}},
      {"Q500 \"Q 400\"", "Q", {500, 400}},
      {"Q500 Q0x1.9p8", "Q", {500, 400}},
      {"Q500 Q-400 Qx400", "", {}},
      {"AB34 AB340 AB3400 ABB400 A300 AB1340", "AB", {340, 3400, 0, 1340}},
      {"AB300 B300 A300 BA300 BA3000 B301", "B", {300, 0, 0, 301}},
      {"REFL380 LAB_L REFL380", "REFL", {380, 380}},
  };
  const std::string header = "DATA_FORMAT_IDENTIFIER OWN380\nDATA_FORMAT_IDENTIFIER OWN390\n";
  for (const auto& c : cases) {
    const PatchDataSet data_set = filled(c.fields, "", header);
    EXPECT_EQ(data_set.spectral_prefix, c.prefix) << c.fields;
    EXPECT_EQ(data_set.wavelengths, c.wavelengths) << c.fields;
  }
}

TEST(Fill, DeviceChannelsAreFoundByTheirNames) {
  const auto first = [](int count) {
    Fields fields;
    for (int i = 0; i < count; ++i) fields.push_back(i);
    return fields;
  };
  const struct {
    std::string fields;
    int space;
    Fields channels;
  } cases[] = {
      {"CMYK_K CMYK_C CMYK_M CMYK_Y", 0, {1, 2, 3, 0}},  // channel order, not file order
      {"CMYK_C CMYK_M CMYK_Y", -1, {}},
      {"2CLR_1 2CLR_2 CMYK_C CMYK_M CMYK_Y CMYK_K", 0, {2, 3, 4, 5}},
      {"CMY_C CMY_M CMY_Y CMYK_C CMYK_M CMYK_Y CMYK_K", 0, {3, 4, 5, 6}},
      {"RGB_B RGB_G RGB_R CMY_C CMY_M CMY_Y", 1, {3, 4, 5}},
      {"GRAY RGB_B RGB_G RGB_R", 2, {3, 2, 1}},
      {"1CLR_1 GRAY", 3, {1}},
      {"PC2_1 PC2_2 1CLR_1", 4, {2}},
      {"2CLR_1 2CLR_2 1CLR_1", 4, {2}},  // the fewest of a family
      {"SPOT_1 PC2_1 PC2_2", 5, {1, 2}},
      {test::numbered("10CLR_", 1, 1, 10) + " SPOT_1", 4, {10}},
      {"4CLR_1 4CLR_2 4CLR_3 4CLR_4", 7, first(4)},
      {"4CLR_1 4CLR_2 4CLR_4", -1, {}},
      {"PC4_1 PC4_2 PC4_3 PC4_4", 7, first(4)},
      {"SPOT_1 SPOT_2 SPOT_3 SPOT_4", 7, first(4)},
      {"SPOT_1 SPOT_2 SPOT_4", 5, first(2)},
      {"SPOT_2", -1, {}},
      {test::numbered("SPOT_", 1, 1, 14), 17, first(14)},
      {test::numbered("SPOT_", 1, 1, 15), -1, {}},
      {test::numbered("10CLR_", 1, 1, 10), 13, first(10)},
      {test::numbered("ACLR_", 1, 1, 9) + " ACLR_A", 13, first(10)},
      {test::numbered("PC15_", 1, 1, 15), 18, first(15)},
      {test::numbered("15CLR_", 1, 1, 15), 18, first(15)},
      {test::numbered("9CLR_", 1, 1, 9), 12, first(9)},
      {"SAMPLE_ID LAB_L", -1, {}},
      // Of a semicolon table the channels before a gap remain.
      {"% Cyan;Magenta;Yellow;Black;L", 0, first(4)},
      {"% Cyan;Magenta;Black", -1, {0, 1, -1}},
      {"CMYK_C;CMYK_M;CMYK_Y;CMYK_K", -1, {-1}},
  };
  for (const auto& c : cases) {
    const bool is_table = c.fields.find(';') != std::string::npos;
    const PatchDataSet data_set = is_table ? read_text(c.fields, 2) : filled(c.fields);
    EXPECT_EQ(data_set.device_space, c.space) << c.fields;
    EXPECT_EQ(data_set.device_fields, c.channels) << c.fields;
  }
}

TEST(Fill, KeepsWhatTheFileSays) {
  const PatchDataSet data_set = filled(
      "SCW_INDEX D_RED MEAN_DE LAB_L LAB_C LAB_H XYZ_Y D_VIS OTHER", "3 0,5 9 50 1 2 8 1.5 7\n",
      "SERIAL x # c\nWEIGHTING_FUNCTION a b\nWEIGHTING_FUNCTION c\nCOMPUTATIONAL_PARAMETER p\n"
      "PROCESSCOLOR_ID q\nSPOTCOLOR_ID r\n");
  const auto values_of = [](const auto& table) {
    return Values(table.values().begin(), table.values().end());
  };
  EXPECT_EQ(data_set.file_identifier, "CGATS.17");
  ASSERT_EQ(data_set.header_keywords.size(), 1U);
  EXPECT_EQ(data_set.header_keywords.values.at(0), "x");
  EXPECT_EQ(data_set.weighting_functions, (Texts{"a b", "c"}));
  EXPECT_EQ(data_set.computational_parameters, Texts{"p"});
  EXPECT_EQ(data_set.process_color_ids, Texts{"q"});
  EXPECT_EQ(data_set.spot_color_ids, Texts{"r"});
  EXPECT_EQ(data_set.scw_indices, Values{3});
  EXPECT_EQ(values_of(data_set.density_values), (Values{0.5, 1.5}));
  EXPECT_EQ(values_of(data_set.lch_values), (Values{50, 1, 2}));
}

}  // namespace
