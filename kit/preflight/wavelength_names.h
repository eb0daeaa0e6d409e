// Finds the columns of a spreadsheet that wavelengths name.
#ifndef MEASDATA_KIT_PREFLIGHT_WAVELENGTH_NAMES_H
#define MEASDATA_KIT_PREFLIGHT_WAVELENGTH_NAMES_H

#include "kit/preflight/delimited_text.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace measkit {

/// Positions of the header cells that name wavelengths, with these in nm: cells such as "380",
/// "R400 nm" or "nm380.0" that all have the same word before the number, and whose wavelengths all
/// rise or all fall. Empty when too few do, or when the line may be a row of numbers.
std::vector<std::pair<std::size_t, double>> wavelengths_named(const SheetCells& header);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_WAVELENGTH_NAMES_H
