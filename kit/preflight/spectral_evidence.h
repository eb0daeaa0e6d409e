// What lines of numbers and the words above them prove about spectra.
#ifndef MEASDATA_KIT_PREFLIGHT_SPECTRAL_EVIDENCE_H
#define MEASDATA_KIT_PREFLIGHT_SPECTRAL_EVIDENCE_H

#include "kit/preflight/number_block.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace measkit {

/// How many values from the first on only rise, or only fall. `values` has two at least.
std::size_t length_in_one_direction(const std::vector<double>& values);

/// True when the numbers, in order, lie in the range of spectrometers in nm.
bool may_be_wavelengths(const std::vector<double>& values);

/// Even steps alone prove wavelengths when they go through the visible range, or a good part of it.
/// Where words tell of spectra, the steps may vary as those of an instrument do.
bool are_wavelengths_by_steps(const std::vector<double>& nm, bool has_words);

/// True when the lines above a block speak of spectra or wavelengths.
bool tells_spectra(const NumberBlock& block);

/// What the values of spectra are, as far as words tell.
enum class StatedQuantity { unknown, reflectance, transmittance, emission, absorbance };

/// By the words in the lines above a block, of which `header` names the columns.
StatedQuantity stated_quantity_of(const NumberBlock& block, std::string_view header);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SPECTRAL_EVIDENCE_H
