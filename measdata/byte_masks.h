// Finds bytes in blocks of 64, one bit of a word for each byte.
#ifndef MEASDATA_MEASDATA_BYTE_MASKS_H
#define MEASDATA_MEASDATA_BYTE_MASKS_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__) || defined(_M_X64)
#define MEASDATA_USE_SSE2
#include <emmintrin.h>
#endif

namespace vantor::MeasData {

inline constexpr std::size_t kBlockSize = 64;

#ifdef MEASDATA_USE_SSE2

class ByteBlock {
 public:
  explicit ByteBlock(const char* bytes) {
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      std::memcpy(&parts_[i].bytes, bytes + i * sizeof(__m128i), sizeof(__m128i));
    }
  }
  /// Bit i is set where byte i is `c`.
  std::uint64_t positions_of(char c) const {
    const __m128i wanted = _mm_set1_epi8(c);
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      const int bits = _mm_movemask_epi8(_mm_cmpeq_epi8(parts_[i].bytes, wanted));
      mask |= static_cast<std::uint64_t>(static_cast<unsigned>(bits)) << (i * sizeof(__m128i));
    }
    return mask;
  }
  /// Bit i is set where byte i lies between `first` and `last`, both ASCII and included.
  std::uint64_t positions_between(char first, char last) const {
    const __m128i below = _mm_set1_epi8(static_cast<char>(first - 1));
    const __m128i above = _mm_set1_epi8(static_cast<char>(last + 1));
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      const __m128i bytes = parts_[i].bytes;
      const int bits = _mm_movemask_epi8(
          _mm_and_si128(_mm_cmpgt_epi8(bytes, below), _mm_cmplt_epi8(bytes, above)));
      mask |= static_cast<std::uint64_t>(static_cast<unsigned>(bits)) << (i * sizeof(__m128i));
    }
    return mask;
  }

 private:
  struct Part {  // a bare __m128i loses its attributes as a template argument
    __m128i bytes;
  };
  std::array<Part, kBlockSize / sizeof(__m128i)> parts_{};
};

#else

class ByteBlock {
 public:
  explicit ByteBlock(const char* bytes) { std::memcpy(words_.data(), bytes, kBlockSize); }
  /// Bit i is set where byte i is `c`.
  std::uint64_t positions_of(char c) const {
    const std::uint64_t wanted = static_cast<unsigned char>(c) * kOnes;
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < words_.size(); ++i) {
      mask |= gather(zero_bytes(words_[i] ^ wanted)) << (i * sizeof(std::uint64_t));
    }
    return mask;
  }
  /// Bit i is set where byte i lies between `first` and `last`, both ASCII and included.
  std::uint64_t positions_between(char first, char last) const {
    std::array<char, kBlockSize> bytes{};
    std::memcpy(bytes.data(), words_.data(), kBlockSize);
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < kBlockSize; ++i) {
      mask |= std::uint64_t{bytes[i] >= first && bytes[i] <= last} << i;
    }
    return mask;
  }

 private:
  static constexpr std::uint64_t kOnes = 0x0101010101010101U;
  static constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7FU;

  // The top bit of each byte that is zero.
  static constexpr std::uint64_t zero_bytes(std::uint64_t word) {
    return ~(((word & kLowBits) + kLowBits) | word | kLowBits);
  }
  // The top bits of eight bytes, that of the first byte in memory lowest.
  static constexpr std::uint64_t gather(std::uint64_t top_bits) {
    if constexpr (std::endian::native == std::endian::big) {
      return ((top_bits >> 7U) * 0x8040201008040201U) >> 56U;
    }
    return ((top_bits >> 7U) * 0x0102040810204080U) >> 56U;
  }

  std::array<std::uint64_t, kBlockSize / sizeof(std::uint64_t)> words_{};
};

#endif

/// The block at `position`; behind the end of the text it holds `filler`.
inline ByteBlock block_at(std::string_view text, std::size_t position, char filler) {
  const std::size_t left = text.size() - position;
  if (left >= kBlockSize) return ByteBlock(text.data() + position);
  std::array<char, kBlockSize> padded{};
  padded.fill(filler);
  if (left != 0) std::memcpy(padded.data(), text.data() + position, left);
  return ByteBlock(padded.data());
}

/// How many bits are set. std::popcount is a call where the compiler may not use the instruction.
constexpr std::size_t count_bits(std::uint64_t bits) {
  bits -= (bits >> 1U) & 0x5555555555555555U;
  bits = (bits & 0x3333333333333333U) + ((bits >> 2U) & 0x3333333333333333U);
  bits = (bits + (bits >> 4U)) & 0x0F0F0F0F0F0F0F0FU;
  return static_cast<std::size_t>((bits * 0x0101010101010101U) >> 56U);
}

/// The bits from `bit` on; none for 64.
constexpr std::uint64_t bits_from(std::size_t bit) {
  return bit < kBlockSize ? ~std::uint64_t{0} << bit : 0;
}

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_BYTE_MASKS_H
