#include "api/measdata.h"
#include "api/parse.h"
#include "measdata/meas_file_parser.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace {

const std::string kLabFile = test::file_of("SAMPLE_ID LAB_L LAB_A LAB_B", "1 50 1 2\n2 60 3 4\n");

// A file of the given bytes that is gone with its test.
class TemporaryFile {
 public:
  TemporaryFile(const std::string& name, std::string_view bytes)
      : path_(testing::TempDir() + name) {
    std::ofstream(path_, std::ios::binary) << bytes;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { std::filesystem::remove(path_); }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

TEST(Lifecycle, HandlesComeAndGo) {
  void* handle = init_parser();
  ASSERT_NE(handle, nullptr);
  EXPECT_STREQ(parse_messages(handle), "");
  cleanup_parser(&handle);
  EXPECT_EQ(handle, nullptr);
  cleanup_parser(&handle);
  cleanup_parser(nullptr);
}

TEST(Lifecycle, VersionAndParseMode) {
  EXPECT_STREQ(parser_version(), "1.9.7");
  EXPECT_EQ(parser_version_major(), 1);
  EXPECT_EQ(parser_version_minor(), 9);
  EXPECT_EQ(parser_version_bugfix(), 7);
  const test::Handle handle;
  EXPECT_EQ(get_parse_mode(handle), 0);
  set_parse_mode(handle, 1);
  set_parse_mode(handle, 2);
  set_parse_mode(handle, -1);
  EXPECT_EQ(get_parse_mode(handle), 1);
  set_parse_mode(nullptr, 1);
  EXPECT_EQ(get_parse_mode(nullptr), 0);
}

TEST(Lifecycle, WarningsAreNotToldAndNotesOnlyOnFailure) {
  const test::Loaded fine("CGATS.17\nSERIAL 1\nSERIAL 2\nOWN 1\n" + kLabFile.substr(9));
  EXPECT_EQ(fine.result, 1);
  EXPECT_EQ(fine.messages(), "");
  const test::Loaded failed("CGATS.17\nSERIAL 1\nSERIAL 2\nOWN 1\n");
  EXPECT_EQ(failed.result, 0);
  EXPECT_EQ(failed.messages(), "Overwriting keyword 'SERIAL'\nEOF, but no DATA found!\n");
}

TEST(Lifecycle, AFailedLoadLeavesNoPatchesButItsMessages) {
  test::Loaded handle(
      test::file_of("CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B", "0 0 0 0 95 0 0\n"));
  ASSERT_EQ(handle.result, 1);
  EXPECT_EQ(dev_is_cmyk(handle), 1);
  EXPECT_EQ(handle.load("CGATS.17\n"), 0);
  EXPECT_EQ(handle.messages(), "EOF, but no DATA found!\n");
  EXPECT_EQ(num_patches(handle), 0);
  EXPECT_EQ(num_device_channels(handle), 0);
  EXPECT_EQ(has_lab_data(handle), 0);
  EXPECT_EQ(dev_is_cmyk(handle), 1);  // as the load before left it
  EXPECT_EQ(handle.load(kLabFile), 1);
  EXPECT_EQ(handle.messages(), "");
  EXPECT_EQ(num_patches(handle), 2);
  EXPECT_EQ(dev_is_cmyk(handle), 0);
}

TEST(Lifecycle, MemoryNeedsNoEndAndNoAddress) {
  test::Handle handle;
  EXPECT_EQ(parse_mem(handle, 0, "x", "name"), 0);
  EXPECT_EQ(handle.messages(), "File is empty\n");
  EXPECT_EQ(parse_mem(handle, 5, nullptr, nullptr), 0);
  EXPECT_EQ(handle.messages(), "File is empty\n");
  EXPECT_EQ(parse_mem(nullptr, 1, "x", nullptr), 0);
  // Zero bytes are characters like others.
  std::string text = kLabFile;
  text.insert(text.find("1 50"), std::string_view("\0\0 ", 3));
  EXPECT_EQ(handle.load(text, nullptr), 0);
  EXPECT_EQ(handle.messages(), "In DATA block : line 5 has 5 fields, but 4 are required!\n");
}

TEST(Lifecycle, ABlockMayBeATextOfTheHandleItself) {
  test::Handle handle;
  const std::string inner =
      "GRAY;LAB_L;LAB_A;LAB_B;and a name that is long enough for the heap|1;2;3;4;5";
  for (const std::string& text : {inner, inner.substr(0, 8)}) {
    set_parse_mode(handle, 0);
    ASSERT_EQ(handle.load(test::file_of("SAMPLE_ID", "\"" + text + "\"\n")), 1);
    set_parse_mode(handle, 1);
    const char* id = get_id_from_patch(handle, 0);
    EXPECT_EQ(parse_mem(handle, text.size(), id, id), 1);
    EXPECT_EQ(num_patches(handle), 0);
  }
  set_parse_mode(handle, 0);
  EXPECT_EQ(handle.load("In\nIn 1\nIn 2\nIn 3\n" + std::string(200, '#')), 0);
  const std::string notes = handle.messages();
  EXPECT_EQ(parse_mem(handle, notes.size(), parse_messages(handle), "x"), 0);
  test::Handle other;
  other.load(notes);
  EXPECT_EQ(handle.messages(), other.messages());
}

TEST(Lifecycle, FilesAreReadWhole) {
  test::Handle handle;
  const TemporaryFile file(
      "mess\xC3\xBC"
      "daten.txt",
      kLabFile);
  EXPECT_EQ(parse_file(handle, file.path().c_str()), 1);
  EXPECT_EQ(num_patches(handle), 2);
  // A path that the library itself holds may be freed by the load.
  const TemporaryFile named("named.txt", test::file_of("SAMPLE_ID", "\"" + file.path() + "\"\n"));
  ASSERT_EQ(parse_file(handle, named.path().c_str()), 1);
  EXPECT_EQ(parse_file(handle, get_id_from_patch(handle, 0)), 1);
  EXPECT_EQ(num_patches(handle), 2);
}

TEST(Lifecycle, FilesThatCannotBeReadSaySo) {
  test::Handle handle;
  EXPECT_EQ(parse_file(handle, "no/such/file"), 0);
  EXPECT_EQ(handle.messages(), "Failed to open file 'no/such/file'\n");
  EXPECT_EQ(parse_file(handle, nullptr), 0);
  EXPECT_EQ(handle.messages(), "Failed to open file ''\n");
  EXPECT_EQ(parse_file(handle, "\xFF\xFE"), 0);  // not UTF-8
  EXPECT_EQ(handle.messages(), "Failed to open file '\xFF\xFE'\n");
  EXPECT_EQ(parse_file(nullptr, "x"), 0);
  const std::string directory = testing::TempDir();
  EXPECT_EQ(parse_file(handle, directory.c_str()), 0);
  EXPECT_EQ(handle.messages(), "Failed to read file '" + directory + "'\n");
  const TemporaryFile empty("empty.txt", "");
  EXPECT_EQ(parse_file(handle, empty.path().c_str()), 0);
  EXPECT_EQ(handle.messages(), "Empty file '" + empty.path() + "'\n");
#ifdef __unix__
  EXPECT_EQ(parse_file(handle, "/dev/zero"), 0);
  EXPECT_EQ(handle.messages(), "Failed to open file '/dev/zero'\n");
#endif
}

TEST(Lifecycle, SemicolonTablesAreReadInModeOne) {
  const test::Loaded handle(
      "% Cyan;Magenta;Yellow;Black;LAB_L;LAB_A;LAB_B\n100;0;0;0;55,5;-37;-50\n", 1);
  EXPECT_EQ(handle.result, 1);
  EXPECT_EQ(num_patches(handle), 1);
  EXPECT_EQ(handle.device(0), (std::vector<double>{100, 0, 0, 0}));
  EXPECT_EQ(handle.lab(0), (test::Triple{55.5, -37, -50}));
  EXPECT_EQ(dev_is_cmyk(handle), 0);  // its fields have other names
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
