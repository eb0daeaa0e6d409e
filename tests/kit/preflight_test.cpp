// What the preflight makes of the forms in which files deviate. Expectations are derived by hand.
#include "kit/preflight/preflight.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using measkit::Finding;
using measkit::PlainTable;
using measkit::Preflighted;
using measkit::Severity;
using Lab = std::array<double, 3>;

// A file with one table.
std::string file_of(std::string_view header, std::string_view fields, std::string_view rows) {
  return "CGATS.17\n" + std::string(header) + "BEGIN_DATA_FORMAT\n" + std::string(fields) +
         "\nEND_DATA_FORMAT\nBEGIN_DATA\n" + std::string(rows) + "END_DATA\n";
}

// The codes of all findings, those of notes in brackets.
std::string codes_of(const Preflighted& file) {
  std::string codes;
  const auto append = [&codes](const measkit::Findings& findings) {
    for (const Finding& finding : findings.list()) {
      const std::string code(finding.code);
      codes += (codes.empty() ? "" : " ") +
               (finding.severity == Severity::note ? "(" + code + ")" : code);
    }
  };
  append(file.findings);
  for (const auto& plain : file.tables) append(plain->table.findings);
  return codes;
}

Lab lab_of(const PlainTable& plain, int patch) {
  Lab lab = {-1.0, -1.0, -1.0};
  get_lab_from_patch(plain.loaded.handle(), patch, lab.data());
  return lab;
}

// Lightness by its definition, for Y above 0.9.
double lightness(double y) { return 116.0 * std::cbrt(y / 100.0) - 16.0; }

struct Case {
  const char* form;
  std::string text, codes;
  int patches;
  Lab last_lab;  // of the last patch
};

void PrintTo(const Case& shown, std::ostream* out) { *out << shown.form; }

class Forms : public testing::TestWithParam<Case> {};

TEST_P(Forms, AreMadePlain) {
  const Case& expected = GetParam();
  const Preflighted file = measkit::preflight(expected.text, "file.txt");
  EXPECT_EQ(codes_of(file), expected.codes);
  ASSERT_EQ(file.tables.size(), 1U);
  const PlainTable& plain = *file.tables[0];
  ASSERT_EQ(num_patches(plain.loaded.handle()), expected.patches) << plain.text;
  const Lab lab = lab_of(plain, expected.patches - 1);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(lab[i], expected.last_lab[i], 1e-9) << plain.text;
  // A plain text is plain: another preflight has nothing to repair, and changes nothing.
  const Preflighted again = measkit::preflight(plain.text, "file.txt");
  for (const Finding& finding : again.tables.at(0)->table.findings.list()) {
    EXPECT_NE(finding.severity, Severity::repaired) << finding.code;
  }
  EXPECT_EQ(again.tables.at(0)->text.data(), plain.text.data());
}

const std::string kLab = "SAMPLE_ID LAB_L LAB_A LAB_B";
const std::string kXyz = "SAMPLE_ID XYZ_X XYZ_Y XYZ_Z";
const std::string many_rows = [] {
  std::string rows;
  for (int i = 0; i < 20; ++i) rows += "2 0.48211 0.5 0.412605\n";
  return rows;
}();
const double kHalf = lightness(50.0);  // of half the white's light

