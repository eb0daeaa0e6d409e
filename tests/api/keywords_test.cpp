#include "api/measdata.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

// All entries in the order of the store.
std::string all(void* handle) {
  std::string list;
  for (int i = 0; i < num_keywords(handle); ++i) {
    list += std::string(get_keyword(handle, i)) + "=" + get_value(handle, i) + ";";
  }
  return list;
}

TEST(Keywords, AreFoundByNameAndByPosition) {
  const test::Loaded file(test::file_of(
      "SAMPLE_ID", "1\n",
      "SERIAL 5\nFILTER \"a b\"\nWEIGHTING_FUNCTION \"OBSERVER, 2\"\nABC x\nAB y\n"
      "WEIGHTING_FUNCTION \"ILLUMINANT, D50\"\nCOMPUTATIONAL_PARAMETER p\nSERIAL 6\n"));
  EXPECT_EQ(all(file),
            "AB=y;ABC=x;COMPUTATIONAL_PARAMETERS=p;FILTER=a b;SERIAL=6;"
            "WEIGHTING_FUNCTION=OBSERVER, 2;WEIGHTING_FUNCTION=ILLUMINANT, D50;");
  EXPECT_EQ(has_keyword(file, "SERIAL"), 1);
  EXPECT_EQ(has_keyword(file, "serial"), 0);
  EXPECT_EQ(has_keyword(file, "COMPUTATIONAL_PARAMETER"), 0);
  EXPECT_STREQ(get_value_of_keyword(file, "FILTER"), "a b");
  EXPECT_EQ(get_value_of_keyword(file, "A"), nullptr);
  EXPECT_EQ(num_keyword_values(file, "WEIGHTING_FUNCTION"), 2);
  EXPECT_STREQ(get_ith_value_of_keyword(file, 1, "WEIGHTING_FUNCTION"), "ILLUMINANT, D50");
  for (const int bad : {-1, 2, INT_MAX, INT_MIN}) {
    EXPECT_EQ(get_ith_value_of_keyword(file, bad, "WEIGHTING_FUNCTION"), nullptr);
  }
  for (const int low : {-5, INT_MIN}) EXPECT_STREQ(get_keyword(file, low), "AB");
  EXPECT_EQ(get_keyword(file, 7), nullptr);
  EXPECT_EQ(get_value(file, INT_MAX), nullptr);
  EXPECT_EQ(copyright(file), nullptr);
}

TEST(Keywords, StayWhenTheHandleIsLoadedAgain) {
  test::Loaded file(test::file_of("GRAY", "0\n", "COPYRIGHT first\nORIGINATOR me\n"));
  const char* held = copyright(file);
  EXPECT_EQ(file.load("CGATS.17\nCOPYRIGHT lost\n"), 0);  // a failed load adds nothing
  EXPECT_EQ(file.load(test::file_of("GRAY", "0\n", "COPYRIGHT second\nAAA 1\n")), 1);
  EXPECT_EQ(all(file), "AAA=1;COPYRIGHT=first;COPYRIGHT=second;ORIGINATOR=me;");
  EXPECT_EQ(copyright(file), held);
}

TEST(Keywords, NothingIsFoundWithoutAHandleOrAName) {
  const test::Handle empty;
  EXPECT_EQ(num_keywords(nullptr), -1);
  EXPECT_EQ(num_keywords(empty), 0);
  EXPECT_EQ(get_keyword(empty, 0), nullptr);
  EXPECT_EQ(get_keyword(nullptr, 0), nullptr);
  EXPECT_EQ(get_value(nullptr, 0), nullptr);
  EXPECT_EQ(has_keyword(nullptr, "A"), 0);
  EXPECT_EQ(has_keyword(empty, nullptr), 0);
  EXPECT_EQ(num_keyword_values(nullptr, "A"), 0);
  EXPECT_EQ(get_value_of_keyword(nullptr, "A"), nullptr);
  EXPECT_EQ(get_ith_value_of_keyword(empty, 0, nullptr), nullptr);
  EXPECT_EQ(copyright(nullptr), nullptr);
}

}  // namespace
