// What a chart gathers of a file. Expectations are derived by hand.
#include "kit/chart/chart.h"

#include "kit/write/json.h"
#include "kit/write/layout.h"
#include "kit/write/printable_text.h"
#include "kit/write/summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace measkit;
using Json = nlohmann::json;

std::string file_of(std::string_view header, std::string_view fields, std::string_view rows) {
  return "CGATS.17\n" + std::string(header) + "BEGIN_DATA_FORMAT\n" + std::string(fields) +
         "\nEND_DATA_FORMAT\nBEGIN_DATA\n" + std::string(rows) + "END_DATA\n";
}

Chart chart_from(const std::string& text) {
  const Preflighted file = preflight(text, "folder/chart.txt");
  EXPECT_EQ(file.tables.size(), 1U) << text;
  return file.tables.empty() ? Chart() : chart_of(*file.tables.front(), "chart.txt");
}

Chart chart_from(std::string_view header, std::string_view fields, std::string_view rows) {
  return chart_from(file_of(header, fields, rows));
}

std::string landmarks_of(const Chart& chart) {
  std::string text;
  for (const Landmark& landmark : chart.landmarks) {
    text += landmark.name + "=" + label_of(chart, landmark.index) + " ";
  }
  return text;
}

std::string names_of(const Chart& chart) {
  std::string text;
  for (const Channel& channel : chart.channels) text += channel.name + "|";
  return text;
}

std::string value_of(const std::optional<Stated>& stated) {
  return stated ? stated->value + " by " + stated->keyword : "";
}

// Spectra of a constant reflectance from 380 to 730 nm.
std::string spectral_fields() {
  std::string fields;
  for (int nm = 380; nm <= 730; nm += 10) fields += " SPECTRAL_NM" + std::to_string(nm);
  return fields;
}
std::string flat_spectrum(const std::string& value) {
  std::string cells;
  for (int nm = 380; nm <= 730; nm += 10) cells += " " + value;
  return cells;
}

// A white of Y = 100 has L* = 100, and a flat 0.5 has the lightness of Y = 50.
const double kHalf = 116.0 * std::cbrt(0.5) - 16.0;

TEST(Chart, PatchesOfTheSameDeviceValuesAreMerged) {
  const Chart chart = chart_from("", "SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B",
                                 "A1 0 0 0 0 95 0 0\nA2 100 0 0 0 50 -30 -40\n"
                                 "A3 0 0 0 0 95 3 4\nA4 -0 0 0 0 95 0 0\nA5 40 0 0 0 70 0 0\n");
  ASSERT_EQ(chart.merged.count, 3U);
  const std::vector<std::vector<std::uint32_t>> expected = {{0, 2, 3}, {1}, {4}};
  for (std::size_t index = 0; index < 3; ++index) {
    const auto patches = chart.merged.patches_of(index);
    EXPECT_EQ(std::vector(patches.begin(), patches.end()), expected[index]) << index;
    EXPECT_EQ(chart.merged.repeats[index].count, static_cast<int>(patches.size())) << index;
  }
  EXPECT_DOUBLE_EQ(*chart.merged.repeats[0].de_max, 5.0);
  EXPECT_FALSE(chart.merged.repeats[1].de_max.has_value());
  EXPECT_DOUBLE_EQ(triple_at(chart.merged.lab, 0)[1], 1.0);
  EXPECT_EQ(landmarks_of(chart), "Paper=A1 Cyan=A2 ");
  EXPECT_EQ(chart.channels[0].wedge, (std::vector<std::size_t>{2, 1}));
}

TEST(Chart, ColoursThatWereNotMeasuredLeaveTheMeanOfTheOthers) {
  const Chart chart = chart_from("", "SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B",
                                 "1 100 0 0 0 50 0 0\n2 100 0 0 0 -- -- --\n3 100 0 0 0 50 3 4\n"
                                 "4 50 0 0 0 -- -- --\n5 0 0 0 0 95 0 0\n");
  ASSERT_EQ(chart.merged.count, 3U);
  EXPECT_EQ(triple_at(chart.merged.lab, 0), (Triple{50.0, 1.5, 2.0}));
  EXPECT_DOUBLE_EQ(*chart.merged.repeats[0].de_max, 5.0);
  EXPECT_EQ(chart.channels[0].wedge, (std::vector<std::size_t>{0}));
}