INSTANTIATE_TEST_SUITE_P(
    Frames, Forms,
    testing::Values(
        Case{"plain", file_of("", kLab, "1 50 1 2\n"), "", 1, {50, 1, 2}},
        Case{"wrong counts",
             file_of("NUMBER_OF_FIELDS 7\nNUMBER_OF_SETS 9\n", kLab, "1 50 1 2\n"),
             "wrong-count wrong-count",
             1,
             {50, 1, 2}},
        Case{"tabs and blanks in names",
             file_of("", "SAMPLE_ID\tSAMPLE_NAME\tLAB_L\tLAB_A\tLAB_B",
                     "1\tdark skin\t50\t1\t2\n2\twhite\t\t1\t2\n3\tlight skin\t40\t3\t4\n"),
             "cells-at-tabs missing-values",
             3,
             {40, 3, 4}},
        Case{"no END_DATA",
             "CGATS.17\nBEGIN_DATA_FORMAT\n" + kLab + "\nEND_DATA_FORMAT\nBEGIN_DATA\n1 50 1 2\n",
             "end-data-missing",
             1,
             {50, 1, 2}},
        Case{"fields and rows over lines",
             file_of("", "SAMPLE_ID LAB_L\nLAB_A LAB_B", "1 50\n1 2\n2 40\n3 4\n"),
             "fields-over-lines rows-over-lines",
             2,
             {40, 3, 4}},
        Case{"a row too short",
             file_of("", kLab, "1 50 1 2\n2 60 1\n3 40 3 4\n"),
             "rows-left-out",
             2,
             {40, 3, 4}},
        Case{"names with blanks between tabs",
             file_of("", "Sample ID\tLAB_L\tLAB_A\tLAB_B", "1\t50\t1\t2\n2 b\t40\t3\t4\n"),
             "field-names field-names cells-at-tabs",
             2,
             {40, 3, 4}},
        Case{"names of several words",
             file_of("", "SAMPLE_ID SAMPLE_NAME LAB_L LAB_A LAB_B",
                     "1 dark skin 50 1 2\n2 light skin 40 3 4\n"),
             "words-joined",
             2,
             {40, 3, 4}},
        Case{"a column without a name",
             file_of("", "SAMPLE_ID SAMPLE_NAME LAB_L LAB_A LAB_B", "1 a 50 1 2 9\n2 b 40 3 4 9\n"),
             "wrong-width (unused-columns)",
             2,
             {40, 3, 4}},
        Case{"cells with a comment sign",
             file_of("", kLab, "\"#1\" 50 1 2\n#2 40 3 4\n"),
             "comment-signs",
             2,
             {40, 3, 4}},
        Case{"a count inside the list of fields",
             file_of("", "NUMBER_OF_FIELDS 4\n" + kLab, "1 40 3 4\n"),
             "frame",
             1,
             {40, 3, 4}},
        Case{"identifier behind a comment",
             "# made by hand\n" + file_of("", kLab, "1 50 1 2\n"),
             "identifier-moved",
             1,
             {50, 1, 2}},
        Case{"byte order mark",
             "\xEF\xBB\xBF\xEF\xBB\xBF" + file_of("", kLab, "1 50 1 2\n"),
             "byte-order-mark",
             1,
             {50, 1, 2}},
        Case{"Latin-1",
             file_of("ORIGINATOR \"M\xFCller\"\n", kLab, "1 50 1 2\n"),
             "latin-1",
             1,
             {50, 1, 2}},
        Case{"typeset signs of minus",
             file_of("", kLab,
                     "1 50 \xE2\x88\x92"
                     "1 \xE2\x80\x93"
                     "2\n"),
             "minus-signs minus-signs",
             1,
             {50, -1, -2}},
        Case{"not measured",
             file_of("", kLab, "1 * 1 2\n2 -- 1 2\n3 failed 1.#QNAN <0.1\n4 40 3 4\n"),
             "missing-values",
             4,
             {40, 3, 4}}));

