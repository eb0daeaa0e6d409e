#include "measdata/number_reader.h"

#include "measdata/cell_cutter.h"
#include "measdata/meas_file_parser.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using vantor::MeasData::Comma;
using vantor::MeasData::NumberReader;

// The same bits as the C library gives, but for the sign and payload of not-a-number.
void expect_number(double ours, std::string text, Comma comma) {
  if (comma == Comma::is_decimal_point && text.find(',') != std::string::npos) {
    text[text.find(',')] = '.';
  }
  const double theirs = std::strtod(text.c_str(), nullptr);
  if (std::isnan(theirs) && std::isnan(ours)) return;
  EXPECT_EQ(std::bit_cast<std::uint64_t>(ours), std::bit_cast<std::uint64_t>(theirs))
      << '"' << text << "\" is " << ours << ", for the C library " << theirs;
}

// Alone, and as cells of a file: the first column is one of texts, the second one of numbers.
void expect_like_c_library(const std::vector<std::string>& texts) {
  std::string file = "CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID GRAY\nEND_DATA_FORMAT\nBEGIN_DATA\n";
  for (const std::string& text : texts) file += "\"" + text + "\" \"" + text + "\"\n";
  vantor::MeasData::MeasFileParser reader(0);
  reader.load_view(file);
  ASSERT_EQ(reader.row_count(), static_cast<int>(texts.size()));
  vantor::MeasData::CellCutter cutter;
  int row = 0;
  for (const std::string& text : texts) {
    const auto cells = reader.cells_of_row(row++, cutter);
    expect_number(reader.number_of(cells[0], 0), text, Comma::ends_number);
    expect_number(reader.number_of(cells[1], 1), text, Comma::is_decimal_point);
    for (const Comma comma : {Comma::ends_number, Comma::is_decimal_point}) {
      expect_number(NumberReader().read(text, comma), text, comma);
    }
  }
}

const std::vector<std::string> kHardNumbers = {
    // clang-format off
    "", " ", "0", "-0", "+0", "-0.0", "1", "-12.5", "+3.25", ".5", "5.", ".", "-", "+", "-.",
    "1..2", "1.5x", "x1", "  7", "\t\v\f 7", "1 2", "1e3", "1e", "1e+", "1E-2", "1e5.5", "0x10",
    "0x1.8p3", "0x", "-0x1p-1074", "inf", "-INF", "infinity", "infinit", "nan", "-nan", "nan(123)",
    "NAN(", "1e308", "1.8e308", "1e309", "-1e400", "1e-307", "4.9e-324", "2e-324", "1e-400",
    "2.2250738585072014e-308", "9007199254740992", "9007199254740993", "9007199254740993.0",
    "0.1", "0.3", "12345678", "123456789", "1234567.8", "12345678.9", "-.12345678", "1234567.",
    "123456789012345", "1234567890123456", "-12345678.90123456", "12345678.9012345",
    "12345678901234567", "123456789012345678", "1234567890123456789", "12345678901234567890",
    "0.1234567890123456789", "0.00000000000000000000000000001", "100000000000000000000000000000",
    "179769313486231580793728971405301e276", "1,5", ",5", "1,234,5", "1,2.5", "--1", "+-1", "1/2",
    "1:2", "12345678:", "\xB0", "\xB1" "2", "1e99999999999999999999", "0e99999999999", "18446744073709551617",
    "90451399957.83513", "1312821522913643.7", "946558832521392,3",
    // clang-format on
};

TEST(NumberReader, ReadsEveryFormAsTheCLibraryDoes) {
  std::vector<std::string> texts = kHardNumbers;
  texts.push_back(std::string(200, '0') + "1.25");
  texts.push_back(std::string(200, ' ') + "1.25");
  texts.push_back("0." + std::string(400, '3'));
  for (const std::size_t size : {126, 127, 128}) texts.push_back(std::string(size, '7') + "x");
  expect_like_c_library(texts);
  EXPECT_EQ(NumberReader().read({"1\0002", 3}), 1.0);
}

TEST(NumberReader, FollowsTheRoundingOfTheProcess) {
  for (const int rounding : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    ASSERT_EQ(std::fesetround(rounding), 0);
    expect_like_c_library(kHardNumbers);
    std::fesetround(FE_TONEAREST);
  }
}

TEST(NumberReader, AgreesWithTheCLibraryOnGeneratedTexts) {
  std::mt19937_64 random(17);
  const auto below = [&random](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  const auto some_of = [&](std::string_view characters, std::size_t most) {
    std::string text;
    for (std::size_t n = below(most + 1); n > 0; --n) text += characters[below(characters.size())];
    return text;
  };
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < 100000; ++i) {
    // Shapes that files hold, from short to longer than a double can tell apart, and others.
    const std::string_view digits = "0123456789";
    texts.push_back(some_of("-+", below(2)) + some_of(digits, i % 4 == 0 ? 25 : 4) +
                    some_of(".,", 1) + some_of(digits, i % 3 == 0 ? 25 : 6) +
                    some_of("eE", below(8) / 7) + some_of("-+", below(8) / 7) +
                    some_of(digits, i % 5 == 0 ? 4 : 2));
    texts.push_back(some_of("0123456789..,,eE+-xXpPaAbfinFINty() \t", 11));
  }
  expect_like_c_library(texts);
}

}  // namespace
