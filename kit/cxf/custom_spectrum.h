// Spectra whose values name their wavelengths one by one.
#ifndef MEASDATA_KIT_CXF_CUSTOM_SPECTRUM_H
#define MEASDATA_KIT_CXF_CUSTOM_SPECTRUM_H

#include "kit/preflight/text_pool.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace measkit::cxf {

struct SpectralPoint {
  std::string_view wavelength, value;
};

/// The values by rising wavelength, the first wavelength and the increment, if the wavelengths are
/// even.
std::optional<std::array<std::string_view, 3>> even_spectrum(
    const std::vector<SpectralPoint>& points, TextPool& pool);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_CUSTOM_SPECTRUM_H
