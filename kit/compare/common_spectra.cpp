#include "kit/compare/common_spectra.h"

#include <cmath>

namespace measkit {
namespace {

using vantor::ColorTypes::Spectral::AstmParameters;
using vantor::ColorTypes::Spectral::ASTMSpectralConversion;
using vantor::ColorTypes::Spectral::Illuminant;

constexpr double kTolerance = 1e-6;  // nm

bool is_even(const std::vector<double>& wavelengths) {
  const double step = wavelengths[1] - wavelengths[0];
  for (std::size_t i = 1; i < wavelengths.size(); ++i) {
    if (std::abs(wavelengths[i] - wavelengths[i - 1] - step) > kTolerance) return false;
  }
  return true;
}

// Weights for a light on the given wavelengths; false when no table fits.
bool configure(ASTMSpectralConversion& conversion, const std::vector<double>& wavelengths,
               Illuminant illuminant) {
  const double start = wavelengths.front(), step = wavelengths[1] - wavelengths[0];
  if (std::round(start) != start || std::round(step) != step) return false;
  AstmParameters parameters;
  parameters.startNm = static_cast<std::int32_t>(start);
  parameters.stepNm = static_cast<std::int32_t>(step);
  parameters.sampleCount = static_cast<std::int32_t>(wavelengths.size());
  parameters.illuminant = static_cast<std::int32_t>(illuminant);
  parameters.useCustomWhite = false;
  return conversion.configure(parameters);
}

void pick(std::span<const double> spectrum, const std::vector<std::size_t>& bands,
          std::vector<double>& picked) {
  picked.clear();
  for (const std::size_t band : bands) picked.push_back(spectrum[band]);
}

Lab lab_of(const ASTMSpectralConversion& conversion, const std::vector<double>& spectrum) {
  Lab lab{};
  conversion.spectralToLab(spectrum.data(), lab.l, lab.a, lab.b);
  return lab;
}

}  // namespace

CommonSpectra::CommonSpectra(const Chart& reference, const Chart& sample) {
  constexpr std::size_t kFewest = 8;
  if (reference.spectra.empty() || sample.spectra.empty()) return;
  if (reference.quantity != sample.quantity) {
    reason_ = "One chart holds reflectances, the other transmittances.";
    return;
  }
  const std::vector<double>& first = reference.wavelengths;
  const std::vector<double>& second = sample.wavelengths;
  std::size_t i = 0, j = 0;
  while (i < first.size() && j < second.size()) {
    const double difference = first[i] - second[j];
    if (std::abs(difference) <= kTolerance) {
      wavelengths_.push_back(first[i]);
      reference_bands_.push_back(i++);
      sample_bands_.push_back(j++);
    } else {
      ++(difference < 0.0 ? i : j);
    }
  }
  if (wavelengths_.size() < kFewest || !is_even(wavelengths_)) {
    reason_ = "The spectra have too few wavelengths in common to be compared.";
    wavelengths_.clear();
    reference_bands_.clear();
    sample_bands_.clear();
    return;
  }
  have_lights_ =
      configure(a_, wavelengths_, Illuminant::A) && configure(f11_, wavelengths_, Illuminant::F11);
}

double CommonSpectra::rms(std::span<const double> reference, std::span<const double> sample) const {
  double sum = 0.0;
  for (std::size_t i = 0; i < wavelengths_.size(); ++i) {
    const double difference = sample[sample_bands_[i]] - reference[reference_bands_[i]];
    sum += difference * difference;
  }
  return std::sqrt(sum / static_cast<double>(wavelengths_.size()));
}

CommonSpectra::Metamerism CommonSpectra::under_other_lights(std::span<const double> reference,
                                                            std::span<const double> sample) {
  pick(reference, reference_bands_, first_);
  pick(sample, sample_bands_, second_);
  return {delta_e_2000(lab_of(a_, first_), lab_of(a_, second_)),
          delta_e_2000(lab_of(f11_, first_), lab_of(f11_, second_))};
}

}  // namespace measkit