TEST(Chart, LandmarksOfRgbStandAtTheEndsOfItsScale) {
  struct Case {
    const char *rows, *landmarks;
    double full_scale;
  };
  const std::vector<Case> cases = {
      {"w 255 255 255 95 0 0\nk 0 0 0 5 0 0\nr 255 0 0 50 60 40\nc 0 255 255 80 -40 -20\n",
       "White=w Black=k Red=r Cyan=c ", 255.0},
      {"k 0 0 0 5 0 0\nw 100 100 100 95 0 0\nb 0 0 100 30 60 -90\ny 100 100 0 90 0 90\n",
       "White=w Black=k Blue=b Yellow=y ", 100.0},
      {"w 1 1 1 95 0 0\nk 0 0 0 5 0 0\ng 0 1 0 80 -70 70\nm 1 0 1 60 90 -50\n",
       "White=w Black=k Green=g Magenta=m ", 1.0},
      {"x 90 90 90 85 0 0\nk 0 0 0 5 0 0\ng 0 40 0 80 -70 70\n", "Black=k ", 0.0},
  };
  for (const Case& expected : cases) {
    const Chart chart =
        chart_from("", "SAMPLE_ID RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B", expected.rows);
    EXPECT_EQ(landmarks_of(chart), expected.landmarks);
    EXPECT_EQ(chart.full_scale, expected.full_scale);
    EXPECT_EQ(names_of(chart), "Red|Green|Blue|");
    const bool has_white = chart.landmarks[0].kind == LandmarkKind::white;
    EXPECT_EQ(chart.paper_white.has_value(), has_white) << expected.rows;
  }
}

TEST(Chart, EveryChannelHasAName) {
  struct Case {
    const char *header, *fields, *row, *names;
  };
  const std::vector<Case> cases = {
      {"", "CMY_C CMY_M CMY_Y", "0 0 0", "Cyan|Magenta|Yellow|"},
      {"INK_NAME_4 \"Rich Black\"\n", "CMYK_C CMYK_M CMYK_Y CMYK_K", "0 0 0 0",
       "Cyan|Magenta|Yellow|Rich Black|"},
      {"INK_NAME_1 \"Baker's Red\"\nINK_NAME_2 \"'Leaf Green'\"\n", "2CLR_1 2CLR_2", "0 0",
       "Baker's Red|Leaf Green|"},
      {"LGOMCCHANNEL01 \"InkName = 'Baker's Red' LabFullToneColor = 50 60 40\"\n"
       "LGOMCCHANNEL02 \"InkName = Black\"\nINK_NAME_3 \"Varnish (matt; 2)\"\n",
       "4CLR_1 4CLR_2 4CLR_3 4CLR_4", "0 0 0 0", "Baker's Red|Black|Varnish (matt; 2)|4CLR_4|"},
      {"PROCESSCOLOR_ID \"2 1 Cyan\"\nPROCESSCOLOR_ID \"2 2 Deep Blue\"\n", "PC2_1 PC2_2", "0 0",
       "Cyan|Deep Blue|"},
      {"", "GRAY", "0", "Gray|"},
      {"", "1CLR_1", "0", "chart|"},
      {"INK_NAME_1 \"Luz\"\n", "RGB_R RGB_G RGB_B", "0 0 0", "Luz|Green|Blue|"},
      {"", "CMYKOG_C CMYKOG_M CMYKOG_Y CMYKOG_K CMYKOG_O CMYKOG_G", "0 0 0 0 0 0",
       "Cyan|Magenta|Yellow|Black|Orange|Green|"},
  };
  for (const Case& expected : cases) {
    const Chart chart =
        chart_from(expected.header, expected.fields + std::string(" LAB_L LAB_A LAB_B"),
                   expected.row + std::string(" 90 0 0\n"));
    EXPECT_EQ(names_of(chart), expected.names) << expected.fields;
  }
}

