#include "api/measdata.h"
#include "api/meta_tokenizer.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace std::string_literals;  // NOLINT

using Question = const char* (*)(void*);

const std::string kNull = "(null)";

std::string ask(Question question, const std::string& header) {
  const test::Loaded file(test::file_of("SAMPLE_ID", "1\n", header));
  const char* answer = question(file);
  return answer == nullptr ? kNull : answer;
}

// What all eight rules find in a text of INSTRUMENTATION; "-" for nothing.
std::string found_in(const std::string& text) {
  const test::Loaded file(test::file_of("SAMPLE_ID", "1\n", "INSTRUMENTATION \"" + text + "\"\n"));
  std::string found;
  for (const Question question :
       {device_manufacturer, device_model, device_serial_number, device_geometry,
        device_polarization, sample_backing, illuminant, observer}) {
    const char* answer = question(file);
    found += std::string(answer == nullptr ? "-" : answer) + "|";
  }
  return found;
}

TEST(Metadata, FromTheInstrumentation) {
  const struct {
    std::string text, found;
  } cases[] = {
      {"Maker ModelName, D50, 2 degree, geometry 45/0, no polarisation filter, white backing, "
       "Serial number 12345, aperture 4 mm",
       "Maker|ModelName|12345|45/0|no|white|D50|2|"},
      // Without a comma.
      {"", "-|-|-|-|-|-|-|-|"},
      {"Word", "-|Word|-|-|-|-|-|-|"},
      {"Maker Model X ; more", "Maker|Model X|-|-|-|-|-|-|"},
      {"Maker Model X; more", "Maker|Model X; more|-|-|-|-|-|-|"},
      {"Maker ; x", "Maker|; x|-|-|-|-|-|-|"},
      {"D65 2 degree", "D65|2 degree|-|-|-|-|-|2|"},
      {"no polarization filter", "no|polarization filter|-|-|no|-|-|-|"},
      {"No polarisation filter", "No|polarisation filter|-|-|-|-|-|-|"},
      {"backing backing", "backing|backing|-|-|-|backing|-|-|"},
      {"degree", "-|degree|-|-|-|-|-|-|"},
      {"serial number A", "serial|number A|A|-|-|-|-|-|"},
      {"SERIAL number 1", "SERIAL|number 1|-|-|-|-|-|-|"},
      {"geometry", "-|geometry|-|-|-|-|-|-|"},
      // Words that come too early, lack their comma or say no angle.
      {"backing,", "-|-|-|-|-|-|-|-|"},
      {"any degree,", "-|-|-|-|-|-|-|any|"},
      {"x, geometry 45/0", "-|-|-|-|-|-|-|-|"},
      {"geometry geometry 0/45, geometry 45/0, x", "-|-|-|0/45|-|-|-|-|"},
      {"Serial Serial number 7,", "-|-|7|-|-|-|-|-|"},
      {"a, Serial number", "-|-|-|-|-|-|-|-|"},
      {"Model, D50, 10", "-|Model|-|-|-|-|D50|10|"},
      {"Model, D50 2", "-|Model|-|-|-|-|-|2|"},
      {"Model D50, 2", "-|-|-|-|-|-|-|-|"},
      {"Model, D50, 5", "-|-|-|-|-|-|D50|-|"},
      {"Model, D50", "-|-|-|-|-|-|-|-|"},
      {"D65, 2 degree", "-|-|-|-|-|-|D65|2|"},
      {"Model, D50, 2 degree", "-|Model|-|-|-|-|D50|2|"},
      {"Model D50, 2 degree,", "-|-|-|-|-|-|D50|2|"},
      {"Maker Model, D50, 5 degree", "-|-|-|-|-|-|-|5|"},
      {"Maker, Model, D50, 2 degree", "-|Model|-|-|-|-|D50|2|"},
      {"Maker Long Name, D65, 10 degree,", "Maker|Long Name|-|-|-|-|D65|10|"},
      {"x D65 2 degree D50, 10 degree,", "x|-|-|-|-|-|D50|2|"},
      {"Maker Model, D50, 2 degree, x, 2 degree", "Maker|Model|-|-|-|-|D50|2|"},
      {"Maker Model D50, 2 degree, x, y, 2 degree", "Maker|Model D50, 2 degree, x|-|-|-|-|D50|2|"},
  };
  for (const auto& c : cases) EXPECT_EQ(found_in(c.text), c.found) << c.text;
}

struct Case {
  Question question;
  std::string text, answer;
};

TEST(Metadata, FromTheMeasurementSource) {
  for (const Case& c : {
           Case{device_measurement_source, "a  b", "a  b"},
           {device_filter, "Illumination=D50 Filter=UV Filter=No", "UV"},
           {device_filter, "filter=UV", kNull},
           {device_filter, "Filter=", ""},
           {illuminant, "x Illumination=D65", "D65"},
           {observer, "Observer=2degree", "2"},
           {observer, "Observer=2\xB0", "2"},
           {density_status, "DensityStd=Status T", "Status T"},
           {density_status, "DensityStd=Status", "Status"},
           {density_status, "Density=T x", "T"},
           {density_status, "Density=E DensityStd=A", "E"},
           {density_status, "density=E", kNull},
       }) {
    EXPECT_EQ(ask(c.question, "MEASUREMENT_SOURCE \"" + c.text + "\"\n"), c.answer) << c.text;
  }
}

