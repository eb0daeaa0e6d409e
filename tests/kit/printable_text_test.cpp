#include "kit/write/printable_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

TEST(PrintableText, PassesUtf8AndEscapesTheRest) {
  const struct {
    std::string_view text;
    std::string printed;
  } cases[] = {
      {"plain \xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xA8", "plain \xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xA8"},
      {"\x1B[2J\t\n", "\\x1B[2J\\x09\\x0A"},
      {"2\xB0", "2\\xB0"},  // Latin-1
      {"\xC2\x9B"
       "31m",
       "\\xC2\\x9B31m"},                                      // a C1 control character
      {"\xE2\x80\xAE", "\\xE2\\x80\\xAE"},                    // turns the direction of writing
      {"\xC0\x80\xED\xA0\x80", "\\xC0\\x80\\xED\\xA0\\x80"},  // overlong, surrogate
      {"\xF4\x90\x80\x80\xE2\x82", "\\xF4\\x90\\x80\\x80\\xE2\\x82"},
      {std::string_view("\0", 1), "\\x00"},
  };
  for (const auto& c : cases) EXPECT_EQ(measkit::printable(c.text), c.printed);
  EXPECT_EQ(measkit::display_width("\xC3\xA9\xE2\x82\xAC"), 2U);
}

}  // namespace
