// Each allocation of the library fails once in turn, alone and with all that follow.
#include "tests/robustness/counted_memory.h"
#include "tests/robustness/sample_texts.h"
#include "tests/robustness/temporary_path.h"
#include "tests/support/answers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

using test::answers;
using test::MemoryShortage;
using test::SampleText;
using test::Shortage;

constexpr int kMostAllocations = 100000;  // a test that finds no end is a fault of the test

// A sample as a block and as a file.
class Source {
 public:
  explicit Source(const SampleText& sample)
      : sample_(sample), path_(test::temporary_path("sample.txt")) {
    std::ofstream(path_, std::ios::binary) << sample.text;
  }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  ~Source() { std::filesystem::remove(path_); }

  int load(void* handle, bool from_file) const {
    set_parse_mode(handle, sample_.mode);
    return from_file ? parse_file(handle, path_.c_str())
                     : parse_mem(handle, sample_.text.size(), sample_.text.data(), path_.c_str());
  }

 private:
  const SampleText& sample_;
  std::string path_;
};

// As if nothing had been loaded, but for the message.
void expect_nothing_loaded(void* handle, int mode) {
  const test::Handle fresh;
  set_parse_mode(fresh, mode);
  std::string expected = answers(fresh);
  const std::string no_message = "parse_messages: ";
  expected.insert(expected.find(no_message) + no_message.size(), "Out of memory\n");
  EXPECT_EQ(answers(handle), expected);
}

// False when nothing is left that could fail.
bool load_with_shortage(const Source& source, bool from_file, long n, Shortage kind, int result,
                        const std::string& expected) {
  void* handle = init_parser();
  bool has_struck = false;
  int loaded = 0;
  {
    const MemoryShortage shortage(n, kind);
    loaded = source.load(handle, from_file);
    has_struck = shortage.has_struck();
  }
  // A sort does with less memory when it gets none.
  if (has_struck && loaded == 0) {
    expect_nothing_loaded(handle, get_parse_mode(handle));
    loaded = source.load(handle, from_file);
  }
  EXPECT_EQ(loaded, result);
  EXPECT_EQ(answers(handle), expected);
  cleanup_parser(&handle);
  return has_struck;
}

class OutOfMemory : public testing::TestWithParam<SampleText> {};

TEST_P(OutOfMemory, ALoadFailsAndTheNextOneSucceeds) {
  const Source source(GetParam());
  for (const bool from_file : {false, true}) {
    test::Handle fresh;
    source.load(fresh, from_file);
    const std::string expected = answers(fresh);
    for (const Shortage kind : {Shortage::once, Shortage::lasting}) {
      const long live = test::live_blocks();
      long n = 1;
      while (n < kMostAllocations &&
             load_with_shortage(source, from_file, n, kind, GetParam().result, expected)) {
        ASSERT_EQ(test::live_blocks(), live) << "left over";
        ASSERT_FALSE(HasFailure()) << "allocation " << n << (from_file ? " of a file" : "");
        ++n;
      }
      EXPECT_EQ(test::live_blocks(), live) << "left over";
      EXPECT_GT(n, 10);  // the shortage did strike
      EXPECT_LT(n, kMostAllocations);
    }
  }
}

// Every answer is the right one or, where it takes memory, null.
TEST_P(OutOfMemory, AnswersAreRightOrNull) {
  test::Handle handle;
  Source(GetParam()).load(handle, false);
  const std::string expected = answers(handle);
  std::string told;
  told.reserve(test::kAnswersSize);
  for (const Shortage kind : {Shortage::once, Shortage::lasting}) {
    bool has_struck = true;
    for (long n = 1; has_struck && n < kMostAllocations; ++n) {
      told.clear();
      {
        const MemoryShortage shortage(n, kind);
        test::write_answers(test::linked_library(), handle, told);
        has_struck = shortage.has_struck();
      }
      std::istringstream expected_lines(expected), told_lines(told);
      for (std::string right, line; std::getline(expected_lines, right);) {
        std::getline(told_lines, line);
        if (line == right) continue;
        EXPECT_TRUE(has_struck && line == right.substr(0, right.find(':')) + ": (null)")
            << line << " instead of " << right << ", allocation " << n;
      }
      ASSERT_FALSE(HasFailure());
    }
    EXPECT_FALSE(has_struck);
    EXPECT_EQ(answers(handle), expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, OutOfMemory, testing::ValuesIn(test::sample_texts()),
                         [](const auto& sample) {
                           std::string name = sample.param.kind;
                           for (char& c : name) c = c == ' ' ? '_' : c;
                           return name;
                         });

TEST(OutOfMemory, StatisticsAreRightOrUntouched) {
  const SampleText sample = test::sample_texts()[5];
  const Source repeats(sample);
  long n = 1;
  for (bool has_struck = true; has_struck; ++n) {
    const test::Handle handle;
    ASSERT_EQ(repeats.load(handle, false), 1);
    DeStats stats = {-7, -7.0, -7.0};
    {
      const MemoryShortage shortage(n, Shortage::once);
      get_de_stats_from_index(handle, 0, &stats);
      has_struck = shortage.has_struck();
    }
    EXPECT_EQ(stats.repeat_count, has_struck ? -7 : 3) << n;
    EXPECT_EQ(stats.de_max, has_struck ? -7.0 : std::sqrt(26.0)) << n;
    get_de_stats_from_index(handle, 0, &stats);
    EXPECT_EQ(stats.repeat_count, 3);
  }
  EXPECT_GT(n, 2);
}

TEST(OutOfMemory, AHandleThatCannotBeMadeIsNull) {
  const long live = test::live_blocks();
  void* handle = nullptr;
  long n = 0;
  while (handle == nullptr && ++n < kMostAllocations) {
    const MemoryShortage shortage(n, Shortage::once);
    handle = init_parser();
    ASSERT_EQ(handle == nullptr, shortage.has_struck());
  }
  EXPECT_GT(n, 1);
  cleanup_parser(&handle);
  EXPECT_EQ(test::live_blocks(), live);
}

// The flags change with the last step of a load, after all that can fail.
TEST(OutOfMemory, TheFlagsStayThoseOfTheLastSuccess) {
  const SampleText cmyk = test::sample_texts()[0], rgb = test::sample_texts()[1];
  const Source before(cmyk), after(rgb);
  bool has_struck = true;
  for (long n = 1; has_struck && n < kMostAllocations; ++n) {
    test::Handle handle;
    ASSERT_EQ(before.load(handle, false), 1);
    int loaded = 0;
    {
      const MemoryShortage shortage(n, Shortage::lasting);
      loaded = after.load(handle, false);
      has_struck = shortage.has_struck();
    }
    ASSERT_EQ(dev_is_cmyk(handle), 1 - loaded) << "allocation " << n;
    ASSERT_EQ(dev_is_rgb(handle), loaded) << "allocation " << n;
  }
  EXPECT_FALSE(has_struck);
}

}  // namespace