INSTANTIATE_TEST_SUITE_P(
    Colours, Forms,
    testing::Values(
        Case{"XYZ alone",
             file_of("", kXyz, "1 96.422 100 82.521\n2 48.211 50 41.2605\n"),
             "lab-added",
             2,
             {kHalf, 0, 0}},
        Case{"XYZ for D65 and 10 degrees",
             file_of("ILLUMINANT \"D65\"\nOBSERVER \"10\"\n", kXyz,
                     "1 94.811 100 107.304\n2 47.4055 50 53.652\n"),
             "lab-added",
             2,
             {kHalf, 0, 0}},
        Case{"XYZ on a scale of 1",
             file_of("", "SAMPLE_NAME XYZ_X XYZ_Y XYZ_Z",
                     "white 0.96422 1.0 0.82521\ngrey 0.48211 0.5 0.412605\n"),
             "xyz-scale lab-added",
             2,
             {kHalf, 0, 0}},
        Case{"XYZ of many surfaces on a scale of 1",
             file_of("", kXyz, "1 0.9 0.9 0.7\n" + many_rows),
             "xyz-scale lab-added",
             21,
             {kHalf, 0, 0}},
        Case{"XYZ on a scale that nothing decides",
             file_of("", kXyz, "1 0.48211 0.5 0.412605\n"),
             "xyz-scale",
             1,
             {-1, -1, -1}},
        Case{"XYZ above every surface",
             file_of("", kXyz, "1 190 200 210\n2 300 310 320\n"),
             "xyz-scale",
             2,
             {-1, -1, -1}},
        Case{"a display by its numbers",
             file_of("", "RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z",
                     "255 255 255 190.094 200 217.766\n128 128 128 95.047 100 108.883\n"),
             "display-by-numbers lab-of-display",
             2,
             {kHalf, 0, 0}},
        Case{"display in small letters",
             file_of("DEVICE_CLASS \"display\"\n", "RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z",
                     "1 1 1 95.047 100 108.883\n.5 .5 .5 47.5235 50 54.4415\n"),
             "lab-of-display",
             2,
             {kHalf, 0, 0}},
        Case{"display",
             file_of("DEVICE_CLASS \"DISPLAY\"\n", "RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z",
                     "255 255 255 190.094 200 217.766\n128 128 128 95.047 100 108.883\n"),
             "lab-of-display",
             2,
             {kHalf, 0, 0}},
        Case{"LCh alone",
             file_of("", "SAMPLE_ID LAB_L LAB_C LAB_H", "1 50 10 90\n2 40 20 180\n"),
             "lab-added",
             2,
             {40, -20, 0}},
        Case{"loose names",
             file_of("", "No L* a* b* C M Y K", "1 50 1 2 0 0 0 0\n2 40 3 4 0 0 0 100\n"),
             "field-names",
             2,
             {40, 3, 4}},
        Case{"letters that are no inks",
             file_of("", "SAMPLE_ID LUV_L LUV_U LUV_V LAB_L LAB_A LAB_B", "1 1 2 3 40 3 4\n"),
             "(unused-columns)",
             1,
             {40, 3, 4}},
        Case{"chromaticities",
             file_of("", "SAMPLE_ID xyY_x xyY_y xyY_Y", "1 0.34567 0.35850 100\n2 0.25 0.25 50\n"),
             "field-names xyz-added lab-added",
             2,
             // X 50, Y 50, Z 100
             {kHalf, 500 * (std::cbrt(50 / 96.422) - std::cbrt(0.5)),
              200 * (std::cbrt(0.5) - std::cbrt(100 / 82.521))}},
        Case{"placeholder device values",
             file_of("", "RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B",
                     "0 0 0 95 0 0\n0 0 0 50 60 10\n0 0 0 20 3 4\n"),
             "device-placeholders",
             3,
             {20, 3, 4}},
        Case{"ink letters",
             file_of("", "CMYKO_C CMYKO_M CMYKO_Y CMYKO_K CMYKO_O LAB_L LAB_A LAB_B",
                     "0 0 0 0 100 65 50 70\n"),
             "ink-letters",
             1,
             {65, 50, 70}},
        Case{"observer in words",
             file_of("WEIGHTING_FUNCTION \"OBSERVER,2 degree\"\n", kLab, "1 50 1 2\n"),
             "observer-words",
             1,
             {50, 1, 2}}));

// 36 bands from 380 nm, all with one value.
std::string spectral_file(std::string_view header, std::string_view more_fields,
                          const std::vector<std::string>& rows) {
  std::string fields(more_fields), text;
  for (int nm = 380; nm <= 730; nm += 10) fields += " SPECTRAL_NM" + std::to_string(nm);
  for (const std::string& row : rows) {
    const std::size_t end = row.find_last_of(' ');
    text += row.substr(0, end);
    for (int i = 0; i < 36; ++i) text += row.substr(end);
    text += "\n";
  }
  return file_of(header, fields, text);
}

