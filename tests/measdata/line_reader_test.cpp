#include "measdata/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

Lines lines_of(std::string_view text) {
  vantor::MeasData::LineReader reader(text);
  Lines lines;
  for (std::string_view line; reader.next(line);) lines.emplace_back(line);
  return lines;
}

TEST(LineReader, OneBreakOfAnyFormEndsOneLine) {
  const struct {
    std::string text;
    Lines lines;
  } cases[] = {
      {"a\nb", {"a", "b"}},
      {"a\r\nb\n\rc\rd\ne", {"a", "b", "c", "d", "e"}},
      {"a\n\nb", {"a", "", "b"}},
      {"a\r\rb", {"a", "", "b"}},
      {"a\r\n\r\nb", {"a", "", "b"}},
      {"a\n\r\n\rb", {"a", "", "b"}},
      {"a\n\n\rb", {"a", "", "b"}},
      {"a\n", {"a"}},        // no empty line behind the last break
      {"a\n\n", {"a", ""}},  // but one between two breaks
      {"\na", {"a"}},        // one leading break is lost
      {"\r\na", {"a"}},      //
      {"\n\na", {"", "a"}},  // and only one
      {"\n", {}},
      {"", {}},
      {std::string("a\0b\nc", 5), {std::string("a\0b", 3), "c"}},
      {"0123456789abcdef\n0123456\r01234567\n", {"0123456789abcdef", "0123456", "01234567"}},
      {"\x8D\x8A\x0D\xFF", {"\x8D\x8A", "\xFF"}},  // break bytes with the high bit set are text
  };
  for (const auto& c : cases)
    EXPECT_EQ(lines_of(c.text), c.lines) << testing::PrintToString(c.text);
}

}  // namespace
