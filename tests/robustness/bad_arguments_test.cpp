// Every function of the interface, with handles and positions that hold nothing.
#include "tests/support/answers.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Line {
  std::string text, name, position, answer;
};

std::vector<Line> lines_of(void* handle) {
  std::vector<Line> lines;
  std::istringstream answers(test::answers(handle));
  for (std::string text; std::getline(answers, text);) {
    const std::size_t colon = text.find(": "), open = text.find('(');
    if (colon == std::string::npos) continue;
    const std::string position = open < colon ? text.substr(open, colon - open) : "";
    lines.push_back(
        {text, text.substr(0, text.find_first_of("[(:")), position, text.substr(colon + 2)});
  }
  return lines;
}

TEST(BadArguments, ANullHandleHoldsNothing) {
  std::map<std::string, std::string> expected = {{"parser_version", "1.9.7"},
                                                 {"parser_version_major", "1"},
                                                 {"parser_version_minor", "9"},
                                                 {"parser_version_bugfix", "7"}};
  for (const char* index : {"get_paperwhite_index", "get_solid_index", "get_wedge_index",
                            "num_keywords", "num_wedge_steps"}) {
    expected[index] = "-1";
  }
  for (const char* text :
       {"get_id_from_patch", "get_loc_from_patch", "get_name_from_patch", "get_name_from_index"}) {
    expected[text] = "";
  }
  for (const char* color : {"get_lab_from_patch", "get_xyz_from_patch", "get_lab_from_index",
                            "get_de_stats_from_index"}) {
    expected[color] = "-7 -7 -7 ";
  }
  expected["get_dev_from_patch"] = expected["get_dev_from_index"] = "-7 ";
  const std::vector<Line> lines = lines_of(nullptr);
  EXPECT_GT(lines.size(), 500U);
  for (const Line& line : lines) {
    if (line.name == "lab_to_srgb") continue;
    if (expected.contains(line.name)) {
      EXPECT_EQ(line.answer, expected[line.name]) << line.text;
    } else {
      EXPECT_TRUE(line.answer == "0" || line.answer == "(null)") << line.text;
    }
  }
  EXPECT_EQ(pass_unique_data(nullptr), nullptr);
  EXPECT_EQ(parse_file(nullptr, "x"), 0);
  EXPECT_EQ(parse_mem(nullptr, 1, "x", nullptr), 0);
  set_parse_mode(nullptr, 1);
  cleanup_parser(nullptr);
}

// The file has one of everything, at position 0.
TEST(BadArguments, PositionsThatDoNotExistAreAnsweredAsIfThereWereNoData) {
  const test::Loaded chart(test::file_of(
      "SAMPLE_ID SAMPLE_NAME SAMPLE_LOC GRAY XYZ_X XYZ_Y XYZ_Z LAB_L LAB_A LAB_B nm500",
      "1 n l 100 1 2 3 4 5 6 0.5\n", "WEIGHTING_FUNCTION \"ILLUMINANT, D50\"\n"));
  ASSERT_EQ(chart.result, 1);
  const test::Handle fresh;
  const std::string nothing = "\n" + test::answers(fresh);
  for (const Line& line : lines_of(chart)) {
    if (line.position.find_first_of("123456789") == std::string::npos) continue;
    const bool counts_as_0 =
        (line.name == "get_keyword" || line.name == "get_value") && line.position.starts_with("(-");
    if (counts_as_0) {
      EXPECT_EQ(line.answer, line.name == "get_value" ? "ILLUMINANT, D50" : "WEIGHTING_FUNCTION");
    } else {
      EXPECT_NE(nothing.find("\n" + line.text + "\n"), std::string::npos) << line.text;
    }
  }
}

TEST(BadArguments, AFailedLoadLeavesAHandleAsItWas) {
  test::Handle fresh, failed;
  EXPECT_EQ(parse_file(failed, nullptr), 0);
  EXPECT_EQ(failed.messages(), "Failed to open file ''\n");
  EXPECT_EQ(parse_mem(failed, static_cast<std::size_t>(-1), nullptr, "name"), 0);
  EXPECT_EQ(failed.load(""), 0);
  const std::string message = "File is empty\n";
  std::string told = test::answers(failed);
  ASSERT_NE(told.find(message), std::string::npos);
  EXPECT_EQ(told.erase(told.find(message), message.size()), test::answers(fresh));
}

}  // namespace