INSTANTIATE_TEST_SUITE_P(
    Spectra, Forms,
    testing::Values(
        Case{"percent",
             spectral_file("", "SAMPLE_ID", {"1 90", "2 50"}),
             "spectra-in-percent",
             2,
             {kHalf, 0, 0}},
        Case{"a dark chart in percent beside its own XYZ",
             spectral_file("", "SAMPLE_ID XYZ_X XYZ_Y XYZ_Z",
                           {"1 0.77 0.8 0.66 0.8", "2 1.929 2 1.65 2"}),
             "spectra-in-percent",
             2,
             {lightness(2), 0, 0}},
        Case{"a fluorescent chart in factors",
             spectral_file("", "SAMPLE_ID", {"1 2.4", "2 0.9", "3 0.5"}),
             "spectral-scale",
             3,
             {kHalf, 0, 0}},
        Case{"loose names of wavelengths",
             file_of("", "SAMPLE_ID 400nm 550nm 700nm", "1 90 90 90\n2 50 50 50\n"),
             "field-names spectra-in-percent",
             2,
             {kHalf, 0, 0}},
        Case{"percent with a failed measurement",
             spectral_file("", "SAMPLE_ID",
                           {"1 90", "2 999", "3 8", "4 9", "5 6", "6 5", "7 5", "8 4", "9 3",
                            "10 50"}),
             "spectra-in-percent",
             10,
             {kHalf, 0, 0}},
        Case{"neither percent nor factors",
             spectral_file("", "SAMPLE_ID XYZ_X XYZ_Y XYZ_Z",
                           {"1 96.422 100 82.521 900", "2 48.211 50 41.2605 800"}),
             "spectral-scale lab-added (unused-columns)",
             2,
             {kHalf, 0, 0}},
        Case{"a display with spectra, by its numbers",
             spectral_file("", "RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z",
                           {"1 1 1 95.047 100 108.883 5", ".5 .5 .5 47.5235 50 54.4415 2.5"}),
             "display-by-numbers emission-spectra lab-of-display",
             2,
             {kHalf, 0, 0}},
        Case{"spectra behind others that are set aside",
             file_of("", "SAMPLE_ID nm400 nm403.3 nm406.7 R_400 R_550 R_700", "1 1 1 1 50 50 50\n"),
             "spectral-grid spectra-in-percent (unused-columns)",
             1,
             {kHalf, 0, 0}},
        Case{"a stated scale",
             spectral_file("SPECTRAL_NORM \"100\"\n", "SAMPLE_ID", {"1 1.2", "2 1"}),
             "spectra-in-percent",
             2,
             {lightness(1), 0, 0}},
        Case{"wavelengths and values in turns",
             file_of("",
                     "SPECTRAL_NM SPECTRAL_PCT SPECTRAL_NM SPECTRAL_PCT SPECTRAL_NM SPECTRAL_PCT",
                     "400 50 550 50 700 50\n"),
             "spectral-pairs spectra-in-percent",
             1,
             {kHalf, 0, 0}}));

// A spectrum that rises linearly keeps its values when it is averaged with symmetric weights.
TEST(Spectra, OfThirdsOfNanometresAreAveraged) {
  std::string fields = "SAMPLE_ID", row = "1";
  for (int i = 0; i < 106; ++i) {
    fields += " SPEC_" + std::to_string(std::lround(380 + i * 10 / 3.0));
    row += " " + std::to_string((380 + i * 10 / 3.0) / 1000);
  }
  const std::string text = file_of("", fields, row + "\n");
  const Preflighted file = measkit::preflight(text, nullptr);
  EXPECT_EQ(codes_of(file), "spectral-grid");
  void* const handle = file.tables.at(0)->loaded.handle();
  ASSERT_EQ(spectral_size(handle), 36);
  EXPECT_EQ(spectral_start(handle), 380.0);
  const double* const spectrum = get_spectrum_from_patch(handle, 0);
  for (int i = 1; i < 35; ++i) EXPECT_NEAR(spectrum[i], 0.380 + i * 0.010, 2e-6);
  // At the end the samples at 380, 383.3 and 386.7 nm count 3, 2 and 1 times.
  EXPECT_NEAR(spectrum[0], 0.380 + (2 * 3.3333 + 6.6667) / 6 / 1000, 2e-6);
}