TEST(Chart, LabHasASource) {
  struct Case {
    std::string header, fields, row;
    LabSource source;
    double lightness;
  };
  const std::string display = "DEVICE_CLASS \"DISPLAY\"\n";
  const std::vector<Case> cases = {
      {"", "LAB_L LAB_A LAB_B", "61 1 2", LabSource::file, 61.0},
      {"", "SAMPLE_NAME XYZ_X XYZ_Y XYZ_Z", "white 48.211 50 41.2605", LabSource::xyz, kHalf},
      {"", "LAB_L LAB_C LAB_H", "62 10 90", LabSource::lch, 62.0},
      {"", "SAMPLE_ID" + spectral_fields(), "1" + flat_spectrum("0.5"), LabSource::weighting_table,
       kHalf},
      {"", "SAMPLE_ID" + spectral_fields(), "1" + flat_spectrum("50.0"), LabSource::weighting_table,
       kHalf},
      {"", "nm400 nm500 nm600 nm700", "0.5 0.5 0.5 0.5", LabSource::integration, kHalf},
      {"", "nm400 nm500 nm600 nm700 LAB_L LAB_A LAB_B", "0.5 0.5 0.5 0.5 63 0 0", LabSource::file,
       63.0},
      {display, "RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z", "1 1 1 95 100 108", LabSource::display,
       100.0},
      {display, "RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z", "0.5 0.5 0.5 20 21 22", LabSource::none, 0},
  };
  for (const Case& expected : cases) {
    const Chart chart = chart_from(expected.header, expected.fields, expected.row + "\n");
    EXPECT_EQ(chart.lab_source, expected.source) << expected.fields << chart.lab_sentence;
    EXPECT_FALSE(chart.lab_sentence.empty()) << expected.fields;
    EXPECT_EQ(chart.lab.empty(), expected.source == LabSource::none) << expected.fields;
    if (!chart.lab.empty()) {
      EXPECT_NEAR(triple_at(chart.lab, 0)[0], expected.lightness, 0.02) << expected.fields;
    }
  }
}

TEST(Chart, OwnLabAreComparedWithThoseOfTheSpectra) {
  // Against the flat spectra the differences are about 0, 3, 4 and 0.
  std::string rows;
  for (const double offset : {0.0, 3.0, 4.0, 0.0}) {
    rows += "P" + std::to_string(rows.size()) + flat_spectrum("0.5") + " " + std::to_string(kHalf) +
            " " + std::to_string(offset) + " 0\n";
  }
  const std::string fields = "SAMPLE_ID" + spectral_fields() + " LAB_L LAB_A LAB_B";
  const Chart chart = chart_from("", fields, rows);
  ASSERT_TRUE(chart.lab_difference.has_value());
  EXPECT_NEAR(chart.lab_difference->median, 0.0, 0.05);
  EXPECT_NEAR(chart.lab_difference->percentile_95, 4.0, 0.05);
  EXPECT_NEAR(chart.lab_difference->largest, 4.0, 0.05);
  EXPECT_EQ(chart.lab_difference->largest_patch, 2U);
  ASSERT_EQ(chart.findings.size(), 1U);
  EXPECT_EQ(chart.findings[0].code, "own-lab-differs");
  EXPECT_EQ(chart.findings[0].severity, Severity::note);  // half of the patches agree

  // The same from cells that a repair has cut, here for tabs; and without a word where all agree.
  std::string tabs = "white paper" + flat_spectrum("0.5") + " 76.07 0 0\n";
  std::replace(tabs.begin() + 6, tabs.end(), ' ', '\t');
  const Chart cut = chart_from("", fields, tabs);
  ASSERT_TRUE(cut.lab_difference.has_value());
  EXPECT_EQ(cut.own_lab.row(0)[0], 76.07);
  EXPECT_TRUE(std::none_of(cut.findings.begin(), cut.findings.end(), [](const Finding& finding) {
    return finding.code == "own-lab-differs";
  }));

  // XYZ for D65 and 10 degrees, twice as light as the spectra say.
  const Chart of_xyz = chart_from("ILLUMINANT D65\nOBSERVER \"10\xC2\xB0\"\n",
                                  "XYZ_X XYZ_Y XYZ_Z" + spectral_fields(),
                                  "94.811 100 107.304" + flat_spectrum("0.5") + "\n");
  ASSERT_TRUE(of_xyz.lab_difference.has_value());
  EXPECT_TRUE(of_xyz.lab_difference->is_of_xyz);
  EXPECT_NEAR(of_xyz.lab_difference->largest, 100.0 - kHalf, 0.02);
  EXPECT_EQ(of_xyz.conditions.observer->words, "10\xC2\xB0");  // not as the kit writes it
}

