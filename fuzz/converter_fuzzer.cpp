// Configures the converters with arbitrary numbers and converts a spectrum of exactly the agreed
// size. What refuses must change nothing.
#include "colortypes/spectral/astm_conversion.h"
#include "colortypes/spectral/cmf_conversion.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace {

using vantor::ColorTypes::Spectral::AstmParameters;
using vantor::ColorTypes::Spectral::ASTMSpectralConversion;
using vantor::ColorTypes::Spectral::CmfSpectralConversion;

constexpr std::int32_t kMostSamples = 100000;  // for which there is an array to convert

// The input as a row of values; zeros behind its end.
class Source {
 public:
  Source(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  template <typename T>
  T take() {
    T value = {};
    const std::size_t count = std::min(sizeof(T), size_);
    std::memcpy(&value, data_, count);
    data_ += count;
    size_ -= count;
    return value;
  }
  bool take_bool() { return (take<std::uint8_t>() & 1) != 0; }
  // Half of the time a number of a size that means something.
  std::int32_t take_number() {
    return take_bool() ? take<std::int32_t>() : take<std::int16_t>() % 1000;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

AstmParameters parameters_from(Source& source) {
  AstmParameters parameters;
  parameters.startNm = source.take_number();
  parameters.stepNm = source.take_bool() ? source.take_number() : (source.take_bool() ? 10 : 20);
  parameters.sampleCount = source.take_number();
  parameters.illuminant = source.take_number();
  parameters.observer = source.take_number();
  parameters.useTable5 = source.take_bool();
  parameters.foldEnds = source.take_bool();
  parameters.normaliseToWhite = source.take_bool();
  parameters.keepWhitePoint = source.take_bool();
  parameters.useCustomWhite = source.take_bool();
  if (source.take_bool()) {
    parameters.whiteValue = source.take<double>();
    parameters.customWhite = {source.take<double>(), source.take<double>(), source.take<double>()};
  }
  return parameters;
}

std::array<double, 6> answers_of(const ASTMSpectralConversion& converter,
                                 const std::vector<double>& spectrum) {
  std::array<double, 6> answers = {};
  converter.spectralToXYZ(spectrum.data(), answers[0], answers[1], answers[2]);
  converter.spectralToLab(spectrum.data(), answers[3], answers[4], answers[5]);
  return answers;
}

bool same_bits(const std::array<double, 6>& left, const std::array<double, 6>& right) {
  return std::ranges::equal(left, right, [](double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
  });
}

void configure_again_and_again(Source source) {
  ASTMSpectralConversion converter;
  std::vector<double> spectrum;
  for (int i = 0; i < 3; ++i) {
    const std::array<double, 6> before = answers_of(converter, spectrum);
    const AstmParameters parameters = parameters_from(source);
    bool is_taken = false;
    try {
      is_taken = converter.configure(parameters);
    } catch (const std::invalid_argument&) {
    }
    if (is_taken && parameters.sampleCount > kMostSamples) return;
    if (is_taken) {
      spectrum.assign(static_cast<std::size_t>(parameters.sampleCount), source.take<double>());
    }
    const std::array<double, 6> after = answers_of(converter, spectrum);
    if (!is_taken && !same_bits(before, after)) std::abort();
  }
}

void configure_for_any_grid(Source source) {
  CmfSpectralConversion converter;
  const std::int32_t start = source.take_number();
  const std::int32_t step = source.take_number();
  const std::int32_t count = source.take_number();
  if (!converter.configure(start, step, count) || count > kMostSamples) return;
  const std::vector<double> spectrum(static_cast<std::size_t>(count), source.take<double>());
  std::array<double, 3> lab = {};
  converter.spectralToLab(spectrum.data(), lab[0], lab[1], lab[2]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  configure_again_and_again(Source(data, size));
  configure_for_any_grid(Source(data, size));
  return 0;
}
