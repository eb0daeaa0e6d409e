// Tables without the frame of a measurement file. Expectations are derived by hand.
#include "kit/preflight/preflight.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <string_view>

namespace {

using measkit::Findings;
using measkit::Preflighted;
using measkit::Severity;

std::string codes_of(const Findings& findings) {
  std::string codes;
  for (const measkit::Finding& finding : findings.list()) {
    if (finding.severity == Severity::note) continue;
    codes.append(codes.empty() ? "" : " ").append(finding.code);
  }
  return codes;
}

// The fields and rows of a plain text, lines joined by "|" and cells by blanks.
std::string rows_of(std::string_view plain) {
  std::string rows;
  bool is_inside = false;
  for (std::size_t at = 0; at < plain.size();) {
    const std::size_t end = plain.find('\n', at);
    std::string line(plain.substr(at, end - at));
    for (char& c : line) c = c == '\t' ? ' ' : c;
    if (line.starts_with("END_")) is_inside = false;
    if (is_inside) rows.append(rows.empty() ? "" : "|").append(line);
    if (line.starts_with("BEGIN_")) is_inside = true;
    at = end + 1;
  }
  return rows;
}

struct Case {
  const char* text;
  const char* rows;
  const char* codes;
};

class Sheets : public testing::TestWithParam<Case> {};

TEST_P(Sheets, BecomeMeasurementFiles) {
  const Preflighted file = measkit::preflight(GetParam().text, "sheet.csv");
  ASSERT_EQ(file.tables.size(), 1U) << GetParam().text << codes_of(file.findings);
  const measkit::PlainTable& plain = *file.tables[0];
  EXPECT_EQ(rows_of(plain.text), GetParam().rows) << plain.text;
  EXPECT_EQ(codes_of(plain.table.findings), GetParam().codes) << GetParam().text;
  EXPECT_TRUE(plain.loaded.is_loaded());
  const Preflighted again = measkit::preflight(plain.text, "sheet.csv");
  EXPECT_EQ(again.tables.at(0)->text.data(), plain.text.data()) << "not plain: " << plain.text;
}

INSTANTIATE_TEST_SUITE_P(
    WithHeaderLines, Sheets,
    testing::Values(
        Case{"SAMPLE_ID,LAB_L,LAB_A,LAB_B\r\n\r\n1,50,1,-2\r\n",
             "SAMPLE_ID LAB_L LAB_A LAB_B|1 50 1 -2", "spreadsheet"},
        // Decimal commas; quotes doubled inside quotes; a degree sign; a keyword above.
        Case{"Instrument;Model 5\nName;L*;C*ab;h [\xC2\xB0]\n\"a \"\"b\"\"\";50,5;10;90\n",
             "SAMPLE_NAME LAB_L LAB_C LAB_H LAB_A LAB_B|\"a \"\"b\"\"\" 50.5 10 90 "
             "6.123233995736766e-16 10",
             "spreadsheet field-names lab-added"},
        // The same letters in two groups are told by their neighbours.
        Case{"R\tG\tB\tL\ta\tb\tgloss 60\n255\t0\t0\t54\t81\t70\t3\n",
             "RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B gloss_60|255 0 0 54 81 70 3",
             "spreadsheet field-names"},
        // Blanks cut names, too.
        Case{"Name L a b\ngrey 50 1 2\ndark grey 1 40 3 4\n",
             "SAMPLE_NAME LAB_L LAB_A LAB_B|grey 50 1 2|\"dark grey 1\" 40 3 4",
             "spreadsheet field-names"},
        Case{"b,a,no,L\n1,2,x,3\n", "LAB_B LAB_A SAMPLE_ID LAB_L|1 2 x 3",
             "spreadsheet field-names"},
        // The last line with a percent sign names the columns, as in mode 1 of the library.
        Case{"% made by hand\n1;2;3;4\n%Cyan;Magenta;Yellow;Black\n5;6;7;8\n",
             "CMYK_C CMYK_M CMYK_Y CMYK_K|1 2 3 4|5 6 7 8", "spreadsheet field-names"},
        // x and y are no X and Y; a first cell without a name is an id.
        Case{"Y x y L a b\nA1 20 0.25 0.5 50 1 2\n",
             "SAMPLE_ID XYY_CAPY XYY_X XYY_Y LAB_L LAB_A LAB_B XYZ_X XYZ_Y XYZ_Z|"
             "A1 20 0.25 0.5 50 1 2 10 20 10",
             "spreadsheet field-names xyz-added"},
        Case{"name,C,M,Y,K,O,V\np,1,2,3,4,5,6\n",
             "SAMPLE_NAME 6CLR_1 6CLR_2 6CLR_3 6CLR_4 6CLR_5 6CLR_6|p 1 2 3 4 5 6",
             "spreadsheet field-names ink-letters"},
        // Rows that do not fit; what is no number.
        Case{"L,a,b\n50,1,2\n40,1\n30,n/a,2\n20,1,2,9\nmean,,\n",
             "LAB_L LAB_A LAB_B|50 1 2|30 nan 2|20 1 2",
             "rows-left-out cells-left-out missing-values spreadsheet field-names"},
        // Wavelengths, in percent, beyond what is seen and falling.
        Case{",400,390,380\n1,30,20,10\n2,60,50,40\n",
             "SAMPLE_ID SPECTRAL_NM380 SPECTRAL_NM390 SPECTRAL_NM400|1 0.10 0.20 0.30|"
             "2 0.40 0.50 0.60",
             "spreadsheet field-names spectra-in-percent"},
        Case{"R350 nm,R360 nm,R370 nm\n.1,.2,.3\n", "SPECTRAL_NM360 SPECTRAL_NM370|.2 .3",
             "wavelengths-cut spreadsheet field-names"}));

INSTANTIATE_TEST_SUITE_P(
    WithWavelengthsDownTheRows, Sheets,
    testing::Values(
        Case{"wl,leaf1,leaf 2,sd\n400,8.2,12.9,1\n410,9,13,1\n420,10,15,1\n",
             "SAMPLE_ID SAMPLE_NAME SPECTRAL_NM400 SPECTRAL_NM410 SPECTRAL_NM420|"
             "1 leaf1 0.082 0.09 0.10|2 \"leaf 2\" 0.129 0.13 0.15",
             "spreadsheet-transposed columns-left-out spectra-in-percent"},
        Case{"made by me\nWavelength (nm);Sample\n840;0,4\n830;0,3\n820;0,2\n",
             "SAMPLE_ID SAMPLE_NAME SPECTRAL_NM820 SPECTRAL_NM830|1 Sample 0.2 0.3",
             "spreadsheet-transposed wavelengths-cut"},
        Case{"nm\tirradiance\n400\t0.1\n410\t0.2\n420\t0.3\n",
             "SAMPLE_ID SAMPLE_NAME EMISSION_400_NM EMISSION_410_NM EMISSION_420_NM|"
             "1 irradiance 0.1 0.2 0.3",
             "spreadsheet-transposed emission-spectra"},
        // Even steps prove wavelengths without a name.
        Case{"400 1\n420 1\n440 1\n460 1\n480 1\n500 1\n520 1\n540 1\n",
             "SAMPLE_ID SPECTRAL_NM400 SPECTRAL_NM420 SPECTRAL_NM440 SPECTRAL_NM460 SPECTRAL_NM480 "
             "SPECTRAL_NM500 SPECTRAL_NM520 SPECTRAL_NM540|1 1 1 1 1 1 1 1 1",
             "spreadsheet-transposed"}));

TEST(Sheets, OfFineStepsAreAveraged) {
  std::string text = ">>>Begin Spectral Data<<<\n";
  for (int i = 0; i <= 1200; ++i) text += std::to_string(380.0 + i / 3.0) + " 50\n";
  const Preflighted file = measkit::preflight(text, "sheet.txt");
  ASSERT_EQ(file.tables.size(), 1U);
  void* const handle = file.tables[0]->loaded.handle();
  EXPECT_EQ(spectral_size(handle), 81);  // 380 to 780 nm, every 5
  std::array<double, 3> lab{};
  get_lab_from_patch(handle, 0, lab.data());
  EXPECT_NEAR(lab[0], 116.0 * std::cbrt(0.5) - 16.0, 0.01);  // an even grey of half the light
}

// Tables one below the other, and cells that go over lines.
TEST(Sheets, HoldSeveralTables) {
  const Preflighted file = measkit::preflight(
      "Chart 1\nid,L,a,b\n\"1\r\nleft\",50,1,2\n2,40,3,4\n\nid,L,a,b\n3,30,5,6\n\n"
      "id,400,410,420,430\n4,.1,.2,.3,.4\n\nid,X,Y,Z\nno rows\n",
      "sheet.csv");
  EXPECT_EQ(codes_of(file.findings), "breaks-in-cells");
  ASSERT_EQ(file.tables.size(), 2U);
  EXPECT_EQ(rows_of(file.tables[0]->text),
            "SAMPLE_ID LAB_L LAB_A LAB_B|\"1  left\" 50 1 2|2 40 3 4|3 30 5 6");
  EXPECT_EQ(rows_of(file.tables[1]->text),
            "SAMPLE_ID SPECTRAL_NM400 SPECTRAL_NM410 SPECTRAL_NM420 SPECTRAL_NM430|4 .1 .2 .3 .4");
  EXPECT_EQ(file.tables[1]->table.line_of(0), 11U);
  EXPECT_TRUE(file.tables[1]->table.findings.has("lines-behind"));
}

struct Refused {
  std::string text;
  const char* code;
  const char* words;
};

TEST(Sheets, WithoutMeaningAreRefusedInASentence) {
  const Refused cases[] = {
      {"", "empty-file", "empty"},
      {"%PDF-1.4\n", "not-text", "PDF"},
      {std::string("a\0\1\2\xE9", 5), "not-text", "binary"},
      {"<?xml version=\"1.0\"?><a/>", "xml", "XML"},
      {"Sehr geehrte Frau M,\nich schreibe, um zu fragen.\n", "no-table", "2 lines"},
      {"item,price\nmilk,1.29\nbread,2\n", "names-missing", "item, price"},
      {"int main() {\n  int r, g, b;\n  return 0;\n}\n", "no-table", "4 lines"},
      {"1 2 3\n4 5 6\n", "names-missing", "2 lines of 3 numbers"},
      {"400 1\n410 1\n420 1\n430 1\n440 1\n450 1\n460 1\n470 1\n", "names-missing", "8 lines"},
      {"380 1\n400 1\n430 1\n500 1\n510 1\n600 1\n640 1\n700 1\n", "names-missing", "8 lines"},
      {"0.4 1\n0.5 2\n0.6 3\n", "names-missing", "micrometres"},
      {"wl,x,y,z\n400,1,2,3\n410,1,2,3\n420,1,2,3\n", "no-table", "matching functions"},
      {"wl,R,G,B\n400,1,2,3\n410,1,2,3\n420,1,2,3\n", "no-table", "sensitivities"},
      {"nm,a\n900,1\n910,1\n920,1\n", "no-table", "nothing is seen"},
      {"nm,a\n400,1\n410,1\n420,1\n400,2\n", "no-table", "start again"},
      {"name,nm,R\na,400,1\na,410,1\nb,400,1\n", "names-missing", "One column a sample"},
      {"x,y,z\n0.3,0.3,0.4\n0.2,0.5,0.3\n", "names-missing", "x, y, z"},
      {"x,y,z\n5,6,7\n-4,2,9\n", "names-missing", "x, y, z"},
      {"L,a,b\n", "no-table", "without a table"},
  };
  for (const Refused& refused : cases) {
    const Preflighted file = measkit::preflight(refused.text, "sheet.csv");
    EXPECT_TRUE(file.tables.empty()) << refused.text;
    ASSERT_EQ(codes_of(file.findings), refused.code) << refused.text;
    EXPECT_NE(file.findings.list().back().sentence.find(refused.words), std::string::npos)
        << file.findings.list().back().sentence;
  }
}

}  // namespace
