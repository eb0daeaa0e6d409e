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
  const char* twice = "WEIGHTING_FUNCTION";
  EXPECT_EQ(has_keyword(file, twice), 1);
  EXPECT_EQ(num_keyword_values(file, twice), 2);
  EXPECT_STREQ(get_value_of_keyword(file, twice), "OBSERVER, 2");
  EXPECT_STREQ(get_ith_value_of_keyword(file, 1, twice), "ILLUMINANT, D50");
  for (const int bad : {-1, 2, INT_MAX, INT_MIN}) {
    EXPECT_EQ(get_ith_value_of_keyword(file, bad, twice), nullptr);
  }
  for (const char* absent : {"serial", "COMPUTATIONAL_PARAMETER", "A", ""}) {
    EXPECT_EQ(has_keyword(file, absent), 0);
    EXPECT_EQ(get_value_of_keyword(file, absent), nullptr);
  }
  EXPECT_STREQ(get_keyword(file, INT_MIN), "AB");
  EXPECT_EQ(get_keyword(file, 7), nullptr);
  EXPECT_EQ(get_value(file, INT_MAX), nullptr);
}

TEST(Keywords, StayWhenTheHandleIsLoadedAgain) {
  test::Loaded file(test::file_of("GRAY", "0\n", "COPYRIGHT first\nORIGINATOR me\n"));
  const char* held = copyright(file);
  EXPECT_EQ(file.load("CGATS.17\nCOPYRIGHT lost\n"), 0);  // a failed load adds nothing
  EXPECT_EQ(file.load(test::file_of("GRAY", "0\n", "COPYRIGHT second\nAAA 1\n")), 1);
  EXPECT_EQ(all(file), "AAA=1;COPYRIGHT=first;COPYRIGHT=second;ORIGINATOR=me;");
  ASSERT_EQ(copyright(file), held);
  EXPECT_STREQ(held, "first");
}

TEST(Keywords, NothingIsFoundWithoutAHandleOrAName) {
  const test::Handle empty;
  EXPECT_EQ(num_keywords(nullptr), -1);
  EXPECT_EQ(num_keywords(empty), 0);
  for (void* handle : {static_cast<void*>(empty), static_cast<void*>(nullptr)}) {
    EXPECT_EQ(get_keyword(handle, 0), nullptr);
    EXPECT_EQ(get_value(handle, 0), nullptr);
    EXPECT_EQ(copyright(handle), nullptr);
    for (const char* name : {"A", static_cast<const char*>(nullptr)}) {
      EXPECT_EQ(has_keyword(handle, name) + num_keyword_values(handle, name), 0);
      EXPECT_EQ(get_ith_value_of_keyword(handle, 0, name), nullptr);
    }
  }
}

}  // namespace