TEST(Metadata, WordsOfFreeText) {
  using Texts = std::vector<std::string>;
  const auto words_of = [](const char* text) {
    Texts texts;
    for (vantor::Api::Words words(text); words.next();) texts.emplace_back(words.back());
    return texts;
  };
  EXPECT_EQ(words_of(" a\tb  c "), (Texts{"a", "b", "c"}));
  EXPECT_EQ(words_of(R"("a ""b""" d)"), (Texts{R"(a "b")", "d"}));
  EXPECT_EQ(words_of(R"("a"b""c "open ""d)"), (Texts{"a", R"(b""c)", R"(open "d)"}));
  EXPECT_EQ(words_of(""), Texts{});
}

TEST(Metadata, WhichSourceGoesFirst) {
  const std::string weighting =
      "WEIGHTING_FUNCTION \"x\"\nWEIGHTING_FUNCTION \"ILLUMINANT, D50\"\n"
      "WEIGHTING_FUNCTION \"OBSERVER,\t2 degree\"\nILLUMINANT D65\nOBSERVER 10\n";
  const std::string text =
      "INSTRUMENTATION \"M N, D50, 2 degree, geometry 45/0, white backing, no "
      "polarisation filter\"\nMEASUREMENT_SOURCE \"Filter=UV Density=T "
      "Illumination=A Observer=10degree\"\n";
  for (const Case& c : {
           Case{illuminant, weighting, "D50"},
           {observer, weighting, "2"},
           {illuminant, "WEIGHTING_FUNCTION \"ILLUMINANT,A\"\nILLUMINANT D65\n", "D65"},
           {illuminant, "WEIGHTING_FUNCTION \"ILLUMINANTS D55\"\n", "D55"},
           {observer, "WEIGHTING_FUNCTION \"the OBSERVER, 2\"\n", kNull},
           {device_geometry, text + "MEASUREMENT_GEOMETRY 0/45\n", "0/45"},
           {device_filter, text + "FILTER none\n", "none"},
           {device_polarization, text + "POLARIZATION yes\n", "yes"},
           {sample_backing, text + "SAMPLE_BACKING black\n", "black"},
           {density_status, text + "FILTER_STATUS \"Status E\"\n", "Status E"},
           {density_status, text + "FILTER_STATUS E\nWEIGHTING_FUNCTION x\n", kNull},
           {illuminant, text, "A"},
           {illuminant, text + "ILLUMINATION_NAME C\n", "C"},
           {illuminant, text + "ILLUMINATION_NAME C\nILLUMINANT F2\n", "F2"},
           {observer, text, "10"},
           {observer, text + "OBSERVER_ANGLE \"2\xC2\xB0\"\n", "2\xC2"},  // the last byte alone
           {observer, text + "OBSERVER_ANGLE 2\nOBSERVER 10\xA1\n", "10"},
       }) {
    EXPECT_EQ(ask(c.question, c.text), c.answer) << c.text;
  }
}

// Nobody sees what stands behind a zero byte.
TEST(Metadata, TextsEndAtTheirFirstZeroByte) {
  const std::string instrument = "INSTRUMENTATION ";
  const std::string source = "MEASUREMENT_SOURCE ";
  for (const Case& c : {
           Case{device_model, instrument + "\"Maker Mod\0el, x\"\n"s, "Mod"},
           {device_polarization, instrument + "\"x\0no polarisation filter\"\n"s, kNull},
           {observer, "OBSERVER \"2\xB0\0 x\"\n"s, "2"},
           {device_filter, source + "\"Filter=U\0V\"\n"s, "U"},
           {density_status, source + "\"x\0 Density=T\"\n"s, kNull},
           {illuminant, "WEIGHTING_FUNCTION \"ILLUMINANT,\0 D50\"\n"s, kNull},
       }) {
    EXPECT_EQ(ask(c.question, c.text), c.answer) << c.text;
  }
}

TEST(Metadata, TheSampleIsDescribedByKeywords) {
  const std::string header =
      "COLORANT a\nMANUFACTURER b\nMATERIAL c\nPRINT_CONDITIONS d\nPROD_DATE e\nSERIAL f\n"
      "TARGET_TYPE g\n";
  std::string answers;
  for (const Question question :
       {sample_colorant, sample_manufacturer, sample_material, sample_print_conditions,
        sample_production_date, sample_serial_number, sample_target_type}) {
    answers += ask(question, header);
  }
  EXPECT_EQ(answers, "abcdefg");
}

TEST(Metadata, NothingIsKnownOfNothing) {
  for (const Question question :
       {device_manufacturer, device_model, device_serial_number, device_geometry, device_filter,
        device_polarization, density_status, illuminant, observer, sample_backing, sample_colorant,
        device_measurement_source}) {
    EXPECT_EQ(question(nullptr), nullptr);
    EXPECT_EQ(ask(question, ""), kNull);
    EXPECT_EQ(ask(question, "INSTRUMENTATION \"\"\nMEASUREMENT_SOURCE \"\"\n"),
              question == device_measurement_source ? "" : kNull);
  }
}

TEST(Metadata, OneBufferHoldsTheLastAnswer) {
  const test::Loaded file(test::file_of(
      "SAMPLE_ID", "1\n", "INSTRUMENTATION \"Maker Mod\"\nMEASUREMENT_SOURCE \"Filter=UVc\"\n"));
  const char* model = device_model(file);
  EXPECT_STREQ(model, "Mod");
  device_filter(file);
  EXPECT_STREQ(model, "UVc");
}

}  // namespace