TEST(Spectra, OfLightsAreNeverLab) {
  const std::string text =
      spectral_file("DEVICE_CLASS \"DISPLAY\"\n", "RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z",
                    {"1 1 1 95 100 108 0.4", "0 0 0 0.1 0.1 0.1 0.001"});
  const Preflighted file = measkit::preflight(text, nullptr);
  EXPECT_EQ(codes_of(file), "emission-spectra lab-of-display");
  void* const handle = file.tables.at(0)->loaded.handle();
  EXPECT_EQ(has_spectral_data(handle), 0);
  EXPECT_NE(file.tables.at(0)->text.find("EMISSION_380_NM"), std::string_view::npos);
  EXPECT_NEAR(lab_of(*file.tables[0], 0)[0], 100.0, 1e-9);
}

TEST(Tables, OfOneFileAreChartsOfTheirOwn) {
  const std::string curves =
      "CAL\nDESCRIPTOR \"curves\"\nBEGIN_DATA_FORMAT\nRGB_I RGB_R RGB_G RGB_B\nEND_DATA_FORMAT\n"
      "BEGIN_DATA\n0 0 0 0\n1 1 1 1\nEND_DATA\n";
  const std::string chart = file_of("ORIGINATOR \"me\"\n", kLab, "1 50 1 2\n");
  const std::string rows = "BEGIN_DATA\n7 40 3 4\n8 30 3 4\nEND_DATA\n";
  const std::string text = curves + chart + rows;
  const Preflighted file = measkit::preflight(text, nullptr);
  ASSERT_EQ(file.tables.size(), 3U);
  EXPECT_EQ(lab_of(*file.tables[0], 0), (Lab{50, 1, 2}));  // the measured chart is the main one
  EXPECT_EQ(lab_of(*file.tables[1], 1), (Lab{30, 3, 4}));
  EXPECT_EQ(has_keyword(file.tables[1]->loaded.handle(), "ORIGINATOR"), 0);
  EXPECT_EQ(num_patches(file.tables[2]->loaded.handle()), 2);
  EXPECT_EQ(codes_of(file), "fields-of-table-before (calibration-curves) (unused-columns)");
}

TEST(Densities, StandApartFromMergedColours) {
  const std::string text =
      file_of("", "GRAY D_VIS LAB_L LAB_A LAB_B", "0 0.1 95 0 0\n0 0.1 94 0 0\n");
  const Preflighted file = measkit::preflight(text, nullptr);
  EXPECT_EQ(codes_of(file), "(densities-apart)");
  EXPECT_EQ(num_indices(file.tables.at(0)->loaded.handle()), 1);
  EXPECT_NE(file.tables[0]->text.find("D_VIS"), std::string_view::npos);
}

// Digits move; none is lost, added or rounded.
TEST(Percent, BecomeFactorsDigitForDigit) {
  const std::string text = file_of("", "SAMPLE_ID nm400 nm550 nm700 GRAY",
                                   "\"a b\" 93.30 5 0.5 12.5\n"
                                   "\n \t2\t-0.25 1e2  100 1 \r\n"
                                   "3 12.345678901234567 .5 7. 100\n");
  const Preflighted file = measkit::preflight(text, nullptr);
  const std::string_view plain = file.tables.at(0)->text;
  const std::string_view rows = plain.substr(plain.find("BEGIN_DATA\n"));
  EXPECT_EQ(rows,
            "BEGIN_DATA\n\"a b\" 0.9330 0.05 0.005 12.5\n \t2\t-0.0025 1e0  1.00 1 \n"
            "3 0.12345678901234567 0.005 0.07 100\nEND_DATA\n");
}

// The first rows look like percent, but the header says that they are not.
TEST(Percent, AreNoGuess) {
  const std::string text =
      file_of("SPECTRAL_NORM \"1\"\n", "nm400 nm550 nm700", "93 50 20\n.4 .5 .1\n.2 .1 .1\n");
  const Preflighted file = measkit::preflight(text, nullptr);
  EXPECT_EQ(file.tables.at(0)->text, text);
  EXPECT_EQ(get_spectrum_from_patch(file.tables.at(0)->loaded.handle(), 0)[0], 93.0);
}

}  // namespace
