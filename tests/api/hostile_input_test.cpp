// Input that nobody should write: it must give an answer, never a crash.
#include "api/measdata.h"
#include "tests/support/answers.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

const std::string kFields =
    "SAMPLE_ID SAMPLE_NAME CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B nm400 nm420 nm440";

TEST(HostileInput, EveryTruncationAndEveryFlippedByte) {
  const std::string text = test::file_of(
      kFields, "1 \"a b\" 0 0 0 0 90 0 0 0.5 0.6 0.7\n2 c 100 0 0 0 55 -37 -50 0,5 0,6 0,7\n",
      "SERIAL \"1\" # c\nINSTRUMENTATION \"M N, D50, 2 degree, white backing\"\n"
      "WEIGHTING_FUNCTION \"OBSERVER, 2\"\nNUMBER_OF_FIELDS 12\n");
  test::Handle handle;
  for (int mode = 0; mode <= 1; ++mode) {
    set_parse_mode(handle, mode);
    for (std::size_t at = 0; at < text.size(); ++at) {
      handle.load(std::string(text.data(), at));  // a copy, so that a read past the end is seen
      test::answers(handle);
      for (const char odd : {'\0', '\xFF', '"', '\r', '#'}) {
        std::string broken = text;
        broken[at] = odd;
        handle.load(broken);
        test::answers(handle);
      }
    }
  }
}

TEST(HostileInput, LinesAndListsOfAMegabyte) {
  std::string many_words;
  for (int i = 0; i < 200000; ++i) many_words += "w" + std::to_string(i % 50000) + " ";
  std::string proposals;  // names that each propose a spectral prefix of their own
  for (int i = 0; i < 100000; ++i) proposals += "A" + std::to_string(i % 7) + "B100 A001 ";
  test::Handle handle;
  for (const std::string& line :
       {std::string(1 << 20, 'x'), std::string(1 << 20, '"'), many_words, proposals}) {
    for (const std::string& text : {line, "CGATS.17\n" + line, "CGATS.17\nSERIAL " + line,
                                    test::file_of(line, ""), test::file_of(kFields, line + "\n"),
                                    test::file_of("SAMPLE_ID", line + "\n" + line + "\n")}) {
      handle.load(text);
      test::answers(handle);
    }
  }
}

TEST(HostileInput, ManyLinesOfAKind) {
  std::string header, rows;
  for (int i = 0; i < 100000; ++i) {
    header += "K" + std::to_string(i) + " 1\nDATA_FORMAT_IDENTIFIER F" + std::to_string(i) + "\n";
    rows += i % 2 == 0 ? "1 2\n" : "1 2 3\n";
  }
  test::Handle handle;
  EXPECT_EQ(handle.load(test::file_of("SAMPLE_ID", "1\n", header)), 1);
  EXPECT_EQ(handle.load(test::file_of("SAMPLE_ID", rows)), 0);
  set_parse_mode(handle, 1);
  EXPECT_EQ(handle.load(std::string(1 << 20, '\r')), 1);
  EXPECT_EQ(num_patches(handle), 0);
}

}  // namespace
