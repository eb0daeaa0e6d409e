// A process whose locale has a decimal comma.
#include "measdata/number_reader.h"
#include "tests/robustness/sample_texts.h"
#include "tests/robustness/temporary_path.h"
#include "tests/support/answers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <locale>
#include <string>
#include <vector>

// The system's C library keeps what it made of LOCPATH.
extern "C" const char* __lsan_default_suppressions() { return "leak:__argz_add_sep\n"; }

namespace {

using vantor::MeasData::Comma;
using vantor::MeasData::NumberReader;

// German as of now, in C and in C++, until the end of a test.
class DecimalComma : public testing::Test {
 protected:
  static constexpr const char* kName = "de_DE.UTF-8";

  static void SetUpTestSuite() {
    folder_ = test::temporary_path("locales");
    std::filesystem::create_directories(folder_);
    setenv("LOCPATH", folder_.c_str(), 1);
    const std::string command =
        "localedef -i de_DE -f UTF-8 --no-archive '" + folder_ + "/" + kName + "' 2>&1";
    has_locale_ = std::system(command.c_str()) == 0;
  }
  static void TearDownTestSuite() { std::filesystem::remove_all(folder_); }

  void SetUp() override {
    if (!has_locale_) {
      GTEST_SKIP() << "no locale: this takes localedef and the sources in /usr/share/i18n, on "
                      "Debian the packages libc-bin and locales";
    }
  }
  void TearDown() override { std::locale::global(std::locale::classic()); }

  static void enter() {
    std::locale::global(std::locale(kName));
    ASSERT_EQ(std::atof("1,5"), 1.5);
  }

 private:
  static inline std::string folder_;
  static inline bool has_locale_ = false;
};

TEST_F(DecimalComma, NumbersAreThoseOfTheCLibrary) {
  enter();
  for (const char* text : {"1.5", "1,5", "12", "-0,25", ",5", "5,", "0x1,8p1", "1e3", "1,5e-2",
                           "1.234,5", "1,234.5", "123456789012345678", "x", ""}) {
    EXPECT_EQ(NumberReader().read(text), std::atof(text)) << text;
  }
  // A comma that is to count as a full stop ends the number here.
  EXPECT_EQ(NumberReader().read("1,5", Comma::is_decimal_point), std::atof("1.5"));
  const test::Loaded table("LAB_L;LAB_A;LAB_B\n1,5;1.5;-12\n", 1);
  EXPECT_EQ(table.lab(0), (test::Triple{std::atof("1.5"), std::atof("1.5"), -12}));
}

TEST_F(DecimalComma, AHandleFollowsWhatChangesBetweenLoads) {
  const std::string text = test::file_of("LAB_L LAB_A LAB_B", "1,5 1.5 3\n");
  test::Loaded handle(text);
  EXPECT_EQ(handle.lab(0), (test::Triple{1.5, 1.5, 3}));
  enter();
  handle.load(text);
  EXPECT_EQ(handle.lab(0), (test::Triple{std::atof("1.5"), std::atof("1.5"), 3}));
  std::locale::global(std::locale::classic());
  handle.load(text);
  EXPECT_EQ(handle.lab(0), (test::Triple{1.5, 1.5, 3}));
}

TEST_F(DecimalComma, NothingElseChanges) {
  const auto tell_all = [] {
    std::vector<std::string> told;
    for (const test::SampleText& sample : test::sample_texts()) {
      const test::Loaded handle(sample.text, sample.mode);
      told.push_back(test::answers(handle));
    }
    return told;
  };
  const std::vector<std::string> expected = tell_all();
  enter();
  EXPECT_EQ(tell_all(), expected);
}

}  // namespace
