// Charts in other forms, and back.
#include "api/measdata.h"
#include "kit/convert/conversion.h"
#include "kit/measkit.h"
#include "tests/support/answers.h"

#include <gtest/gtest.h>

#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

namespace {

using measkit::Conversion;
using measkit::ConversionOptions;
using measkit::Document;
using measkit::Form;

std::unique_ptr<Document> opened(std::string text) {
  return Document::open_block(std::move(text), "chart.txt", measkit::Opening::repair);
}

Conversion converted(Document& document, Form form, const ConversionOptions& options = {}) {
  std::vector<std::size_t> charts(document.size());
  std::iota(charts.begin(), charts.end(), std::size_t{0});
  return measkit::convert(document, charts, form, options);
}

Conversion converted(const std::string& text, Form form, const ConversionOptions& options = {}) {
  return converted(*opened(text), form, options);
}

std::string answers_of(Document& document) {
  return test::answers(document.plain(0).loaded.handle());
}

// The rows of a measurement file.
std::string rows_of(std::string_view text) {
  const std::size_t start = text.find("BEGIN_DATA\n") + 11;
  return std::string(text.substr(start, text.find("END_DATA\n", start) - start));
}

// A quote inside quotes is doubled, and the library leaves it so.
const std::string kChart =
    "CGATS.17\n# measured twice\nORIGINATOR \"Ann, \tBob\"\nKEYWORD \"OWN\"\nOWN a b # why\n"
    "DATA_FORMAT_IDENTIFIER \"SAMPLE_NAME\"\nNUMBER_OF_FIELDS 9\nBEGIN_DATA_FORMAT\n"
    "SAMPLE_ID SAMPLE_NAME CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\n"
    "NUMBER_OF_SETS 3\nBEGIN_DATA\n007 \"a \"\"b\"\", c\" 0 0 0 0.50 95,10 -.5 +2\n"
    "2 x# 100 0 0 0 5.5e1 -37 -0\n3 \"\" 0 0 0 0.5 95 1 2\nEND_DATA\n";

TEST(Convert, WritesCsv) {
  EXPECT_EQ(
      converted(kChart, Form::csv).text,
      "# Measurement data, fields of CGATS.17\n# # measured twice\n"
      "# ORIGINATOR \"Ann, \tBob\"\n# KEYWORD \"OWN\"\n# OWN a b # why\n"
      "# DATA_FORMAT_IDENTIFIER \"SAMPLE_NAME\"\n"
      "SAMPLE_ID,SAMPLE_NAME,CMYK_C [%],CMYK_M [%],CMYK_Y [%],CMYK_K [%],LAB_L,LAB_A,LAB_B\n"
      "007,\"a \"\"\"\"b\"\"\"\", c\",0,0,0,0.50,95.10,-.5,+2\n2,\"x#\",100,0,0,0,5.5e1,-37,-0\n"
      "3,,0,0,0,0.5,95,1,2\n");
  ConversionOptions options;
  options.decimal_comma = options.bare = true;
  const Conversion bare = converted(kChart, Form::csv, options);
  EXPECT_EQ(bare.text.substr(0, 20), "SAMPLE_ID;SAMPLE_NAM");
  EXPECT_NE(bare.text.find("\n3;;0;0;0;0,5;95;1;2\n"), std::string::npos);
  EXPECT_EQ(bare.left_behind,
            (std::vector<std::string>{"Keywords: ORIGINATOR, OWN.", "Comments: 1."}));
}

TEST(Convert, WritesJson) {
  EXPECT_EQ(converted(kChart, Form::json).text,
            "{\n \"format\": \"measurement-charts\",\n \"version\": 1,\n \"charts\": [\n  {\n"
            "   \"name\": \"chart.txt\",\n   \"identifier\": \"CGATS.17\",\n   \"header\": [\n"
            "    {\"comment\": \"# measured twice\"},\n"
            "    {\"keyword\": \"ORIGINATOR\", \"value\": \"Ann, \\u0009Bob\"},\n"
            "    {\"keyword\": \"KEYWORD\", \"value\": \"OWN\"},\n"
            "    {\"keyword\": \"OWN\", \"value\": \"a b\", \"line\": \"OWN a b # why\"},\n"
            "    {\"keyword\": \"DATA_FORMAT_IDENTIFIER\", \"value\": \"SAMPLE_NAME\"}\n   ],\n"
            "   \"fields\": [\"SAMPLE_ID\", \"SAMPLE_NAME\", \"CMYK_C\", \"CMYK_M\", \"CMYK_Y\", "
            "\"CMYK_K\", "
            "\"LAB_L\", \"LAB_A\", \"LAB_B\"],\n"
            "   \"units\": [null, null, \"%\", \"%\", \"%\", \"%\", null, null, null],\n"
            "   \"patches\": [\n    [\"007\", \"a \\\"\\\"b\\\"\\\", c\", 0, 0, 0, 0.50, 95.10, "
            "-0.5, 2],\n"
            "    [\"2\", \"x#\", 100, 0, 0, 0, 5.5e1, -37, -0.0],\n"
            "    [\"3\", \"\", 0, 0, 0, 0.5, 95, 1, 2]\n   ]\n  }\n ]\n}\n");
  EXPECT_EQ(converted("CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L LAB_A LAB_B LAB_B\n"
                      "END_DATA_FORMAT\nBEGIN_DATA\n1 50 nan 007 1e400\nEND_DATA\n",
                      Form::json_lines)
                .text,
            "{\"SAMPLE_ID\": \"1\", \"LAB_L\": 50, \"LAB_A\": \"nan\", \"LAB_B\": 7, "
            "\"LAB_B_2\": \"1e400\"}\n");
}

TEST(Convert, AnswersStayTheSameThroughEveryForm) {
  const std::string spectral =
      "ISO28178\nINSTRUMENTATION \"Maker One, D50\"\nWEIGHTING_FUNCTION \"ILLUMINANT, D50\"\n"
      "BEGIN_DATA_FORMAT\nSAMPLE_ID RGB_R RGB_G RGB_B nm400 nm420 nm440\nEND_DATA_FORMAT\n"
      "NUMBER_OF_SETS 3\nBEGIN_DATA\n\"\" 255 255 255 0.91234567890123456 .8 7e-1\n"
      "2 0 0 0 0.1 0.2 0.3\n3 255 255 255 0.9 0.8 0.69\nEND_DATA\n";
  const std::string seven =
      "IT8.7/2\nORIGINATOR x\nBEGIN_DATA_FORMAT\nSAMPLE_ID XYZ_X XYZ_Y XYZ_Z LAB_L LAB_A LAB_B\n"
      "END_DATA_FORMAT\nNUMBER_OF_SETS 1\nBEGIN_DATA\nA1 40,5 50 60 77.1 -1 -2\nEND_DATA\n";
  ConversionOptions comma;
  comma.decimal_comma = true;
  const std::pair<std::string, Form> texts[] = {
      {kChart, Form::cgats}, {spectral, Form::iso28178}, {seven, Form::seven_characters}};
  for (const auto& [text, form] : texts) {
    const std::string expected = answers_of(*opened(text));
    for (const Form between : {Form::json, Form::csv, Form::tsv, form}) {
      for (const ConversionOptions& options : {ConversionOptions(), comma}) {
        const Conversion other = converted(text, between, options);
        EXPECT_TRUE(other.left_behind.empty());
        const std::unique_ptr<Document> back = opened(other.text);
        ASSERT_EQ(back->size(), 1U) << other.text;
        EXPECT_EQ(answers_of(*back), expected) << other.text;
        EXPECT_FALSE(back->has_other_than_notes()) << other.text;
        const std::unique_ptr<Document> end = opened(converted(*back, form).text);
        EXPECT_EQ(answers_of(*end), expected) << other.text;
        EXPECT_FALSE(end->has_other_than_notes());
      }
    }
  }
}

TEST(Convert, TextDeclaresWhatReadersDoNotKnow) {
  const std::string text = converted(kChart, Form::seven_characters).text;
  EXPECT_TRUE(text.starts_with("IT8.7/3\n")) << text;
  const std::string other =
      converted(
          "IT8.7/2\nORIGINATOR x\nCREATED y\nDESCRIPTOR z\nOTHER 1\nBEGIN_DATA_FORMAT\n"
          "SAMPLE_NAME LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\nBEGIN_DATA\na 1 2 3\nEND_DATA\n",
          Form::iso28178)
          .text;
  EXPECT_NE(other.find("KEYWORD \"OTHER\"\nOTHER 1\nDATA_FORMAT_IDENTIFIER \"SAMPLE_NAME\"\n"),
            std::string::npos)
      << other;
}

TEST(Convert, WritesTi3) {
  const std::string chart =
      "CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z nm400 nm410\n"
      "END_DATA_FORMAT\nNUMBER_OF_SETS 2\nBEGIN_DATA\n1 255 51 0 40 50 60 0.123 .5\n"
      "2 0 0 0 1 2 3 0.01 0.02\nEND_DATA\n";
  const Conversion ti3 = converted(chart, Form::ti3);
  EXPECT_EQ(
      ti3.text,
      "CTI3\nKEYWORD \"DEVICE_CLASS\"\nDEVICE_CLASS \"OUTPUT\"\nKEYWORD \"COLOR_REP\"\n"
      "COLOR_REP \"RGB_XYZ\"\nKEYWORD \"SPECTRAL_BANDS\"\nSPECTRAL_BANDS \"2\"\n"
      "KEYWORD \"SPECTRAL_START_NM\"\nSPECTRAL_START_NM \"400\"\nKEYWORD \"SPECTRAL_END_NM\"\n"
      "SPECTRAL_END_NM \"410\"\nKEYWORD \"SPECTRAL_NORM\"\nSPECTRAL_NORM \"100\"\n"
      "NUMBER_OF_FIELDS 9\nBEGIN_DATA_FORMAT\n"
      "SAMPLE_ID\tRGB_R\tRGB_G\tRGB_B\tXYZ_X\tXYZ_Y\tXYZ_Z\tSPEC_400\tSPEC_410\n"
      "END_DATA_FORMAT\nNUMBER_OF_SETS 2\nBEGIN_DATA\n"
      "1\t100\t20\t0\t40\t50\t60\t12.3\t50\n2\t0\t0\t0\t1\t2\t3\t1\t2\nEND_DATA\n");
  const std::unique_ptr<Document> back = opened(ti3.text);
  EXPECT_EQ(get_spectrum_from_patch(back->plain(0).loaded.handle(), 0)[0], 0.123);
}

TEST(Convert, OptionsChooseAndCompute) {
  const std::string chart =
      "CGATS.17\nILLUMINANT D50\nBEGIN_DATA_FORMAT\n"
      "SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K XYZ_X XYZ_Y XYZ_Z NOTE nm400 nm410 nm420 nm430\n"
      "END_DATA_FORMAT\nNUMBER_OF_SETS 3\nBEGIN_DATA\n"
      "a 0 0 0 0 96.42 100 82.49 p 0.1 0.2 0.4 0.8\nb 9 0 0 0 1 2 3 q .5 0.5 0.5 0.5\n"
      "c 0 0 0 0 96.44 101 82.51 q 0.3 0.4 0.6 0.8\nEND_DATA\n";
  struct Case {
    const char* select;
    const char* lab_from;
    const char* grid;
    bool merged, percent;
    int digits;
    const char* rows;
    std::size_t left_behind;
  };
  const Case cases[] = {
      {"xyz", nullptr, nullptr, false, false, 0,
       "a\t96.42\t100\t82.49\nb\t1\t2\t3\nc\t96.44\t101\t82.51\n", 0},
      {"device,unknown", nullptr, nullptr, true, false, 0, "a\t0\t0\t0\t0\nb\t9\t0\t0\t0\n", 1},
      {"xyz,spectra", nullptr, nullptr, true, true, 4,
       "a\t96.43\t100.5\t82.5\t20\t30\t50\t80\nb\t1\t2\t3\t50\t50\t50\t50\n", 1},
      {"lab", "xyz", nullptr, false, false, 3, "a\t100\t-0.00346\t0.025\nb\t15.5\t-26.7\t-12\nc\t",
       0},
      {"spectra", nullptr, "400:420:20", false, false, 0, "a\t0.13333333333333333\t0.45", 0},
      {"spectra", nullptr, "405:425:10", false, false, 2, "a\t0.15\t0.3\t0.6\nb\t0.5\t", 0},
      {"", nullptr, nullptr, false, false, 0, "a\t0\t0\t0\t0\t96.42\t100\t82.49\t0.1\t", 1},
  };
  for (const Case& test : cases) {
    ConversionOptions options;
    std::string refusal;
    options.select = *measkit::column_groups_of(test.select, refusal);
    if (test.lab_from != nullptr) options.lab_from = *measkit::lab_from_of(test.lab_from, refusal);
    if (test.grid != nullptr) options.grid = *measkit::wavelength_range_of(test.grid, refusal);
    options.merged = test.merged;
    options.percent = test.percent;
    options.digits = test.digits;
    const Conversion conversion = converted(chart, Form::cgats, options);
    EXPECT_TRUE(rows_of(conversion.text).starts_with(test.rows)) << conversion.text;
    EXPECT_EQ(conversion.left_behind.size(), test.left_behind) << test.rows;
  }
  ConversionOptions options;
  options.keep_unknown = true;
  EXPECT_NE(converted(chart, Form::cgats, options).text.find("NOTE"), std::string::npos);
}

TEST(Convert, LabIsComputedWhereItIsAskedFor) {
  std::string fields = "SAMPLE_ID", row = "1";
  for (int nm = 400; nm <= 700; nm += 10) {
    fields += " nm" + std::to_string(nm);
    row += " 1";
  }
  const std::string chart = "CGATS.17\nBEGIN_DATA_FORMAT\n" + fields +
                            "\nEND_DATA_FORMAT\nNUMBER_OF_SETS 1\nBEGIN_DATA\n" + row +
                            "\nEND_DATA\n";
  ConversionOptions options;
  std::string refusal;
  options.select = *measkit::column_groups_of("lab", refusal);
  options.digits = 6;
  EXPECT_EQ(rows_of(converted(chart, Form::cgats, options).text), "1\t100\t0\t0\n");
  EXPECT_EQ(converted(kChart, Form::cgats, options).left_behind.size(), 0U);
  options.lab_from = measkit::LabFrom::file;
  EXPECT_EQ(converted(chart, Form::cgats, options).refusal, "the file has no Lab of its own");
}

TEST(Convert, RefusesWhatItCannotDo) {
  std::string refusal;
  for (const char* const range : {"", "400", "400:700", "400:700:0", "700:400:10", "400:700:10x",
                                  "1:1e9:1", "nan:700:10", "400:700:10:1"}) {
    EXPECT_FALSE(measkit::wavelength_range_of(range, refusal)) << range;
  }
  EXPECT_FALSE(measkit::column_groups_of("device,,lab", refusal));
  EXPECT_FALSE(measkit::lab_from_of("XYZ", refusal));
  ConversionOptions options;
  options.grid = measkit::WavelengthRange{400.0, 700.0, 10.0};
  EXPECT_FALSE(converted(kChart, Form::csv, options).refusal.empty());
  const std::string two = kChart + "BEGIN_DATA\n1 x 0 0 0 0 1 2 3\nEND_DATA\n";
  EXPECT_FALSE(converted(two, Form::csv).refusal.empty());
  const std::unique_ptr<Document> both = opened(converted(two, Form::json).text);
  ASSERT_EQ(both->size(), 2U);
  EXPECT_EQ(num_patches(both->plain(1).loaded.handle()), 1);
}

TEST(Convert, NamesWhatIsLeftBehind) {
  const std::string chart =
      "CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\nBEGIN_DATA\n"
      "1 2 3 4 # worn\n# gap\n\"2 #\" 3 4 5\nEND_DATA\n\nremarks of the operator\n";
  EXPECT_EQ(
      converted(chart, Form::json).left_behind,
      (std::vector<std::string>{"Text behind END_DATA: 1 line.", "Comments between the rows: 2."}));
}

TEST(Convert, HostileJsonAndCsvGiveFindings) {
  const std::string good = converted(kChart, Form::json).text;
  const std::string start = good.substr(0, good.find("\"patches\""));
  struct Case {
    std::string text;
    const char* code;
    std::size_t rows;
  };
  const Case cases[] = {
      {good.substr(0, good.find("\"3\"")), "json-malformed", 2},
      {good + "{}", "json-malformed", 3},
      {good.substr(0, 20), "json-other", 0},
      {"{}", "json-other", 0},
      {"{\"a\": " + std::string(1000000, '['), "json-other", 0},
      {"{\"format\": \"measurement-charts\", \"charts\": [{\"patches\": " +
           std::string(300000, '[') + std::string(300000, ']') + "}]}",
       "fields-missing", 0},
      {start + "\"patches\": [[\"1\", 2]]}]}", "json-values-left-out", 0},
      {start + "\"patches\": [[\"1\\n2\", null, {\"a\": [1]}, true, 1, 2, 3, 4, 5]]}]}",
       "json-values-left-out", 1},
      {"{\"format\": \"measurement-charts\", \"charts\": [{\"header\": [{\"keyword\": "
       "\"BEGIN_DATA\"}, "
       "{\"comment\": \"no sign\\nEND_DATA\"}], \"fields\": [\"SAMPLE_ID\", \"LAB_L\"], "
       "\"patches\": "
       "[[\"1\", 5]]}]}",
       "json-values-left-out", 1},
      {"# Measurement data, fields of CGATS.17\n# BEGIN_DATA\nSAMPLE_ID,LAB_L\n1,2\n",
       "header-line-left-out", 1},
      {"# Measurement data, fields of CGATS.17\nSAMPLE_ID,LAB_L\n1,2,3\n\"a,\"\"b\",5\n",
       "rows-left-out", 1},
  };
  for (const Case& test : cases) {
    const std::unique_ptr<Document> document = opened(test.text);
    EXPECT_TRUE(document->findings().has(test.code)) << test.code;
    const int rows = document->size() == 0 ? 0 : num_patches(document->plain(0).loaded.handle());
    EXPECT_EQ(rows, static_cast<int>(test.rows)) << test.code;
  }
}

TEST(Convert, TheCInterfaceGivesTextRefusalAndSentences) {
  mk_document* document = mk_open_block(kChart.size(), kChart.data(), "a", MK_REPAIR);
  const mk_convert_options options = {"lab", nullptr, nullptr, 1, 0, 0, 3, 0, 1, 0};
  mk_conversion* conversion = mk_convert(document, 0, "tsv", &options);
  std::size_t length = 0;
  EXPECT_STREQ(
      mk_converted_text(conversion, &length),
      "SAMPLE_ID\tSAMPLE_NAME\tLAB_L\tLAB_A\tLAB_B\n007\t\"a \"\"\"\"b\"\"\"\", c\"\t95\t0.25\t2\n"
      "2\t\"x#\"\t5.5e1\t-37\t-0\n");
  EXPECT_EQ(length, 91U);
  EXPECT_EQ(mk_conversion_refusal(conversion), nullptr);
  ASSERT_EQ(mk_num_left_behind(conversion), 2);
  EXPECT_STREQ(mk_left_behind(conversion, 0), "Keywords: ORIGINATOR, OWN.");
  EXPECT_EQ(mk_left_behind(conversion, 2), nullptr);
  mk_close_conversion(&conversion);
  conversion = mk_convert(document, -1, "xls", nullptr);
  EXPECT_STREQ(mk_conversion_refusal(conversion),
               "\"xls\" is none of iso28178, cgats, sevenchar, csv, tsv, json, jsonl, cxf, ti3");
  EXPECT_STREQ(mk_converted_text(conversion, &length), "");
  mk_close_conversion(&conversion);
  EXPECT_EQ(mk_convert(document, 1, "csv", nullptr), nullptr);
  EXPECT_EQ(mk_convert(nullptr, -1, "csv", nullptr), nullptr);
  mk_close(&document);
}

}  // namespace
