#include "api/measdata.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The channel names of a file, each followed by a slash; "-" for a channel without a name.
std::string names(const std::string& fields, const std::string& header,
                  const char* name = "n.txt") {
  test::Handle chart;
  EXPECT_EQ(chart.load(test::file_of(fields, "", header), name), 1) << chart.messages();
  std::string list;
  for (int channel = 0; channel < num_device_channels(chart); ++channel) {
    const char* channel_name = get_device_channel_name(chart, channel);
    list += std::string(channel_name == nullptr ? "-" : channel_name) + "/";
  }
  return list;
}

const std::string kCmyk = "CMYK_C CMYK_M CMYK_Y CMYK_K";

TEST(ChannelNames, DefaultsAndInkNames) {
  EXPECT_EQ(names(kCmyk, ""), "Cyan/Magenta/Yellow/Black/");
  EXPECT_EQ(names(kCmyk, "INK_NAME_4 \"Rich Black\"\n"), "Cyan/Magenta/Yellow/Rich Black/");
  EXPECT_EQ(names("CMY_C CMY_M CMY_Y", "INK_NAME_1 \"'Process Cyan'\"\n"),
            "Process Cyan/Magenta/Yellow/");
  EXPECT_EQ(names("RGB_R RGB_G RGB_B", ""), "-/-/-/");
  EXPECT_EQ(names("4CLR_1 4CLR_2 4CLR_3 4CLR_4", "INK_NAME_2 Red\n"), "-/Red/-/-/");
  EXPECT_EQ(names("2CLR_1 2CLR_2", "INK_NAME_1 \"Baker's Red\"\nINK_NAME_2 \"'\"\n"), "Baker/-/");
  EXPECT_EQ(names(kCmyk, "KEYWORD INK_NAME_1\n"), "-/Magenta/Yellow/Black/");  // declared, empty
}

TEST(ChannelNames, ASingleChannelIsNamedAfterTheFile) {
  EXPECT_EQ(names("GRAY", "", "C:/prints/Spot Orange.txt"), "Spot Orange/");
  EXPECT_EQ(names("GRAY", "", "C:\\a.b\\c.d.e"), "c.d/");
  EXPECT_EQ(names("GRAY", "", "plain"), "plain/");
  EXPECT_EQ(names("GRAY", "", "dir/"), "-/");
  EXPECT_EQ(names("GRAY", "", nullptr), "-/");
  EXPECT_EQ(names("GRAY", "INK_NAME_1 Orange\n", "x.txt"), "Orange/");
}

TEST(ChannelNames, TheColorantList) {
  const auto ink = [](const std::string& number, const std::string& value) {
    return "LGOMCCHANNEL" + number + " " + value + "\n";
  };
  EXPECT_EQ(names(kCmyk, ink("01", "InkName = 'Cyan' LabFullToneColor = 56 -37 -44") +
                             ink("02", "\"InkName = 'Reflex Blue' LabFullToneColor = x y z\"") +
                             ink("03", "\"InkName = Plain\"")),
            "Cyan/Reflex Blue/Plain/Black/");
  // A gap ends the list; an entry that is none shifts the others.
  EXPECT_EQ(names(kCmyk, ink("01", "\"InkName = A\"") + ink("03", "\"InkName = C\"")),
            "A/Magenta/Yellow/Black/");
  EXPECT_EQ(names(kCmyk, ink("01", "\"Ink = A\"") + ink("02", "\"InkName = B\"")),
            "B/Magenta/Yellow/Black/");
  EXPECT_EQ(names(kCmyk, ink("1", "\"InkName = A\"")), "Cyan/Magenta/Yellow/Black/");
  EXPECT_EQ(names("GRAY", ink("01", "\"InkName = 'never ends\"")), "never ends/");
  EXPECT_EQ(names("GRAY", ink("01", "\"InkName = ' two words'\"")), "-/");
  EXPECT_EQ(names("GRAY", ink("01", "\"InkName = 'A' LabFullToneColor = '1.5' '-2' 3x\"")), "A/");
}

TEST(ChannelNames, AFullToneThatIsNoNumberFailsTheBuild) {
  const struct {
    std::string tone, message;
  } cases[] = {
      {"55.0 -37.0 abc", "invalid stod argument\n"},
      {"'' 1 2", "invalid stod argument\n"},
      {"' 1 2", "invalid stod argument\n"},
      {"1 1e999 2", "stod argument out of range\n"},
  };
  for (const auto& c : cases) {
    test::Loaded chart(test::file_of("GRAY", "0\n100\n", "SERIAL 1\n"));
    ASSERT_EQ(num_keywords(chart), 1);
    EXPECT_EQ(chart.load(test::file_of(
                  "GRAY", "5\n",
                  "OWN 1\nLGOMCCHANNEL01 \"InkName = A LabFullToneColor = " + c.tone + "\"\n")),
              0);
    EXPECT_EQ(chart.messages(), c.message) << c.tone;
    EXPECT_EQ(num_patches(chart), 1);  // what was built before stays
    EXPECT_EQ(num_indices(chart), 1);
    EXPECT_EQ(num_keywords(chart), 1);
  }
}

}  // namespace
