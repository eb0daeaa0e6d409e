#include "kit/convert/json_number.h"

namespace measkit {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Exponents of more digits may be out of the range of a double.
constexpr int kMostDigitsOfExponent = 2;
// With such an exponent, more digits may be out of range as well.
constexpr std::size_t kLongest = 100;

const char* copy_digits(const char* at, const char* end, char*& to) {
  while (at != end && is_digit(*at)) *to++ = *at++;
  return at;
}

}  // namespace

char* write_json_number(std::string_view text, char* out) {
  if (text.size() > kLongest) return nullptr;
  const char* at = text.data();
  const char* const end = at + text.size();
  char* to = out;
  if (at != end && (*at == '-' || *at == '+')) {
    if (*at == '-') *to++ = '-';
    ++at;
  }
  const char* const whole = at;
  while (at + 1 < end && *at == '0' && is_digit(at[1])) ++at;
  const char* const kept = at;
  at = copy_digits(at, end, to);
  const bool has_whole = at != whole;
  if (at == kept) *to++ = '0';
  bool has_fraction = false;
  if (at != end && *at == '.') {
    const char* const fraction = ++at;
    has_fraction = at != end && is_digit(*at);
    if (has_fraction) {
      *to++ = '.';
      at = copy_digits(fraction, end, to);
    }
  }
  if (!has_whole && !has_fraction) return nullptr;
  if (at != end && (*at == 'e' || *at == 'E')) {
    *to++ = *at++;
    if (at != end && (*at == '-' || *at == '+')) *to++ = *at++;
    const char* const exponent = at;
    at = copy_digits(at, end, to);
    if (at == exponent || at - exponent > kMostDigitsOfExponent) return nullptr;
  } else if (!has_fraction && std::string_view(out, static_cast<std::size_t>(to - out)) == "-0") {
    *to++ = '.';  // else readers make a whole number of -0, which has no sign
    *to++ = '0';
  }
  return at == end ? to : nullptr;
}

}  // namespace measkit