TEST(Chart, ColumnsWithoutAQuestionAreTaken) {
  const Chart chart = chart_from("", "SAMPLE_ID D_VIS LAB_L LAB_A LAB_B LAB_C LAB_H D_RED STDEV_X",
                                 "1 0,05 95 0 1 1 90 0.06 0.1\n2 1.5 20 2 0 2 0 1.4 0.2\n");
  EXPECT_EQ(chart.density_names, (std::vector<std::string>{"D_VIS", "D_RED"}));
  EXPECT_EQ(std::vector(chart.densities.values().begin(), chart.densities.values().end()),
            (std::vector<double>{0.05, 0.06, 1.5, 1.4}));
  EXPECT_EQ(triple_at(chart.lch, 1), (Triple{20.0, 2.0, 0.0}));
  EXPECT_EQ(chart.unused_columns, (std::vector<std::string>{"STDEV_X"}));

  const Chart lamp = chart_from("DEVICE_CLASS \"DISPLAY\"\n",
                                "RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z SPEC_400 SPEC_500 SPEC_600",
                                "1 1 1 95 100 108 0.2 3.4 2.5\n0 0 0 1 1 1 0.1 0.2 0.3\n");
  EXPECT_EQ(lamp.quantity, Quantity::emission);
  EXPECT_EQ(lamp.emission_wavelengths, (std::vector<double>{400, 500, 600}));
  EXPECT_EQ(lamp.emission.row(0)[1], 3.4);
  EXPECT_TRUE(lamp.spectra.empty());
  EXPECT_TRUE(lamp.unused_columns.empty());
}

TEST(Chart, HeaderTellsConditionsAndInstrument) {
  const Chart chart = chart_from(
      "INSTRUMENTATION \"Spectro 2, geometry 45/0, no polarisation filter, Serial number 0\"\n"
      "MEASUREMENT_SOURCE \"MeasurementCondition=M1 ObserverAngle=10degree\"\nFILTER \"M1\"\n"
      "SAMPLE_BACKING \"white\"\nILLUMINATION_NAME D65\nMATERIAL \"Unknown\"\n"
      "DESCRIPTOR \"Not specified\"\nTABLE_NAME \"Run 2\"\nSERIAL \"0\"\n",
      "SAMPLE_ID LAB_L LAB_A LAB_B", "1 95 0 0\n");
  EXPECT_EQ(chart.title, "Run 2");
  EXPECT_EQ(value_of(chart.conditions.m), "M1 by MEASUREMENT_SOURCE");
  EXPECT_EQ(value_of(chart.conditions.illuminant), "D65 by ILLUMINATION_NAME");
  EXPECT_EQ(value_of(chart.conditions.observer), "10 by MEASUREMENT_SOURCE");
  EXPECT_EQ(value_of(chart.conditions.backing), "white by SAMPLE_BACKING");
  EXPECT_EQ(value_of(chart.conditions.geometry), "45/0 by INSTRUMENTATION");
  EXPECT_EQ(value_of(chart.conditions.polarization), "no by INSTRUMENTATION");
  EXPECT_EQ(value_of(chart.conditions.filter), "");  // M1 is no filter
  for (const Answer& answer : chart.sample_answers) EXPECT_FALSE(answer.text) << answer.question;
  EXPECT_EQ(chart.empty_keywords, 2U);
  for (const auto& [header, line] : std::vector<std::pair<const char*, const char*>>{
           {"INSTRUMENTATION \", ; SN , M0\"\nTARGET_INSTRUMENT \"Maker Two\"\n", "Maker Two"},
           {"INSTRUMENT \"Unknown\"\nVENDOR_INFO \"Maker Three\"\n", "Maker Three"},
           {"INSTRUMENTATION \"; ,\"\n", ""}}) {
    EXPECT_EQ(chart_from(header, "SAMPLE_ID LAB_L LAB_A LAB_B", "1 95 0 0\n").instrument, line);
  }
}

