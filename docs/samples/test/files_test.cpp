// What the guide says about files: its example files, and its table of irregularities.
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using test::Triple;

std::string path_of(const std::string& name) { return std::string(GUIDE_DATA) + "/" + name; }

TEST(GuideFiles, ExampleFilesGiveWhatIsSaid) {
  const struct {
    std::string name;
    int mode, result, patches, indices, channels;
    std::string messages;
  } cases[] = {
      {"chart.txt", 0, 1, 5, 4, 4, ""},
      {"iso28178.txt", 0, 1, 2, 2, 1, ""},
      {"older-form.txt", 0, 1, 2, 2, 3, ""},
      {"irregular.txt", 0, 1, 2, 2, 1, ""},
      {"ink-names.txt", 0, 1, 1, 1, 3, ""},
      {"free-text.txt", 0, 1, 1, 1, 0, ""},
      {"keywords-first.txt", 0, 1, 1, 1, 0, ""},
      {"five-nm.txt", 0, 1, 1, 1, 0, "Note: no weighting table for this spectral range.\n"},
      {"short-row.txt", 0, 0, 0, 0, 0,
       "Overwriting keyword 'SERIAL'\n"
       "In DATA block : line 10 has 3 fields, but 4 are required!\n"},
      {"table.csv", 1, 1, 3, 3, 4, ""},
      {"table.csv", 0, 0, 0, 0, 0, "Overwriting keyword '%'\nEOF, but no DATA found!\n"},
      {"chart.txt", 1, 1, 16, 16, 1, ""},
  };
  for (const auto& c : cases) {
    const test::Handle file;
    set_parse_mode(file, c.mode);
    EXPECT_EQ(parse_file(file, path_of(c.name).c_str()), c.result) << c.name;
    EXPECT_EQ(file.messages(), c.messages) << c.name;
    EXPECT_EQ(num_patches(file), c.patches) << c.name;
    EXPECT_EQ(num_indices(file), c.indices) << c.name;
    EXPECT_EQ(num_device_channels(file), c.channels) << c.name;
  }
}

TEST(GuideFiles, TheIrregularFile) {
  const test::Handle file;
  ASSERT_EQ(parse_file(file, path_of("irregular.txt").c_str()), 1);
  EXPECT_STREQ(get_value_of_keyword(file, "SERIAL"), "second");
  EXPECT_STREQ(get_value_of_keyword(file, "MATERIAL"), "coated paper");
  EXPECT_STREQ(get_value_of_keyword(file, "OWN_KEYWORD"), "never declared");
  EXPECT_EQ(has_keyword(file, "PROD_DATE"), 0);
  EXPECT_STREQ(get_name_from_patch(file, 0), R"(Patch ""one"")");
  EXPECT_STREQ(get_name_from_patch(file, 1), "Patch,2");
  EXPECT_EQ(file.lab(0), (Triple{95.1, 0.2, -2}));
  EXPECT_EQ(file.lab(1), (Triple{16, 0, 5}));
  EXPECT_STREQ(get_device_channel_name(file, 0), "irregular");
}

TEST(GuideFiles, TheSemicolonTable) {
  const test::Handle file;
  set_parse_mode(file, 1);
  ASSERT_EQ(parse_file(file, path_of("table.csv").c_str()), 1);
  EXPECT_STREQ(get_name_from_patch(file, 1), "Cyan; solid");
  EXPECT_EQ(file.lab(2), (Triple{16.2, 0.1, 0.2}));
  EXPECT_EQ(dev_is_cmyk(file), 0);
  EXPECT_EQ(num_keywords(file), 0);
}

TEST(GuideFiles, InkNames) {
  const test::Handle file;
  ASSERT_EQ(parse_file(file, path_of("ink-names.txt").c_str()), 1);
  EXPECT_STREQ(get_device_channel_name(file, 0), "Orange");
  EXPECT_STREQ(get_device_channel_name(file, 1), "Dark Green");
  EXPECT_STREQ(get_device_channel_name(file, 2), "Varnish");
}

