// Texts cut into lines, and lines into tokens.
#include "measdata/tokenizer.h"

#include "measdata/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace vantor::MeasData;

struct Case {
  std::string text, pieces;
};

std::string joined(const std::vector<std::string_view>& pieces) {
  std::string text;
  for (const std::string_view piece : pieces) text.append("[").append(piece).append("]");
  return text;
}

TEST(LineReader, OneBreakOfAnyFormEndsOneLine) {
  const Case cases[] = {
      {"a\r\nb\n\rc\rd\ne", "[a][b][c][d][e]"},
      {"a\n\nb", "[a][][b]"},
      {"a\r\rb", "[a][][b]"},
      {"a\r\n\r\nb", "[a][][b]"},
      {"a\n\r\n\rb", "[a][][b]"},
      {"a\n\n\rb", "[a][][b]"},
      {"a\n", "[a]"},      // no empty line behind the last break
      {"a\n\n", "[a][]"},  // but one between two breaks
      {"\r\na", "[a]"},    // one leading break is lost
      {"\n\na", "[][a]"},  // and only one
      {"\n", ""},
      {"", ""},
      {{"a\0b\nc", 5}, {"[a\0b][c]", 8}},
      {"0123456789abcdef\n0123456\r01234567\n", "[0123456789abcdef][0123456][01234567]"},
      {"\x8D\x8A\x0D\xFF", "[\x8D\x8A][\xFF]"},  // break bytes with the high bit set are text
  };
  for (const Case& c : cases) {
    LineReader reader(c.text);
    std::vector<std::string_view> lines;
    for (std::string_view line; reader.next(line);) lines.push_back(line);
    EXPECT_EQ(joined(lines), c.pieces);
  }
}

TEST(Tokenizer, SeparatorsQuotesAndComments) {
  const Case blanks[] = {
      {"", ""},
      {" \t ", ""},
      {" a\t\tb c ", "[a][b][c]"},
      {R"("a b" c)", "[a b][c]"},
      {R"("" x)", "[][x]"},             // a quoted token may be empty
      {R"("a"b)", "[a][b]"},            // text behind the closing quote is a new token
      {R"("a""b" c)", R"([a""b][c])"},  // a doubled quote stays as it stands
      {R"("a"""b)", R"([a""][b])"},
      {R"("open end)", "[open end]"},
      {R"(")", "[]"},
      {R"(a"b c")", R"([a"b][c"])"},  // a quote inside a token is a character
      {"\"a\"\tb", "[a][b]"},
      {"1 2 # remark", "[1][2]"},
      {"1 #2 3", "[1]"},
      {"1#2 3", "[1#2][3]"},
      {"# all", ""},
      {R"(1 "#quoted" 3)", "[1]"},
  };
  std::vector<std::string_view> tokens;
  for (const Case& c : blanks) {
    split_items(c.text, kBlankSeparated, '#', tokens);
    EXPECT_EQ(joined(tokens), c.pieces) << c.text;
  }
  const Case semicolons[] = {
      {"1;;2", "[1][][2]"},
      {";a", "[][a]"},
      {"a;", "[a]"},  // nothing stands behind the last separator
      {"a b;c", "[a b][c]"},
      {R"("a;b";c)", "[a;b][c]"},
      {R"("a";;c)", "[a][][c]"},
  };
  for (const Case& c : semicolons) {
    split(c.text, kSemicolonTable, tokens);
    EXPECT_EQ(joined(tokens), c.pieces) << c.text;
  }
}

}  // namespace
