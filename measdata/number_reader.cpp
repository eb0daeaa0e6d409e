#include "measdata/number_reader.h"

#include "base/arithmetic.h"

#include <array>
#include <cfenv>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>

namespace vantor::MeasData {
namespace {

// So many decimal digits always fit 64 bits.
constexpr std::ptrdiff_t kMostDigits = 19;

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Reads digits into `value`, which wraps around beyond kMostDigits.
const char* take_digits(const char* p, const char* end, std::uint64_t& value) {
  for (; p != end && is_digit(*p); ++p) value = value * 10 + static_cast<unsigned>(*p - '0');
  return p;
}

// What read_plain_decimal reads, and also a plus, up to nineteen digits and a decimal comma.
bool read_simple(std::string_view text, Comma comma, double& value) {
  const char* p = text.data();
  const char* end = p + text.size();
  if (p == end) return false;
  const bool is_negative = *p == '-';
  if (is_negative || *p == '+') ++p;

  std::uint64_t digits = 0;
  const char* integer_start = p;
  p = take_digits(p, end, digits);
  std::ptrdiff_t digit_count = p - integer_start;
  std::ptrdiff_t decimals = 0;
  if (p != end && (*p == '.' || (*p == ',' && comma == Comma::is_decimal_point))) {
    const char* fraction_start = ++p;
    p = take_digits(p, end, digits);
    decimals = p - fraction_start;
    digit_count += decimals;
  }
  if (p != end || digit_count == 0 || digit_count > kMostDigits || digits > kLargestExact) {
    return false;
  }
  value = static_cast<double>(digits) / kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (is_negative) value = -value;
  return true;
}

#if defined(__cpp_lib_to_chars) && __cpp_lib_to_chars >= 201611L

// True when the text has the shape of a decimal number without white space, letters but for an
// exponent, or a decimal comma; std::from_chars and the C library then agree on it.
bool has_decimal_shape(std::string_view text) {
  std::size_t i = 0;
  const auto skip_digits = [&text, &i] {
    const std::size_t start = i;
    while (i < text.size() && is_digit(text[i])) ++i;
    return i - start;
  };
  if (i < text.size() && text[i] == '-') ++i;
  std::size_t digit_count = skip_digits();
  if (i < text.size() && text[i] == '.') {
    ++i;
    digit_count += skip_digits();
  }
  if (digit_count == 0) return false;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    if (skip_digits() == 0) return false;
  }
  return i == text.size();
}

// Longer decimals and exponents. Overflow and underflow are left to the C library.
bool read_decimal(std::string_view text, double& value) {
  if (!has_decimal_shape(text)) return false;
  const std::from_chars_result result =
      std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

#else

bool read_decimal(std::string_view, double&) { return false; }

#endif

// The definition of what a cell's number is.
double read_by_c_library(std::string_view text, Comma comma) {
  std::array<char, 128> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
  std::string long_text;
  char* copy = buffer.data();
  if (text.size() >= buffer.size()) {
    long_text.resize(text.size() + 1);
    copy = long_text.data();
  }
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  if (comma == Comma::is_decimal_point) {
    const std::size_t position = text.find(',');
    if (position != std::string_view::npos) copy[position] = '.';
  }
  char* end = nullptr;
  const double value = std::strtod(copy, &end);
  return end == copy ? 0.0 : value;  // some libraries return -0 for "--1"
}

// The fast paths hold where the decimal point is a full stop and results are rounded to nearest.
bool is_fast_path_exact() {
  return std::fegetround() == FE_TONEAREST && std::strtod("1.5", nullptr) == 1.5;
}

}  // namespace

NumberReader::NumberReader() : use_fast_path_(is_fast_path_exact()) {}

double NumberReader::read(std::string_view text, Comma comma) const {
  if (use_fast_path_) {
    double value = 0.0;
    if (read_simple(text, comma, value) || read_decimal(text, value)) return value;
  }
  return read_by_c_library(text, comma);
}

}  // namespace vantor::MeasData
