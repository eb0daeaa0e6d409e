#include "api/measdata.h"
#include "api/parse.h"
#include "measdata/meas_file_parser.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace {

const std::string kLabFile = test::file_of("SAMPLE_ID LAB_L LAB_A LAB_B", "1 50 1 2\n2 60 3 4\n");

// Writes a file for the tests; the next run of them writes it again.
std::string file_with(const std::string& name, std::string_view bytes) {
  std::string path = testing::TempDir() + name;
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

TEST(Lifecycle, HandlesVersionAndParseMode) {
  void* handle = init_parser();
  ASSERT_NE(handle, nullptr);
  EXPECT_STREQ(parse_messages(handle), "");
  EXPECT_EQ(parse_messages(nullptr), nullptr);
  EXPECT_EQ(get_parse_mode(handle), 0);
  for (const int mode : {1, 2, -1}) set_parse_mode(handle, mode);
  EXPECT_EQ(get_parse_mode(handle), 1);
  set_parse_mode(handle, 0);
  EXPECT_EQ(get_parse_mode(handle), 0);
  set_parse_mode(nullptr, 1);
  EXPECT_EQ(get_parse_mode(nullptr), 0);
  cleanup_parser(&handle);
  EXPECT_EQ(handle, nullptr);
  cleanup_parser(&handle);
  cleanup_parser(nullptr);
  EXPECT_STREQ(parser_version(), "1.9.7");
  EXPECT_EQ(parser_version_major(), 1);
  EXPECT_EQ(parser_version_minor(), 9);
  EXPECT_EQ(parser_version_bugfix(), 7);
}

TEST(Lifecycle, WarningsAreNotToldAndNotesOnlyOnFailure) {
  const std::string start = "CGATS.17\nSERIAL 1\nSERIAL 2\nOWN 1\n";
  const test::Loaded fine(start + kLabFile.substr(9));
  EXPECT_EQ(fine.result, 1);
  EXPECT_EQ(fine.messages(), "");
  EXPECT_EQ(test::Loaded(start).messages(),
            "Overwriting keyword 'SERIAL'\nEOF, but no DATA found!\n");
}

TEST(Lifecycle, MemoryNeedsNoEndAndNoAddress) {
  test::Handle handle;
  EXPECT_EQ(parse_mem(nullptr, 1, "x", nullptr), 0);
  for (const auto& [length, block] : {std::pair{0, "x"}, {5, nullptr}}) {
    EXPECT_EQ(parse_mem(handle, static_cast<size_t>(length), block, nullptr), 0);
    EXPECT_EQ(handle.messages(), "File is empty\n");
  }
  // Zero bytes are characters like others.
  std::string text = kLabFile;
  text.insert(text.find("1 50"), std::string_view("\0\0 ", 3));
  EXPECT_EQ(handle.load(text, nullptr), 0);
  EXPECT_EQ(handle.messages(), "In DATA block : line 5 has 5 fields, but 4 are required!\n");
}

TEST(Lifecycle, FilesAreReadOrFailWithTheirName) {
  test::Handle handle;
  const std::string path = file_with("lab.txt", kLabFile);
  ASSERT_EQ(parse_file(handle, path.c_str()), 1);
  EXPECT_EQ(num_patches(handle), 2);
  // A path that the library itself holds may be freed by the load.
  const std::string named = file_with("named.txt", test::file_of("SAMPLE_ID", path + "\n"));
  ASSERT_EQ(parse_file(handle, named.c_str()), 1);
  EXPECT_EQ(parse_file(handle, get_id_from_patch(handle, 0)), 1);
  EXPECT_EQ(num_patches(handle), 2);

  EXPECT_EQ(parse_file(nullptr, path.c_str()), 0);
  EXPECT_EQ(parse_file(handle, nullptr), 0);
  EXPECT_EQ(handle.messages(), "Failed to open file ''\n");
  const struct {
    std::string start, path;
  } cases[] = {
      {"Failed to open file '", "no/such/file"},
      {"Failed to open file '", "\xFF\xFE"},  // not UTF-8
#ifdef __unix__
      {"Failed to open file '", "/dev/zero"},
#endif
      {"Failed to read file '", testing::TempDir()},
      {"Empty file '", file_with("empty.txt", "")},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(parse_file(handle, c.path.c_str()), 0);
    EXPECT_EQ(handle.messages(), c.start + c.path + "'\n");
  }
  for (const char* name : {"lab.txt", "named.txt", "empty.txt"}) {
    std::filesystem::remove(testing::TempDir() + name);
  }
}

TEST(Lifecycle, ParseTakesAFilledHandleAndItsReader) {
  vantor::MeasData::MeasFileParser reader(1);
  const test::Handle handle;
  EXPECT_EQ(parse(nullptr, &reader, "x"), 0);
  EXPECT_EQ(parse(handle, nullptr, "x"), 0);
  EXPECT_EQ(parse(handle, &reader, nullptr), 1);
  EXPECT_EQ(num_patches(handle), 0);
}

}  // namespace
