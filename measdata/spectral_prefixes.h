// How names of spectral fields begin: the rest of the name is the wavelength.
#ifndef MEASDATA_MEASDATA_SPECTRAL_PREFIXES_H
#define MEASDATA_MEASDATA_SPECTRAL_PREFIXES_H

#include <array>
#include <string_view>

namespace vantor::MeasData {

/// The prefixes in the order in which they are tried, longer ones before their own beginnings.
inline constexpr std::array<std::string_view, 9> kSpectralPrefixes = {
    "R_",        "SPECTRAL_NM_", "SPECTRAL_NM", "SPECTRAL_", "SPECTRUM_NM_",
    "SPECTRUM_", "SPEC_",        "nm",          "NM_"};

/// The prefix that `name` begins with, empty when there is none.
constexpr std::string_view spectral_prefix_of(std::string_view name) {
  for (const std::string_view prefix : kSpectralPrefixes) {
    if (name.starts_with(prefix)) return prefix;
  }
  return {};
}

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_SPECTRAL_PREFIXES_H
