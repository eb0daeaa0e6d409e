#include "api/measdata.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string kCmyk = "CMYK_C CMYK_M CMYK_Y CMYK_K";

std::string ink(const std::string& number, const std::string& value) {
  return "LGOMCCHANNEL" + number + " \"" + value + "\"\n";
}

struct Case {
  std::string fields, header, names;  // each name followed by a slash; "-" for none
  const char* file = "n.txt";
};

void expect_names(const Case& c) {
  test::Handle chart;
  ASSERT_EQ(chart.load(test::file_of(c.fields, "", c.header), c.file), 1) << chart.messages();
  std::string names;
  for (int channel = 0; channel < num_device_channels(chart); ++channel) {
    const char* name = get_device_channel_name(chart, channel);
    names += std::string(name == nullptr ? "-" : name) + "/";
  }
  EXPECT_EQ(names, c.names) << c.fields << ' ' << c.header;
}

TEST(ChannelNames, FromInkNamesFieldsOrTheFile) {
  for (const Case& c : {
           Case{kCmyk, "", "Cyan/Magenta/Yellow/Black/"},
           {kCmyk, "INK_NAME_4 \"Rich Black\"\n", "Cyan/Magenta/Yellow/Rich Black/"},
           {kCmyk, "KEYWORD INK_NAME_1\n", "-/Magenta/Yellow/Black/"},  // declared, empty
           {"CMY_C CMY_M CMY_Y", "INK_NAME_1 \"'Own'\"\n", "Own/Magenta/Yellow/"},
           {"RGB_R RGB_G RGB_B", "", "-/-/-/"},
           {"4CLR_1 4CLR_2 4CLR_3 4CLR_4", "INK_NAME_2 Red\n", "-/Red/-/-/"},
           // Everything from the last apostrophe on goes.
           {"2CLR_1 2CLR_2", "INK_NAME_1 \"a'b'c\"\nINK_NAME_2 \"'\"\n", "a'b/-/"},
           // A single channel is named after the file.
           {"GRAY", "", "Spot Orange/", "C:/prints/Spot Orange.txt"},
           {"GRAY", "", "c.d/", "C:\\a.b\\c.d.e"},
           {"GRAY", "", "plain/", "plain"},
           {"GRAY", "", "-/", "dir/"},
           {"GRAY", "", "-/", nullptr},
           {"GRAY", "INK_NAME_1 Orange\n", "Orange/"},
       }) {
    expect_names(c);
  }
}

TEST(ChannelNames, FromTheColorantList) {
  std::string ten_inks;
  for (int i = 1; i <= 10; ++i) {
    const std::string number = std::to_string(i);
    ten_inks += ink((i < 10 ? "0" : "") + number, "InkName = i" + number);
  }
  for (const Case& c : {
           Case{kCmyk,
                "LGOMCCHANNEL01 InkName = 'Cyan' LabFullToneColor = 56 -37 -44\n" +
                    ink("02", "InkName = 'Reflex Blue' LabFullToneColor = x y z") +
                    ink("03", "InkName = Plain"),
                "Cyan/Reflex Blue/Plain/Black/"},
           // A gap ends the list; an entry that is none shifts the others.
           {kCmyk, ink("01", "InkName = A") + ink("03", "InkName = C"), "A/Magenta/Yellow/Black/"},
           {kCmyk, ink("01", "Ink = A") + ink("02", "InkName = B"), "B/Magenta/Yellow/Black/"},
           {kCmyk, ink("1", "InkName = A"), "Cyan/Magenta/Yellow/Black/"},
           {"GRAY", ink("01", "InkName = A") + "INK_NAME_1 B\n", "A/"},
           {"GRAY", ink("01", "InkName = 'never ends"), "never ends/"},
           {"GRAY", ink("01", "InkName = ' two words'"), "-/"},
           {"GRAY", ink("01", "InkName = 'A' LabFullToneColor = '1.5' '-2' 3x"), "A/"},
           {test::numbered("ACLR_", 1, 1, 9) + " ACLR_A", ten_inks,
            "i1/i2/i3/i4/i5/i6/i7/i8/i9/i10/"},
       }) {
    expect_names(c);
  }
}

// What was built before the names stays; names and keywords are those of the load before.
TEST(ChannelNames, AFullToneThatIsNoNumberFailsTheBuild) {
  const struct {
    std::string tone, message;
  } cases[] = {
      {"55.0 -37.0 abc", "invalid stod argument\n"},
      {"'' 1 2", "invalid stod argument\n"},
      {"1 1e999 2", "stod argument out of range\n"},
      {"1 2 1e-400", "stod argument out of range\n"},
  };
  for (const auto& c : cases) {
    test::Loaded chart(test::file_of("GRAY", "1\n2\n", "SERIAL 1\n"));
    EXPECT_EQ(chart.load(test::file_of("RGB_R RGB_G RGB_B nm500", "9 9 9 1\n0 0 0 1\n7 7 7 1\n",
                                       ink("01", "InkName = A LabFullToneColor = " + c.tone))),
              0);
    EXPECT_EQ(chart.messages(), "Note: no weighting table for this spectral range.\n" + c.message);
    EXPECT_EQ(num_patches(chart) + num_indices(chart), 6);
    EXPECT_EQ(get_paperwhite_index(chart), 1);
    EXPECT_EQ(num_distinct_dev_values(chart, 2), 3);
    EXPECT_EQ(dev_is_rgb(chart), 1);
    EXPECT_STREQ(get_device_channel_name(chart, 0), "test");
    EXPECT_EQ(num_keywords(chart), 1);
  }
}

}  // namespace
