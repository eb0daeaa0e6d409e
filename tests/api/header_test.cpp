#include <gtest/gtest.h>

extern "C" int load_from_c();

namespace {

TEST(Header, IsPlainC) { EXPECT_NE(load_from_c(), 0); }

}  // namespace
