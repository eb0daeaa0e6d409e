// Input that nobody should write: it must give an answer, never a crash.
#include "api/measdata.h"
#include "tests/support/answers.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>

namespace {

const std::string kFields =
    "SAMPLE_ID SAMPLE_NAME CMYK_C CMYK_M CMYK_Y CMYK_K XYZ_X XYZ_Y XYZ_Z "
    "LAB_L LAB_A LAB_B MEAN_DE nm400 nm420 nm440";
const std::string kRows =
    "1 \"a b\" 0 0 0 0 80 85 70 90 0 0 0.1 0.5 0.6 0.7\n"
    "2 c 100 0 0 0 20 25 70 55 -37 -50 1.1 0,5 0,6 0,7\n";

TEST(HostileInput, EveryTruncationAndEveryFlippedByte) {
  const std::string text =
      test::file_of(kFields, kRows,
                    "SERIAL \"1\" # c\nINSTRUMENTATION \"M N, D50, 2 degree, white backing\"\n"
                    "WEIGHTING_FUNCTION \"OBSERVER, 2\"\nNUMBER_OF_FIELDS 16\n");
  test::Handle handle;
  for (int mode = 0; mode <= 1; ++mode) {
    set_parse_mode(handle, mode);
    for (std::size_t length = 0; length <= text.size(); ++length) {
      handle.load(std::string(text.data(), length));  // a copy, so that a read past the end is seen
      test::answers(handle);
    }
    for (std::size_t at = 0; at < text.size(); ++at) {
      for (const char odd : {'\0', '\xFF', '"', '\r', '#', ';', ' ', '9'}) {
        std::string broken = text;
        broken[at] = odd;
        handle.load(broken);
        test::answers(handle);
      }
    }
  }
}

TEST(HostileInput, RandomBytes) {
  std::mt19937 random(5);
  test::Handle handle;
  for (int i = 0; i < 2000; ++i) {
    std::string bytes(random() % 300, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() % 256);
    set_parse_mode(handle, i % 2);
    handle.load(bytes);
    test::answers(handle);
  }
}

TEST(HostileInput, LinesAndListsOfAMegabyte) {
  const std::string long_word(1 << 20, 'x');
  const std::string many_quotes(1 << 20, '"');
  std::string many_words;
  for (int i = 0; i < 200000; ++i) many_words += "w" + std::to_string(i % 50000) + " ";
  std::string proposals;  // names that each propose a spectral prefix of their own
  for (int i = 0; i < 100000; ++i) proposals += "A" + std::to_string(i % 7) + "B100 A001 ";
  test::Handle handle;
  for (const std::string& line : {long_word, many_quotes, many_words, proposals}) {
    for (const std::string& text : {line, "CGATS.17\n" + line, "CGATS.17\nSERIAL " + line,
                                    test::file_of(line, ""), test::file_of(kFields, line + "\n"),
                                    test::file_of("SAMPLE_ID", line + "\n" + line + "\n")}) {
      handle.load(text);
      test::answers(handle);
    }
  }
}

TEST(HostileInput, ManyLinesOfAKind) {
  std::string keywords, identifiers, carriage_returns(1 << 20, '\r'), rows;
  for (int i = 0; i < 100000; ++i) {
    keywords += "K" + std::to_string(i) + " 1\n";
    identifiers += "DATA_FORMAT_IDENTIFIER F" + std::to_string(i) + "\n";
    rows += i % 2 == 0 ? "1 2\n" : "1 2 3\n";
  }
  test::Handle handle;
  EXPECT_EQ(handle.load(test::file_of("SAMPLE_ID", "1\n", keywords + identifiers)), 1);
  EXPECT_EQ(num_patches(handle), 1);
  EXPECT_EQ(handle.load(test::file_of("SAMPLE_ID", rows)), 0);
  EXPECT_EQ(handle.load(carriage_returns), 0);
  set_parse_mode(handle, 1);
  EXPECT_EQ(handle.load(carriage_returns), 1);
  EXPECT_EQ(num_patches(handle), 0);
}

TEST(HostileInput, CountsThatLieReserveNothing) {
  const test::Loaded lying(test::file_of(
      "SAMPLE_ID", "1\n", "NUMBER_OF_SETS 2147483647\nNUMBER_OF_FIELDS 2147483647\n"));
  EXPECT_EQ(lying.result, 0);
  EXPECT_EQ(lying.messages(), "DATA_FORMAT has wrong NUMBER_OF_FIELDS!\n");
}

}  // namespace
