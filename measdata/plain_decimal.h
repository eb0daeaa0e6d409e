// Reads the numbers that nearly all cells hold, eight digits at a time.
#ifndef MEASDATA_MEASDATA_PLAIN_DECIMAL_H
#define MEASDATA_MEASDATA_PLAIN_DECIMAL_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vantor::MeasData {

/// Powers of ten that a double holds exactly.
inline constexpr std::array<double, 23> kPowersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
/// Integers up to here are exact in a double.
inline constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53U;

/// Up to eight characters in a word, the last of them in its top byte, each less '0': a digit is
/// its value, as are the zeros before the first character.
class DigitWord {
 public:
  static constexpr std::size_t kSize = 8;

  explicit DigitWord(std::string_view text) {
    const std::size_t size = text.size();
    const char* p = text.data();
    std::uint64_t word = 0;
    if (size >= sizeof(std::uint32_t)) {  // two halves that overlap when there are fewer than eight
      const std::size_t second = size - sizeof(std::uint32_t);
      word = load<std::uint32_t>(p) | static_cast<std::uint64_t>(load<std::uint32_t>(p + second))
                                          << (8 * second);
    } else {
      for (std::size_t i = 0; i < size; ++i) {
        word |= static_cast<std::uint64_t>(static_cast<unsigned char>(p[i])) << (8 * i);
      }
    }
    word_ = size == 0 ? 0 : (word ^ kZeros) << (8 * (kSize - size));
  }

  /// The bit where the decimal point begins; 64 when there is none.
  unsigned find_point() const {
    constexpr std::uint64_t kLow = 0x7F7F7F7F7F7F7F7FU;
    const std::uint64_t differs = word_ ^ 0x1E1E1E1E1E1E1E1EU;  // '.' less '0'
    const std::uint64_t found = ~(((differs & kLow) + kLow) | differs | kLow);
    return static_cast<unsigned>(std::countr_zero(found)) & ~7U;
  }
  /// Takes out the point; the characters before it move up, and `before` gives its last.
  void remove_point(unsigned point, DigitWord& before) {
    const std::uint64_t below = (std::uint64_t{1} << point) - 1;
    const std::uint64_t behind = ~below << 8U;
    word_ = (word_ & behind) | ((word_ & below) << 8U) | (before.word_ >> 56U);
    before.word_ <<= 8U;
  }
  bool has_digits_only() const {
    return (((word_ + 0x7676767676767676U) | word_) & 0x8080808080808080U) == 0;
  }
  /// Pairs of digits, then of pairs, then of fours, are joined all at once.
  std::uint64_t value() const {
    std::uint64_t pairs = (word_ * 2561) >> 8U;                       // 2561 = 10 * 2^8 + 1
    pairs = ((pairs & 0x00FF00FF00FF00FFU) * 6553601) >> 16U;         // 100 * 2^16 + 1
    return ((pairs & 0x0000FFFF0000FFFFU) * 42949672960001U) >> 32U;  // 10000 * 2^32 + 1
  }

 private:
  template <typename Word>
  static Word load(const char* p) {
    Word word;
    std::memcpy(&word, p, sizeof word);
    return word;
  }

  static constexpr std::uint64_t kZeros = 0x3030303030303030U;

  std::uint64_t word_ = 0;
};

/// An optional minus, up to sixteen digits and at most one point among them, nothing else: true
/// when this is the whole text and the division of two exact numbers gives its correctly rounded
/// value.
inline bool read_plain_decimal(std::string_view text, double& value) {
  if constexpr (std::endian::native != std::endian::little) return false;
  const bool is_negative = !text.empty() && text.front() == '-';
  if (is_negative) text.remove_prefix(1);
  if (text.empty() || text.size() > 2 * DigitWord::kSize || text == ".") return false;

  const std::size_t high_size = text.size() > DigitWord::kSize ? text.size() - DigitWord::kSize : 0;
  DigitWord high(text.substr(0, high_size));
  DigitWord low(text.substr(high_size));
  std::size_t decimals = 0;
  if (const unsigned point = low.find_point(); point < 64) {
    low.remove_point(point, high);
    decimals = 7 - point / 8;
  } else if (const unsigned high_point = high_size == 0 ? 64 : high.find_point(); high_point < 64) {
    DigitWord none(std::string_view{});
    high.remove_point(high_point, none);
    decimals = 15 - high_point / 8;
  }
  if (!low.has_digits_only() || !high.has_digits_only()) return false;
  std::uint64_t digits = low.value();
  if (high_size != 0) digits += high.value() * 100000000;
  if (digits > kLargestExact) return false;
  const double magnitude = static_cast<double>(digits) / kPowersOfTen[decimals];
  value = is_negative ? -magnitude : magnitude;
  return true;
}

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_PLAIN_DECIMAL_H