TEST(ChartAsItStands, HasTheLibrarysView) {
  const std::string text = file_of("", "SAMPLE_ID RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B",
                                   "w 255 255 255 95 0 0\nk 0 0 0 5 0 0\n");
  const LoadedText loaded(text, "chart.txt");
  const Chart chart = chart_as_it_stands(loaded.handle(), "chart.txt");
  EXPECT_EQ(chart.patch_count, 2U);
  EXPECT_EQ(chart.paper_white, 1U);
  EXPECT_EQ(chart.lab_source, LabSource::file);
}

Json json_of(const std::string& text) {
  const Preflighted file = preflight(text, "chart.txt");
  std::vector<Chart> charts;
  for (const auto& plain : file.tables) charts.push_back(chart_of(*plain, "chart.txt"));
  return Json::parse(to_json("chart.txt", charts, file.findings));
}

TEST(ChartAsJson, HoldsEveryPatchAndNoNumberThatIsNone) {
  const Json json = json_of(file_of("ORIGINATOR \"M\xFCller\"\n",
                                    "SAMPLE_ID RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B D_VIS",
                                    "w 255 255 255 95 0 0 0.1\nw2 255 255 255 95 3 4 0.1\n"
                                    "k 0 0 0 nan nan nan 2\n"));
  EXPECT_EQ(json["patches"][2]["lab"], Json::parse("[null, null, null]"));
  EXPECT_EQ(json["patches"][2]["srgb"], nullptr);
  EXPECT_EQ(json["patches"][0]["densities"], Json::parse("[0.1]"));
  EXPECT_EQ(json["merged_patches"][0]["patches"], Json::parse("[0, 1]"));
  EXPECT_EQ(json["merged_patches"][0]["repeats"]["de_max"], 5.0);
  EXPECT_EQ(json["merged_patches"][1]["repeats"]["de_max"], nullptr);
  EXPECT_EQ(json["landmarks"][0]["id"], "w");
  EXPECT_EQ(json["full_scale"], 255.0);
  EXPECT_EQ(json["keywords"][0]["value"], "M\xC3\xBCller");
  EXPECT_EQ(json["findings"][0]["code"], "latin-1");
}

TEST(ChartAsJson, FileWithoutAChartAndFileWithTwo) {
  const Json none = json_of("nothing\n");
  EXPECT_EQ(none["loaded"], false);
  EXPECT_EQ(none["findings"][0]["severity"], "lost");
  const std::string table = file_of("", "SAMPLE_ID LAB_L LAB_A LAB_B", "1 95 0 0\n");
  const Json two = json_of(table + table);
  EXPECT_EQ(two["tables"].size(), 2U);
  EXPECT_EQ(two["further_charts"][0]["patches"][0]["id"], "1");
}

