#include "measdata/tokenizer.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace {

using namespace vantor::MeasData;
using Tokens = std::vector<std::string_view>;

Tokens tokens_of(std::string_view line, const TokenRules& rules) {
  Tokens tokens;
  split(line, rules, tokens);
  return tokens;
}

struct Case {
  std::string_view line;
  Tokens tokens;
};

void expect(const std::vector<Case>& cases, const TokenRules& rules) {
  for (const Case& c : cases) EXPECT_EQ(tokens_of(c.line, rules), c.tokens) << c.line;
}

TEST(Tokenizer, BlanksAndTabsSeparateAndQuotesHold) {
  expect(
      {
          {"", {}},
          {" \t ", {}},
          {" a\t\tb c ", {"a", "b", "c"}},
          {R"("a b" c)", {"a b", "c"}},
          {R"("" x)", {"", "x"}},             // a quoted token may be empty
          {R"("a"b)", {"a", "b"}},            // text behind the closing quote is a new token
          {R"("a""b" c)", {R"(a""b)", "c"}},  // a doubled quote stays as it stands
          {R"("a"""b)", {R"(a"")", "b"}},
          {R"("open end)", {"open end"}},
          {R"(")", {""}},
          {R"(a"b c")", {R"(a"b)", R"(c")"}},  // a quote inside a token is a character
          {R"("a"	b)", {"a", "b"}},
      },
      kBlankSeparated);
}

TEST(Tokenizer, SemicolonsKeepEmptyCells) {
  expect(
      {
          {"1;;2", {"1", "", "2"}},
          {";a", {"", "a"}},
          {"a;", {"a"}},  // nothing stands behind the last separator
          {"a b;c", {"a b", "c"}},
          {R"("a;b";c)", {"a;b", "c"}},
          {R"("a";;c)", {"a", "", "c"}},
      },
      kSemicolonTable);
}

TEST(Tokenizer, ItemsEndAtTheComment) {
  const Case cases[] = {
      {"1 2 # remark", {"1", "2"}}, {"1 #2 3", {"1"}}, {"1#2 3", {"1#2", "3"}}, {"# all", {}},
      {R"(1 "#quoted" 3)", {"1"}},
  };
  for (const Case& c : cases) {
    Tokens items;
    split_items(c.line, kBlankSeparated, '#', items);
    EXPECT_EQ(items, c.tokens) << c.line;
  }
}

}  // namespace
