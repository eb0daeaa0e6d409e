#include "bench/charts.h"

#include <cstdint>

namespace bench {
namespace {

constexpr int kBands = 36;

class Random {
 public:
  std::uint32_t below(std::uint32_t limit) {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::uint32_t>((state_ >> 32U) % limit);
  }

 private:
  std::uint64_t state_ = 1;
};

// A tab and a number of `decimals` places between 0 and limit / 10^decimals.
void append_number(std::string& text, std::uint32_t value, std::size_t decimals) {
  std::string digits = std::to_string(value);
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  text += '\t';
  text.append(digits, 0, digits.size() - decimals);
  text += '.';
  text.append(digits, digits.size() - decimals);
}

}  // namespace

std::string spectral_chart(int rows) {
  std::string text =
      "CGATS.17\nORIGINATOR\t\"bench\"\nNUMBER_OF_FIELDS\t47\nBEGIN_DATA_FORMAT\n"
      "SAMPLE_ID\tCMYK_C\tCMYK_M\tCMYK_Y\tCMYK_K\tXYZ_X\tXYZ_Y\tXYZ_Z\tLAB_L\tLAB_A\tLAB_B";
  for (int band = 0; band < kBands; ++band) {
    text += "\tSPECTRAL_NM" + std::to_string(380 + 10 * band);
  }
  text += "\nEND_DATA_FORMAT\nNUMBER_OF_SETS\t" + std::to_string(rows) + "\nBEGIN_DATA\n";
  Random random;
  for (int row = 1; row <= rows; ++row) {
    text += std::to_string(row);
    for (int ink = 0; ink < 4; ++ink) append_number(text, random.below(10001), 2);
    for (int i = 0; i < 3; ++i) append_number(text, random.below(1000000), 4);
    for (int i = 0; i < 3; ++i) append_number(text, random.below(10000), 2);
    for (int band = 0; band < kBands; ++band) append_number(text, random.below(1000000), 6);
    text += '\n';
  }
  text += "END_DATA\n";
  return text;
}

}  // namespace bench
