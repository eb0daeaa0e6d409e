// The messages that a text can bring about, each with the smallest text that does.
#include "docs/samples/test/messages_table.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace {

const std::string kHead = "CGATS.17\n";
const std::string kFields = "BEGIN_DATA_FORMAT\nSAMPLE_ID\n";
const std::string kFormat = kFields + "END_DATA_FORMAT\n";
const std::string kRows = "BEGIN_DATA\n1\nEND_DATA\n";
const std::string kTwoFormats =
    "BEGIN_DATA_FORMAT\nLAB_L LAB_A\nEND_DATA_FORMAT\n"
    "BEGIN_DATA_FORMAT\nLAB_L LAB_L\nEND_DATA_FORMAT\n";

struct Trigger {
  std::string text, messages;
  int result;
};

const std::string kNoData = "EOF, but no DATA found!\n";
const std::string kNoTable = "Note: no weighting table for this spectral range.\n";

const Trigger kTriggers[] = {
    {"", "File is empty\n", 0},
    {kHead, kNoData, 0},
    {kHead + "BEGIN_DATA_FORMAT\n", "EOF, but no DATA_FORMAT found!\n", 0},
    {kHead + kFields, "EOF, but END_DATA_FORMAT expected!\n", 0},
    {kHead + kFormat + "BEGIN_DATA\n1\n", "EOF, but END_DATA expected!\n", 0},
    {kHead + kFields + kRows, "END_DATA_FORMAT expected!\n", 0},
    {kHead + "NUMBER_OF_FIELDS 2\n" + kFormat + kRows, "DATA_FORMAT has wrong NUMBER_OF_FIELDS!\n",
     0},
    {kHead + kFormat + "BEGIN_DATA\n1 2\nEND_DATA\n",
     "In DATA block : line 5 has 2 fields, but 1 are required!\n", 0},
    {kHead + "NUMBER_OF_FIELDS x\n" + kFormat + kRows, "Bad NUMBER_OF_FIELDS\n", 0},
    {kHead + "NUMBER_OF_SETS -1\n" + kFormat + kRows, "Bad NUMBER_OF_SETS\n", 0},
    {kHead + kFormat + "NUMBER_OF_FIELDS 1\n" + kRows, "NUMBER_OF_FIELDS comes too late!\n", 0},
    {kHead + kFormat + "BEGIN_DATA\nEND_DATA\nx", "", 1},
    {kHead + "NUMBER_OF_SETS x\n" + kFormat + "BEGIN_DATA\nEND_DATA\n",
     "Bad NUMBER_OF_SETS\nEmpty DATA block!\n", 0},
    {kHead + "SERIAL 1\nSERIAL 2\n", "Overwriting keyword 'SERIAL'\n" + kNoData, 0},
    {kHead + kTwoFormats,
     "Multiple DATA_FORMATs! Overriding old one.\n"
     "Duplicate data format identifier 'LAB_L'!\n" +
         kNoData,
     0},
    {test::file_of("R_400 R_405 R_500", "1 1 1\n"), "Unsupported spectral resolution!\n", 0},
    {test::file_of("R_400 R_410", "1 1\n"), kNoTable, 1},
    {test::file_of("R_730 R_1e-14", "1 1\n"), "Note: range will be adjusted.\n" + kNoTable, 1},
    {test::file_of("D_VIS", "1\n"), "Averaging of densities not implemented, yet!", 1},
    {test::file_of("GRAY", "1\n", "LGOMCCHANNEL01 \"InkName = A LabFullToneColor = x 0 0\"\n"),
     "invalid stod argument\n", 0},
    {test::file_of("GRAY", "1\n", "LGOMCCHANNEL01 \"InkName = A LabFullToneColor = 1e999 0 0\"\n"),
     "stod argument out of range\n", 0},
};

TEST(GuideMessages, EachIsBroughtAboutByItsText) {
  for (const Trigger& trigger : kTriggers) {
    const test::Loaded file(trigger.text);
    EXPECT_EQ(file.messages(), trigger.messages) << trigger.text;
    EXPECT_EQ(file.result, trigger.result) << trigger.text;
  }
}

TEST(GuideMessages, FilesThatCannotBeRead) {
  const test::Handle file;
  EXPECT_EQ(parse_file(file, "no-such-file"), 0);
  EXPECT_EQ(file.messages(), "Failed to open file 'no-such-file'\n");
  EXPECT_EQ(parse_file(file, GUIDE_DATA), 0);
  EXPECT_EQ(file.messages(), std::string("Failed to read file '") + GUIDE_DATA + "'\n");
  const std::string empty = testing::TempDir() + "guide-empty.txt";
  std::ofstream(empty).close();
  EXPECT_EQ(parse_file(file, empty.c_str()), 0);
  EXPECT_EQ(file.messages(), "Empty file '" + empty + "'\n");
  std::filesystem::remove(empty);
}

// Only the full-tone colour leaves the patches when a load fails for it, but neither names of
// channels nor keywords.
TEST(GuideMessages, FailuresThatLeaveThePatches) {
  for (const Trigger& trigger : kTriggers) {
    const test::Loaded file(trigger.text);
    if (file.result == 1) continue;
    const bool is_full_tone = trigger.messages.find("stod") != std::string::npos;
    EXPECT_EQ(num_patches(file), is_full_tone ? 1 : 0) << trigger.text;
    EXPECT_EQ(get_device_channel_name(file, 0), nullptr) << trigger.text;
    EXPECT_EQ(num_keywords(file), 0) << trigger.text;
  }
}

bool has_line(const std::string& messages, const std::string& pattern) {
  std::istringstream lines(messages);
  for (std::string line; std::getline(lines, line);) {
    if (guide::fits(line, pattern)) return true;
  }
  return false;
}

// What the page says is told comes from a trigger, with the right result; of the rest nothing does.
TEST(GuideMessages, ThePageTellsWhichAreHeard) {
  const std::set<std::string> not_of_texts = {"Out of memory", "Failed to open file '<path>'",
                                              "Failed to read file '<path>'",
                                              "Empty file '<path>'"};
  for (const guide::Row& row : guide::rows_of_page()) {
    if (not_of_texts.contains(row.text)) continue;
    bool is_heard = false;
    for (const Trigger& trigger : kTriggers) {
      if (!has_line(trigger.messages, guide::pattern_of(row.text))) continue;
      is_heard = true;
      if (row.load != "continues") {
        EXPECT_EQ(trigger.result, row.load == "fails" ? 0 : 1) << row.text;
      }
    }
    EXPECT_EQ(is_heard, row.load != "not reported") << row.text;
  }
}

}  // namespace