// Many channels, conditions, findings and long words: nothing may grow beyond a screenful.
std::string crowded_file() {
  std::string header = "DESCRIPTOR \"" + std::string(3000, 'd') + "\"\n", fields = "SAMPLE_ID";
  header += "MEASUREMENT_SOURCE \"MeasurementCondition=M1 Filter=" + std::string(500, 'f') + "\"\n";
  for (const char* line : {"ILLUMINANT D65", "OBSERVER 10", "SAMPLE_BACKING white",
                           "POLARIZATION yes", "MEASUREMENT_GEOMETRY 45/0", "FILTER_STATUS T"}) {
    header += std::string(line) + "\n";
  }
  header += "INSTRUMENTATION \"Maker \x1B[31m Model " + std::string(2000, 'i') + "\"\n";
  for (int channel = 1; channel <= 15; ++channel) {
    fields += " FCLR_" + std::string(1, "0123456789ABCDEF"[channel]);
    header += "INK_NAME_" + std::to_string(channel) + " \"" + std::string(200, 'k') + "\"\n";
  }
  for (int i = 0; i < 40; ++i)
    fields += " UNUSED_" + std::string(100, static_cast<char>('A' + i % 26));
  std::string rows;
  for (int row = 0; row < 200; ++row) {
    rows += std::string(300, 'n');
    for (int channel = 0; channel < 15; ++channel) rows += channel == row % 16 ? " 100" : " 0";
    for (int i = 0; i < 40; ++i) rows += " 1";
    rows += " 50 1 2\n";
  }
  return file_of(header, fields + " LAB_L LAB_A LAB_B", rows);
}

TEST(ChartAsText, FitsAScreenWhateverTheChart) {
  const std::string table = crowded_file();
  std::string text = table;
  for (int i = 0; i < 5; ++i) text += table;
  const Preflighted file = preflight(text, "chart.txt");
  std::vector<Chart> charts;
  for (const auto& plain : file.tables) charts.push_back(chart_of(*plain, "chart.txt"));
  Findings findings = file.findings;
  for (int i = 0; i < 200; ++i) findings.add(Severity::lost, "test", std::string(400, 'w'), 1);
  const std::regex swatches("\x1B\\[(48;2;[0-9]+;[0-9]+;[0-9]+|0)m");
  for (const Screen& screen : {Screen{}, Screen{Colours::all, true}}) {
    std::istringstream lines(summary_of("chart.txt", charts, findings, Detail::screenful, screen));
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
      if (screen.colours == Colours::all) line = std::regex_replace(line, swatches, "");
      EXPECT_LE(display_width(line), kTerminalWidth) << line;
      EXPECT_EQ(line.find('\x1B'), std::string::npos) << line;
    }
    EXPECT_LE(count, 45U);
    EXPECT_GE(count, 30U);
  }
}

TEST(ChartAsText, ListsEveryPatchWhenAsked) {
  std::string rows;
  for (int i = 0; i < 50; ++i)
    rows += "id" + std::to_string(i) + " 0 0 " + std::to_string(i % 2 * 100) + " " +
            std::to_string(i) + " 1 1\n";
  const Chart chart = chart_from("", "SAMPLE_ID CMY_C CMY_M CMY_Y LAB_L LAB_A LAB_B", rows);
  const std::string all = summary_of(chart, Detail::all);
  const std::string some = summary_of(chart, Detail::screenful);
  for (int i = 0; i < 50; ++i)
    EXPECT_NE(all.find("id" + std::to_string(i) + " "), std::string::npos);
  EXPECT_EQ(some.find("id20 "), std::string::npos);
  EXPECT_NE(some.find("... 44 more ..."), std::string::npos) << some;
  EXPECT_NE(some.find("50 patches of 2 colours (2 repeated); repeats within 48.00"),
            std::string::npos)
      << some;
  const Chart single = chart_from("", "SAMPLE_ID LAB_L LAB_A LAB_B", "1 95 0 0\n");
  EXPECT_NE(summary_of(single, Detail::screenful).find(" 1 patch\n"), std::string::npos);
}

TEST(ChartAsText, WordsAreShortenedAndWrapped) {
  EXPECT_EQ(shortened("abcdef", 6), "abcdef");
  EXPECT_EQ(shortened("abcdefg", 6), "abc...");
  EXPECT_EQ(shortened("\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA4\xC3\xB6", 4), "\xC3\xA4...");
  EXPECT_EQ(wrapped("one two three", 7), (std::vector<std::string>{"one two", "three"}));
  EXPECT_EQ(wrapped("unbreakable", 5), (std::vector<std::string>{"unbre", "akabl", "e"}));
  EXPECT_EQ(counted(1, "patch", "patches"), "1 patch");
}

}  // namespace
