// Tables written as CxF3 and read back. Expectations are derived by hand.
#include "kit/convert/cxf_form.h"

#include "kit/document.h"
#include "tests/kit/cxf_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace {

using measkit::Chart;
using measkit::CxfForm;
using measkit::Document;
using measkit::Opening;
using measkit::Values;

struct Written {
  std::string text;
  std::vector<std::string> left_behind;
};

Written written(Document& document, bool in_pairs) {
  Written result;
  const CxfForm form = {in_pairs, "2026-11-22T10:20:30Z"};
  result.text = cxf_of(document.plain(0).table, document.charts()[0], form, result.left_behind);
  return result;
}

void add_values(const char* what, const Values& values, std::vector<std::string>& lines) {
  for (std::size_t row = 0; row < values.rows(); ++row) {
    std::string line = what + std::to_string(row);
    for (const double value : values.row(row)) {
      char digits[32];
      std::snprintf(digits, sizeof digits, " %.17g", value);
      line += value != value ? " nan" : digits;
    }
    lines.push_back(line);
  }
}

// Everything that a chart and its table hold, in an order of its own.
std::vector<std::string> contents_of(Document& document) {
  const Chart& chart = document.charts()[0];
  measkit::Table& table = document.plain(0).table;
  std::vector<std::string> lines = {chart.device_set, chart.instrument, chart.title};
  for (const auto& texts : {chart.ids, chart.names, chart.locations}) {
    lines.push_back("texts");
    lines.insert(lines.end(), texts.begin(), texts.end());
  }
  for (const auto& [what, values] : {std::pair{"device", chart.device},
                                     {"xyz", chart.xyz},
                                     {"lab", chart.lab},
                                     {"own", chart.own_lab},
                                     {"lch", chart.lch},
                                     {"spectra", chart.spectra},
                                     {"emission", chart.emission}}) {
    add_values(what, values, lines);
  }
  std::vector<std::string> set;  // whose order does not matter
  std::vector<int> columns = table.roles().unused;
  const std::vector<int>& densities = table.roles().densities;
  columns.insert(columns.end(), densities.begin(), densities.end());
  for (const int field : columns) {
    std::string column = table.fields[static_cast<std::size_t>(field)].name;
    for (std::size_t row = 0; row < table.row_count(); ++row) {
      column.append("|").append(table.cell(row, field));
    }
    set.push_back(column);
  }
  void* const handle = document.plain(0).loaded.handle();
  for (int i = 0; i < num_keywords(handle); ++i) {
    set.push_back(std::string(get_keyword(handle, i)) + "=" + get_value(handle, i));
  }
  std::sort(set.begin(), set.end());
  lines.insert(lines.end(), set.begin(), set.end());
  return lines;
}

void expect_the_same_back(Document& document) {
  for (const bool in_pairs : {false, true}) {
    const Written cxf = written(document, in_pairs);
    EXPECT_EQ(cxf_rules::first_fault(cxf.text), "");
    const auto again = Document::open_block(cxf.text, document.name(), Opening::repair);
    ASSERT_EQ(again->size(), 1U) << cxf.text;
    EXPECT_FALSE(again->findings().has_other_than_notes());
    EXPECT_EQ(contents_of(*again), contents_of(document));
    for (const measkit::Finding& finding : again->plain(0).table.findings.list()) {
      const bool is_of_cxf = finding.code.starts_with("cxf-") || finding.code == "missing-values";
      EXPECT_TRUE(!is_of_cxf || finding.severity == measkit::Severity::note) << finding.sentence;
    }
  }
}

struct Case {
  const char* what;
  std::string header, fields, rows;
  std::vector<std::string> parts;  // of the document
  std::vector<std::string> left_behind;
};
void PrintTo(const Case& shown, std::ostream* out) { *out << shown.what; }

class CxfWriting : public testing::TestWithParam<Case> {};

TEST_P(CxfWriting, HoldTheTable) {
  const Case& one = GetParam();
  const auto document =
      Document::open_block("CGATS.17\n" + one.header + "\nBEGIN_DATA_FORMAT\n" + one.fields +
                               "\nEND_DATA_FORMAT\nBEGIN_DATA\n" + one.rows + "\nEND_DATA\n",
                           "a.txt", Opening::repair);
  ASSERT_EQ(document->size(), 1U);
  const Written cxf = written(*document, false);
  for (const std::string& part : one.parts) {
    EXPECT_NE(cxf.text.find(part), std::string::npos) << part << "\n" << cxf.text;
  }
  EXPECT_EQ(cxf.left_behind, one.left_behind);
  expect_the_same_back(*document);
}

