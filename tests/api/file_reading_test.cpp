// What can go wrong between a path and its bytes.
#include "api/measdata.h"
#include "tests/robustness/temporary_path.h"
#include "tests/support/loaded.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#ifdef __linux__
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

// A file that lives as long as this.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& utf8_name)
      : path_(test::temporary_path(utf8_name)),
        native_(reinterpret_cast<const char8_t*>(path_.c_str())) {
    std::ofstream(native_, std::ios::binary) << test::file_of("GRAY LAB_L", "50 60\n");
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { std::filesystem::remove(native_); }

  const char* path() const { return path_.c_str(); }
  const std::filesystem::path& native() const { return native_; }

 private:
  const std::string path_;
  const std::filesystem::path native_;
};

TEST(FileReading, NamesInAnyScript) {
  const TemporaryFile file(
      "Pr\xC3\xBC"
      "fbogen \xE6\xB8\xAC\xE5\xAE\x9A.txt");
  test::Handle handle;
  EXPECT_EQ(parse_file(handle, file.path()), 1) << handle.messages();
  EXPECT_EQ(num_patches(handle), 1);
}

#ifdef __linux__

// Nobody writes to this one: opening it would wait for ever.
TEST(FileReading, APipeIsNotOpened) {
  const std::string path = test::temporary_path("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  test::Handle handle;
  EXPECT_EQ(parse_file(handle, path.c_str()), 0);
  EXPECT_EQ(handle.messages(), "Failed to open file '" + path + "'\n");
  unlink(path.c_str());
}

// Whoever may write to the folder may put a pipe in the place of a file at any moment.
TEST(FileReading, APathThatIsAPipeByTurns) {
  const TemporaryFile file("regular.txt");
  const std::string path = test::temporary_path("changing"), pipe = test::temporary_path("fifo");
  const std::string next = test::temporary_path("next");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::atomic<bool> is_done = false;
  std::thread changing([&] {
    for (int i = 0; !is_done; ++i) {
      EXPECT_EQ(link(i % 2 == 0 ? file.path() : pipe.c_str(), next.c_str()), 0);
      EXPECT_EQ(rename(next.c_str(), path.c_str()), 0);
      // Renaming one name of a file to another of the same file leaves both.
      unlink(next.c_str());
    }
  });
  const std::string not_opened = "Failed to open file '" + path + "'\n";
  test::Handle handle;
  for (int i = 0; i < 20000; ++i) {
    const int result = parse_file(handle, path.c_str());
    ASSERT_EQ(handle.messages(), result == 1 ? "" : not_opened);
  }
  is_done = true;
  changing.join();
  unlink(path.c_str());
  unlink(pipe.c_str());
}

TEST(FileReading, AFileThatMayNotBeRead) {
  const TemporaryFile file("secret.txt");
  std::filesystem::permissions(file.native(), std::filesystem::perms::none);
  constexpr uid_t kNobody = 65534;
  const bool is_root = geteuid() == 0;  // who may read everything
  ASSERT_TRUE(!is_root || seteuid(kNobody) == 0);
  test::Handle handle;
  EXPECT_EQ(parse_file(handle, file.path()), 0);
  ASSERT_TRUE(!is_root || seteuid(0) == 0);
  EXPECT_EQ(handle.messages(), std::string("Failed to open file '") + file.path() + "'\n");
}

// The system tells 4096 bytes for each of its settings, and then gives fewer.
TEST(FileReading, AFileThatIsShorterThanItWas) {
  const char* path = "/sys/kernel/mm/transparent_hugepage/enabled";
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  std::ifstream stream(path);
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  if (error || text.empty() || text.size() >= size) GTEST_SKIP() << "no such setting here";
  test::Handle handle;
  set_parse_mode(handle, 1);  // fields and nothing else: any text does
  EXPECT_EQ(parse_file(handle, path), 1);
  EXPECT_EQ(num_patches(handle), 0);
}

// The zeros behind the data are a hole in the file.
TEST(FileReading, MoreThanTwoGigabytes) {
  if (std::getenv("MEASDATA_LARGE_FILES") == nullptr) {
    GTEST_SKIP() << "takes 2.2 GB of memory: set MEASDATA_LARGE_FILES to run it";
  }
  const TemporaryFile file("large.txt");
  std::filesystem::resize_file(file.native(), 2200000000U);
  test::Handle handle;
  EXPECT_EQ(parse_file(handle, file.path()), 1) << handle.messages();
  EXPECT_EQ(num_patches(handle), 1);
}

#endif

}  // namespace
