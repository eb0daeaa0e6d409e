// Files loaded one after the other on one handle: what must survive and what must not.
#include "api/measdata.h"
#include "tests/api/charts.h"
#include "tests/support/answers.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <string>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

const std::string kCmyk = test::file_of("SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B",
                                        "1 0 0 0 0 95 0 0\n2 100 0 0 0 55 0 0\n3 0 0 0 0 96 0 0\n");

TEST(Succession, AFileAnswersTheSameWhateverWasLoadedBefore) {
  const std::string files[] = {
      kCmyk,
      test::file_of(
          "RGB_R RGB_G RGB_B " + test::fields_of({380, 10, 36}),
          "0 0 0" + test::repeated("0.5", 36) + "\n9 9 9" + test::repeated("1", 36) + "\n"),
      test::flat_spectrum({400, 150, 3}, "1", "SAMPLE_NAME", "n"),
      test::file_of("XYZ_X XYZ_Y XYZ_Z", "1 2 3\n"),
      test::file_of("GRAY D_VIS LAB_L LAB_A LAB_B", "0 1 2 3 4\n"),
      test::file_of("LAB_L LAB_C LAB_H SAMPLE_ID CMY_C CMY_M CMY_Y", "1 2 3 id 9 8 7\n"),
      // These fail.
      test::file_of("nm400 nm410 nm500", "1 1 1\n"),
      test::file_of("GRAY", "", "LGOMCCHANNEL01 \"InkName = A LabFullToneColor = x x x\"\n"),
      "nothing that is known",
  };
  for (const std::string& second : files) {
    const test::Loaded fresh(second);
    for (const std::string& first : files) {
      test::Loaded used(first);
      ASSERT_EQ(used.load(second), fresh.result);
      if (fresh.result == 1) {
        EXPECT_EQ(test::answers(used), test::answers(fresh)) << first << second;
      }
    }
  }
}

TEST(Succession, WhatAFailedLoadLeaves) {
  test::Loaded handle(kCmyk.substr(0, 9) + "SERIAL 1\n" + kCmyk.substr(9));
  ASSERT_EQ(get_paperwhite_index(handle), 0);
  EXPECT_EQ(handle.load("CGATS.17\n"), 0);
  EXPECT_EQ(handle.messages(), "EOF, but no DATA found!\n");
  EXPECT_EQ(num_patches(handle) + num_indices(handle) + num_device_channels(handle), 0);
  EXPECT_EQ(has_lab_data(handle), 0);
  EXPECT_EQ(get_paperwhite_index(handle), -1);
  EXPECT_EQ(num_wedge_steps(handle, 0), 0);
  EXPECT_EQ(get_device_channel_name(handle, 0), nullptr);  // there is no channel 0 any more
  EXPECT_EQ(dev_is_cmyk(handle), 1);
  EXPECT_STREQ(sample_serial_number(handle), "1");
}

// Whatever the handle gives out can be loaded again, though the load forgets it. Memory is
// overwritten when it is released, so that a later read of it finds something else.
TEST(Succession, MemoryOfTheHandleAsInput) {
#ifdef __GLIBC__
  mallopt(M_PERTURB, 0x55);
#endif
  const std::string table = "% Cyan;Magenta;Yellow;Black;" + std::string(1 << 18, 'x');
  const std::string quoted = " \"" + table + "\"";
  const test::Bands bands = {1, 1, 20000};
  const std::string row =
      "1 1 1 1 1" + quoted + quoted + quoted + test::repeated("1", 20000) + "\n";
  const std::string file =
      test::file_of("5CLR_1 5CLR_2 5CLR_3 5CLR_4 5CLR_5 SAMPLE_ID SAMPLE_LOC SAMPLE_NAME " +
                        test::fields_of(bands),
                    row + row, "INK_NAME_5" + quoted + "\n");
  using Given = const char* (*)(void*);
  test::Handle handle;
  const Given texts[] = {
      [](void* h) { return get_id_from_patch(h, 0); },
      [](void* h) { return get_loc_from_patch(h, 0); },
      [](void* h) { return get_name_from_patch(h, 0); },
      [](void* h) { return get_id_from_patch(pass_unique_data(h), 0); },
      [](void* h) { return get_loc_from_patch(pass_unique_data(h), 0); },
      [](void* h) { return get_name_from_index(h, 0); },
      [](void* h) { return get_device_channel_name(h, 4); },
      [](void* h) { return get_value_of_keyword(h, "INK_NAME_5"); },
  };
  for (const Given given : texts) {
    set_parse_mode(handle, 0);
    ASSERT_EQ(handle.load(file), 1);
    set_parse_mode(handle, 1);
    EXPECT_EQ(parse_mem(handle, table.size(), given(handle), given(handle)), 1);
    EXPECT_EQ(num_device_channels(handle), 4);
  }
  set_parse_mode(handle, 0);
  ASSERT_EQ(handle.load(file), 1);
  const double* spectrum = get_spectrum_from_patch(handle, 0);
  EXPECT_EQ(parse_mem(handle, 8, reinterpret_cast<const char*>(spectrum), ""), 0);
  EXPECT_EQ(handle.load("In\nIn 1\nIn 2\nIn 3\n" + std::string(200, '#')), 0);
  const std::string messages = handle.messages();
  EXPECT_EQ(parse_mem(handle, messages.size(), parse_messages(handle), ""), 0);
  EXPECT_EQ(handle.messages(), test::Loaded(messages).messages());
#ifdef __GLIBC__
  mallopt(M_PERTURB, 0);
#endif
}

}  // namespace