// The rows of the table, in its order. `answer` is patch 0 of GRAY and Lab, or what is asked.
TEST(GuideFiles, Irregularities) {
  const std::string fields = "GRAY LAB_L LAB_A LAB_B";
  const auto described = [](const std::string& text) {
    const test::Loaded file(text);
    if (file.result == 0) return std::string("fails");
    std::string answer = std::to_string(num_patches(file)) + " patches";
    if (num_patches(file) > 0 && has_lab_data(file) == 1) {
      for (const double value : file.lab(0)) answer += " " + std::to_string(value).substr(0, 4);
    }
    return answer;
  };
  const std::string row = "0 95 1 -2\n";
  const std::string sound = test::file_of(fields, row);
  const std::string loads = "1 patches 95.0 1.00 -2.0";
  EXPECT_EQ(described(sound), loads);
  const auto without = [&sound](const std::string& line) {
    std::string text = sound;
    return text.erase(text.find(line + "\n"), line.size() + 1);
  };
  const auto with_header = [&](const std::string& line) {
    return described(test::file_of(fields, row, line + "\n"));
  };
  const auto with_rows = [&](const std::string& rows) {
    return described(test::file_of(fields, rows));
  };
  EXPECT_EQ(described(without("CGATS.17")), loads);
  EXPECT_EQ(with_header("NUMBER_OF_FIELDS 4"), loads);
  EXPECT_EQ(with_header("NUMBER_OF_FIELDS 5"), "fails");
  EXPECT_EQ(with_header("NUMBER_OF_FIELDS four"), "fails");
  EXPECT_EQ(with_header("NUMBER_OF_SETS 7"), loads);
  EXPECT_EQ(with_header("NUMBER_OF_SETS many"), "fails");
  EXPECT_EQ(with_rows("0 95 1\n"), "fails");
  EXPECT_EQ(with_rows("0 95 1 -2 3\n"), "fails");
  EXPECT_EQ(with_rows(""), "0 patches");
  EXPECT_EQ(with_rows("\t0   95\t1 -2 # note\n\n# note\n"), loads);
  EXPECT_EQ(with_rows("0 95,0 1 -2\n"), loads);
  EXPECT_EQ(with_rows("0 9.5e1 1mm -2\n"), loads);
  EXPECT_EQ(with_rows("0 n.a. 1 -2\n"), "1 patches 0.00 1.00 -2.0");
  EXPECT_EQ(described(without("END_DATA_FORMAT")), "fails");
  EXPECT_EQ(described(without("END_DATA")), "fails");
  EXPECT_EQ(described(sound + "BEGIN_DATA\n50 1 2 3\nEND_DATA\n"), loads);
  EXPECT_EQ(described(test::file_of("LAB_L", "1\n", "BEGIN_DATA_FORMAT\nX\nEND_DATA_FORMAT\n")),
            "1 patches");
  EXPECT_EQ(described(test::file_of("LAB_L LAB_A", "95 1\n")), "1 patches");  // no Lab
  EXPECT_EQ(described(test::file_of("LAB_L LAB_L LAB_A LAB_B", "1 95 1 -2\n")), loads);
  EXPECT_EQ(described(test::file_of("LAB_L LAB_A LAB_B OWN", "95 1 -2 x\n")), loads);
  std::string returns;  // lines that end with CR, LF and both
  int line = 0;
  for (const char c : sound) {
    if (c == '\n') {
      returns += std::vector<std::string>{"\r", "\n", "\r\n"}[static_cast<std::size_t>(line++ % 3)];
    } else {
      returns += c;
    }
  }
  EXPECT_EQ(described(returns), loads);
}

TEST(GuideFiles, NumericColumnsOfASemicolonTableAreAllOfThem) {
  const test::Loaded file("SAMPLE_NAME;LAB_L;LAB_A;LAB_B\na,b,c;1,5;;x\n", 1);
  EXPECT_STREQ(get_name_from_patch(file, 0), "a.b,c");
  EXPECT_EQ(file.lab(0), (Triple{1.5, 0, 0}));
}

}  // namespace
