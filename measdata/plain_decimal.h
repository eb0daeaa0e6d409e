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
/// its value, as are the zeros before the first character. A fresh word is all zeros.
class DigitWord {
 public:
  static constexpr std::size_t kSize = 8;

  DigitWord() = default;
  /// The last 1 to 8 characters before `end`; there must be eight bytes to read.
  DigitWord(const char* end, std::size_t count) {
    std::memcpy(&word_, end - kSize, kSize);
    const std::size_t others = 8 * (kSize - count);
    word_ = ((word_ ^ 0x3030303030303030U) >> others) << others;
  }

  /// Takes out the first byte that is neither a digit nor alike; the characters before it move up
  /// by one, and `before` gives its last. True when the byte was a decimal point; `decimals` are
  /// the characters behind it.
  bool remove_point(DigitWord& before, std::size_t& decimals) {
    const std::uint64_t first = points() & (0 - points());
    const auto bit = static_cast<unsigned>(std::countr_zero(first)) & ~7U;
    const bool is_point = ((word_ >> bit) & 0xFFU) == ('.' ^ '0');
    const std::uint64_t below = (first >> 4U) - 1;
    word_ = (word_ & (~below << 8U)) | ((word_ & below) << 8U) | (before.word_ >> 56U);
    before.word_ <<= 8U;
    decimals = 7 - bit / 8;
    return is_point;
  }
  bool has_point() const { return points() != 0; }
  bool has_digits_only() const {
    return (((word_ + 0x7676767676767676U) | word_) & 0x8080808080808080U) == 0;
  }
  /// Joins digits to pairs, pairs to fours and those to eight, all of a kind at once.
  std::uint64_t value() const {
    const std::uint64_t pairs = (word_ * (10 * 0x100 + 1)) >> 8U;
    const std::uint64_t fours = ((pairs & 0x00FF00FF00FF00FFU) * (100 * 0x10000 + 1)) >> 16U;
    return ((fours & 0x0000FFFF0000FFFFU) * (10000 * 0x100000000U + 1)) >> 32U;
  }

 private:
  // A bit that a point has, but no digit.
  std::uint64_t points() const { return word_ & 0x1010101010101010U; }

  std::uint64_t word_ = 0;
};

/// So many bytes before a number must be readable.
inline constexpr std::ptrdiff_t kBytesBeforeNumber = 2 * DigitWord::kSize;

/// An optional minus, up to sixteen characters that are digits and at most one point among them,
/// nothing else: true when this is the whole text. Fifteen digits are exact in a double and divided
/// by an exact power of ten, sixteen without a point are rounded and divided by 1: the value is
/// rounded once, and so correctly.
inline bool read_plain_decimal(std::string_view text, double& value) {
  if constexpr (std::endian::native != std::endian::little) return false;
  if (text.empty()) return false;
  const char* const end = text.data() + text.size();
  // Signs are hard to predict: no branch depends on one.
  const std::size_t minus = text.front() == '-' ? 1 : 0;
  const std::size_t size = text.size() - minus;

  std::uint64_t digits = 0;
  std::size_t decimals = 0;
  bool is_plain = true;
  if (size - 1 < DigitWord::kSize) {
    DigitWord word(end, size);
    if (word.has_point()) {
      DigitWord nothing;
      is_plain = word.remove_point(nothing, decimals) && size > 1;
    }
    digits = word.value();
    is_plain = is_plain && word.has_digits_only();
  } else if (size - 1 < 2 * DigitWord::kSize) {
    DigitWord high(end - DigitWord::kSize, size - DigitWord::kSize);
    DigitWord low(end, DigitWord::kSize);
    if (low.has_point()) {
      is_plain = low.remove_point(high, decimals);
    } else if (high.has_point()) {
      DigitWord nothing;
      is_plain = high.remove_point(nothing, decimals);
      decimals += DigitWord::kSize;
    }
    digits = high.value() * 100000000 + low.value();
    is_plain = is_plain && high.has_digits_only() && low.has_digits_only();
  } else {
    return false;
  }
  if (!is_plain) return false;
  const double magnitude = static_cast<double>(digits) / kPowersOfTen[decimals];
  value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) ^
                                (static_cast<std::uint64_t>(minus) << 63U));
  return true;
}

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_PLAIN_DECIMAL_H
