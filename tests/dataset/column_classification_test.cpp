#include "dataset/column_classification.h"

#include "dataset/fill.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vantor::DataSet::PatchDataSet;
using vantor::MeasData::MeasFileParser;

PatchDataSet classify(const std::string& fields, const std::string& header = "") {
  MeasFileParser reader(1);
  reader.load_memory(test::file_of(fields, "", header));
  PatchDataSet data_set;
  vantor::DataSet::classify_single_fields(reader, data_set);
  vantor::DataSet::classify_measurement_fields(reader, data_set);
  vantor::DataSet::classify_density_fields(reader, data_set);
  return data_set;
}

// The groups that are complete, in letters.
std::string groups_of(const PatchDataSet& data_set) {
  std::string groups;
  if (data_set.has_xyz) groups += 'X';
  if (data_set.has_lab) groups += 'L';
  if (data_set.has_lch) groups += 'H';
  if (data_set.has_density) groups += 'D';
  if (data_set.has_spectral) groups += 'S';
  return groups;
}

TEST(ColumnClassification, GroupsAreCompleteOrAbsent) {
  const struct {
    std::string fields, groups;
  } cases[] = {
      {"XYZ_X XYZ_Y XYZ_Z", "X"},
      {"XYZ_X XYZ_Z", ""},
      {"LAB_L LAB_A LAB_B", "L"},
      {"LAB_L LAB_C LAB_H", "H"},
      {"LAB_L LAB_A LAB_B LAB_C LAB_H", "LH"},
      {"Lab_L Lab_a Lab_b", "L"},
      {"Lab_L LAB_C LAB_H", ""},  // this L* serves Lab only
      {"Lab_l Lab_a Lab_b", ""},
      {"D_VIS", "D"},
      {"D_MAJOR_FILTER d_vis", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(groups_of(classify(c.fields)), c.groups) << c.fields;
}

TEST(ColumnClassification, TheLaterOfTwoColourFieldsCountsAndTheFirstOfOthers) {
  const PatchDataSet data_set =
      classify("LAB_L SAMPLE_ID LAB_L SampleID SAMPLE_ID D_RED D_VIS D_RED");
  EXPECT_EQ(data_set.lab_fields[0], 2);
  EXPECT_EQ(data_set.lch_fields[0], 2);
  EXPECT_EQ(data_set.sample_id_field, 1);
  EXPECT_EQ(data_set.density_fields, (std::vector<std::int32_t>{5, 6, 7}));
  EXPECT_EQ(data_set.density_names, (std::vector<std::string>{"D_RED", "D_VIS", "D_RED"}));
  EXPECT_EQ(classify("SampleName Sample_Name").sample_name_field, 1);
}

TEST(ColumnClassification, SpectralPrefixes) {
  using Wavelengths = std::vector<double>;
  const struct {
    std::string fields, prefix;
    Wavelengths wavelengths;
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
      {"OWN380 OWN390", "", {}},  // declared fields are standard ones
      {"Q380 Q0x190 Q4e2 Q+4.1E+02", "Q", {380, 400, 400, 410}},  // in all forms of numbers
      {"\"Q\v380\" Q0x190", "", {}},  // the first proposes Q and a tabulator
      {"Q500 Q0x1.9p8", "Q", {500, 400}},
      {"Q500 Q-400 Qx400", "", {}},
      {"AB34 AB340 AB3400 ABB400 A300 AB1340", "AB", {340, 3400, 0, 1340}},
      {"AB300 B300 A300 BA300 BA3000 B301", "B", {300, 0, 0, 301}},
      {"REFL380 LAB_L REFL380", "REFL", {380, 380}},
  };
  const std::string header = "DATA_FORMAT_IDENTIFIER OWN380\nDATA_FORMAT_IDENTIFIER OWN390\n";
  for (const auto& c : cases) {
    const PatchDataSet data_set = classify(c.fields, header);
    EXPECT_EQ(data_set.spectral_prefix, c.prefix) << c.fields;
    EXPECT_EQ(data_set.wavelengths, c.wavelengths) << c.fields;
  }
}

}  // namespace