std::string tag(const std::string& name, const std::string& value) {
  return "<cc:Tag Name=\"" + name + "\" Value=\"" + value + "\"/>";
}

INSTANTIATE_TEST_SUITE_P(
    Tables, CxfWriting,
    testing::Values(
        Case{"texts, keywords and places",
             "ORIGINATOR \"A & <B>\"\nCREATED \"2024-03-05T14:20:00+01:00\" # at noon\nDESCRIPTOR "
             "\"one\"\nDESCRIPTOR \"two\"\nCOUNT_OF_INKS \"\"\nTARGET_TYPE \"Strip\"\n"
             "MEASUREMENT_SOURCE \"MeasurementCondition=M1\tFilter=D50\"",
             "SAMPLE_ID SAMPLE_NAME SAMPLE_LOC LAB_L LAB_A LAB_B NOTE",
             "1 17 2AB3 50 -1 2 x\n1 \"a \"\"b\"\" <\" A1 5e1 +1 .5 \"\"\n\" 3\" \"\" left 5 0 0 y",
             {"<cc:Creator>A &amp; &lt;B&gt;</cc:Creator>", "<cc:Comment>at noon</cc:Comment>",
              "<cc:CreationDate>2024-03-05T14:20:00+01:00</cc:CreationDate>",
              "<cc:Description>one</cc:Description>", tag("DESCRIPTOR", "two"),
              tag("COUNT_OF_INKS", ""), "OtherType=\"Strip\"", "M1_Daylight",
              tag("MEASUREMENT_SOURCE", "MeasurementCondition=M1&#9;Filter=D50"),
              tag("SampleName", "17"), "Name=\"a &quot;b&quot; &lt;\" Id=\"p2\"",
              "<cc:L>50</cc:L><cc:A>+1</cc:A><cc:B>.5</cc:B>", tag("SampleID", " 3"),
              tag("Page", "2") + "\n\t\t\t\t\t" + tag("Row", "2") + "\n\t\t\t\t\t" +
                  tag("Column", "27"),
              tag("SAMPLE_LOC", "left"), tag("NOTE", "y")},
             {}},
        Case{"spectra with a gap and beyond the range, conditions",
             "INSTRUMENTATION \"Maker One, D50, 2 degree, geometry 45/0, no polarisation filter, "
             "white backing, serial number A1\"",
             "SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K R_380 R_390 XYZ_X XYZ_Y XYZ_Z",
             "1 0 10.25 0 0 0.50 6E-1 80 84 70\n2 0 0 0 101 0.5 nan 80 84 70\n"
             "3 0 0 nan 2 0.5 3.5 1 1 -0.1\n4 nan nan nan nan nan nan nan nan nan",
             {"StartWL=\"380\" ColorSpecification=\"Measurement_spec\">0.50 0.6</cc:Reflectance",
              "<cc:SpectralPoint WL=\"390\">NaN<", "<cc:SpectralPoint WL=\"390\">3.5<",
              "<cc:Magenta>10.25</cc:Magenta>", tag("CMYK_K", "101"), tag("XYZ_Z", "-0.1"),
              "<cc:Illuminant>D50</cc:Illuminant>", "<cc:SerialNumber>A1</cc:SerialNumber>",
              "<cc:UnknownGeometry>45/0</cc:UnknownGeometry>", "<cc:Backing>white</cc:Backing>",
              "<cc:DevicePolarization>false<", "Increment=\"10\"/>"},
             {"11 cells without a number: left out.",
              "Outside the range that CxF allows for ColorCIEXYZ: 1 patch, kept as tags of their "
              "objects.",
              "Outside the range that CxF allows for percentages of inks: 1 patch, kept as tags of "
              "their objects."}},
        Case{"RGB, densities, wavelengths from 405 nm",
             "FILTER_STATUS \"Status T\"",
             "SAMPLE_NAME RGB_R RGB_G RGB_B D_RED D_VIS R_405 R_410 R_415 XYY_X XYY_Y XYY_CAPY",
             "same 0 127.25 255 0.1 0.2 0.1 0.2 0.3 .3 .4 5\n"
             "same 255 1.125 9 0.1 nan 0.1 0.2 0.3 .3 .4 5",
             {"<cc:MaxRange>25500</cc:MaxRange><cc:R>0</cc:R><cc:G>12725</cc:G><cc:B>25500</cc:B>",
              tag("RGB_G", "1.125"), "<cc:Status>T</cc:Status><cc:Filter>Visual</cc:Filter>",
              "<cc:SpectralPoint WL=\"405\">0.1<", "<cc:x>.3</cc:x><cc:y>.4</cc:y><cc:Y>5<"},
             {"1 cell without a number: left out."}},
        Case{"a display",
             "DEVICE_CLASS \"DISPLAY\"",
             "SAMPLE_ID RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z SPEC_400 SPEC_420",
             "1 100 100 100 95 100 108 0.1 2\n2 0 0 50.5 0 0 0 0 0.001",
             {"<cc:EmissiveSpectrum StartWL=\"400\"", "<cc:SpectralPoint WL=\"420\">0.001<",
              "Spectrum_Emissive", "<cc:B>12878</cc:B>", tag("RGB_B", "50.5")},
             {}},
        Case{"sets of inks, transmittance",
             "QUANTITY \"TRANSMITTANCE\"",
             "SAMPLE_ID PC3_1 PC3_2 PC3_3 R_400 R_410",
             "1 0 50 100 0.1 0.2\n2 1 2 3 0.3 0.4",
             {"<cc:ColorCustom Name=\"PC3\"", "<cc:TransmittanceSpectrum "},
             {}},
        Case{"five inks",
             "INK_NAME_1 \"Cyan\"\nINK_NAME_2 \"Magenta\"\nINK_NAME_3 \"Yellow\"\nINK_NAME_4 "
             "\"Black\"\nINK_NAME_5 \"Orange\"",
             "5CLR_1 5CLR_2 5CLR_3 5CLR_4 5CLR_5 D_RED",
             "1 2 3 4 5 0.5",
             {"<cc:Black>4</cc:Black><cc:SpotColor><cc:Name>Orange</cc:Name><cc:Percentage>5<",
              tag("D_RED", "0.5")},
             {"CxF wants the status of densities, which the chart does not tell: the densities are "
              "kept as tags."}},
        Case{"one grey ink and LCh",
             "",
             "GRAY LAB_L LAB_C LAB_H",
             "50 60 5 361\n60 70 5 350",
             {"<cc:SpotColor><cc:Name>Gray</cc:Name>", tag("LAB_H", "361"), "<cc:H>350</cc:H>"},
             {"Outside the range that CxF allows for ColorCIELCh: 1 patch, kept as tags of their "
              "objects."}}));

