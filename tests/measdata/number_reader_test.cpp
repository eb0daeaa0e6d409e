#include "measdata/number_reader.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

namespace {

using vantor::MeasData::Comma;
using vantor::MeasData::NumberReader;

// The same bits, but for the sign and payload of not-a-number.
void expect_like_atof(std::string text, Comma comma = Comma::ends_number) {
  const double ours = NumberReader().read(text, comma);
  std::string dotted = text;
  if (comma == Comma::is_decimal_point && dotted.find(',') != std::string::npos) {
    dotted[dotted.find(',')] = '.';
  }
  const double theirs = std::atof(dotted.c_str());
  if (std::isnan(theirs)) {
    EXPECT_TRUE(std::isnan(ours)) << text;
  } else {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(ours), std::bit_cast<std::uint64_t>(theirs))
        << '"' << text << "\" is " << ours << ", for the C library " << theirs;
  }
}

TEST(NumberReader, ReadsEveryFormAsTheCLibraryDoes) {
  for (const char* text : {"",
                           " ",
                           "0",
                           "-0",
                           "+0",
                           "-0.0",
                           "1",
                           "-12.5",
                           "+3.25",
                           ".5",
                           "5.",
                           ".",
                           "-",
                           "+",
                           "-.",
                           "1..2",
                           "1.5x",
                           "x1",
                           "  7",
                           "\t\n\v\f\r 7",
                           "1 2",
                           "1e3",
                           "1e",
                           "1e+",
                           "1E-2",
                           "1e5.5",
                           "0x10",
                           "0x1.8p3",
                           "0x",
                           "-0x1p-1074",
                           "inf",
                           "-INF",
                           "infinity",
                           "infinit",
                           "nan",
                           "-nan",
                           "nan(123)",
                           "NAN(",
                           "1e308",
                           "1.8e308",
                           "1e309",
                           "-1e400",
                           "1e-307",
                           "4.9e-324",
                           "2e-324",
                           "1e-400",
                           "2.2250738585072014e-308",
                           "9007199254740992",
                           "9007199254740993",
                           "9007199254740993.0",
                           "0.1",
                           "0.3",
                           "123456789012345678",
                           "1234567890123456789",
                           "12345678901234567890",
                           "0.1234567890123456789",
                           "0.00000000000000000000000000001",
                           "100000000000000000000000000000",
                           "179769313486231580793728971405301e276",
                           "1,5",
                           ",5",
                           "--1",
                           "+-1",
                           "\xB0"
                           "5",
                           "1e99999999999999999999",
                           "0e99999999999"}) {
    expect_like_atof(text);
    expect_like_atof(text, Comma::is_decimal_point);
  }
  expect_like_atof(std::string(200, '0') + "1.25");
  expect_like_atof(std::string(200, ' ') + "1.25");
  expect_like_atof("0." + std::string(400, '3'));
  EXPECT_EQ(NumberReader().read(std::string_view("1\0"
                                                 "2",
                                                 3)),
            1.0);
}

TEST(NumberReader, ACommaIsADecimalPointOnlyWhereAsked) {
  EXPECT_EQ(NumberReader().read("12,5", Comma::is_decimal_point), 12.5);
  EXPECT_EQ(NumberReader().read("1,234,5", Comma::is_decimal_point), 1.234);
  EXPECT_EQ(NumberReader().read("1,2.5", Comma::is_decimal_point), 1.2);
  EXPECT_EQ(NumberReader().read("12,5"), 12.0);
}

TEST(NumberReader, AgreesWithTheCLibraryOnGeneratedTexts) {
  std::mt19937_64 random(17);
  const auto below = [&random](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  const auto digits = [&](std::size_t most) {
    std::string text;
    for (std::size_t n = below(most + 1); n > 0; --n) text += static_cast<char>('0' + below(10));
    return text;
  };
  constexpr std::string_view kSigns[] = {"", "", "-", "+"};
  constexpr std::string_view kSoup = "0123456789..,,eE+-xXpPaAbfinFINty() \t";
  for (int i = 0; i < 200000; ++i) {
    // Numbers of the shapes that files hold, from short to longer than a double can tell apart.
    std::string number(kSigns[below(4)]);
    number += digits(i % 4 == 0 ? 25 : 4);
    if (below(4) != 0) number += (below(4) == 0 ? "," : ".") + digits(i % 3 == 0 ? 25 : 6);
    if (below(8) == 0) number += (below(2) == 0 ? "e" : "E-") + digits(i % 5 == 0 ? 4 : 2);
    expect_like_atof(number);
    expect_like_atof(number, Comma::is_decimal_point);

    std::string soup;
    for (std::size_t n = below(12); n > 0; --n) soup += kSoup[below(kSoup.size())];
    expect_like_atof(soup, below(2) == 0 ? Comma::ends_number : Comma::is_decimal_point);
    if (HasFailure()) return;
  }
}

}  // namespace