TEST(CxfForm, ExamplesComeBackAsTheyAre) {
  for (const char* const name :
       {"cmyk-spectral-310.txt", "densities.txt", "rgb-older-form.txt", "semicolon-table.csv"}) {
    SCOPED_TRACE(name);
    const auto document =
        Document::open_file(std::string(MEASDATA_EXAMPLES "/") + name, Opening::repair);
    ASSERT_EQ(document->size(), 1U);
    expect_the_same_back(*document);
  }
}

TEST(CxfForm, DropsAndTellsWhatXmlForbids) {
  const auto document = Document::open_block(
      "CGATS.17\nORIGINATOR \"a\x07z\"\nBEGIN_DATA_FORMAT\nSAMPLE_NAME LAB_L LAB_A LAB_B\n"
      "END_DATA_FORMAT\nBEGIN_DATA\n\xC3\xA9\x02 1 2 3\nEND_DATA\n",
      "a.txt", Opening::repair);
  const Written cxf = written(*document, false);
  EXPECT_NE(cxf.text.find("Value=\"az\""), std::string::npos) << cxf.text;
  EXPECT_NE(cxf.text.find("Name=\"\xC3\xA9\""), std::string::npos) << cxf.text;
  EXPECT_EQ(cxf.left_behind,
            std::vector<std::string>{"Control codes that XML forbids are left out: 2."});
}

// A program that keeps the tags of the file but measures again.
TEST(CxfForm, ASpecificationThatWasChangedCounts) {
  const auto document = Document::open_block(
      "CGATS.17\nINSTRUMENTATION \"Maker One, serial number A1\"\nBEGIN_DATA_FORMAT\nSAMPLE_ID "
      "LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\nBEGIN_DATA\n1 1 2 3\nEND_DATA\n",
      "a.txt", Opening::repair);
  std::string cxf = written(*document, false).text;
  const std::string serial = "<cc:SerialNumber>A1<";
  ASSERT_NE(cxf.find(serial), std::string::npos) << cxf;
  cxf.replace(cxf.find(serial), serial.size(), "<cc:SerialNumber>B2<");
  const auto again = Document::open_block(cxf, "a.cxf", Opening::repair);
  EXPECT_STREQ(device_serial_number(again->plain(0).loaded.handle()), "B2");
  EXPECT_TRUE(again->plain(0).table.findings.has("cxf-left-out"));
}

}  // namespace
