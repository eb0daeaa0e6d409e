// Tells scales by comparing what a file says twice.
#ifndef MEASDATA_KIT_PREFLIGHT_SCALE_EVIDENCE_H
#define MEASDATA_KIT_PREFLIGHT_SCALE_EVIDENCE_H

#include "kit/preflight/table.h"

#include <vector>

namespace measkit {

/// What the spectra agree with when the file's own XYZ or Lab are compared with them.
enum class Agreement { none, as_factor, as_percent };

Agreement compare_spectra_with_colours(Table& table, const Roles& roles);

/// The median over all rows of numerator / denominator, where both are positive; 0 without such
/// rows.
double median_ratio(const std::vector<double>& numerators, const std::vector<double>& denominators);

/// Y of all rows on a scale of 100, from L*.
std::vector<double> luminance_from_lab(Table& table, const Roles& roles);

/// The same from spectra, taken as factors, for as many rows as a median needs; 0 for the others.
/// Empty when the wavelengths do not ascend.
std::vector<double> luminance_from_spectra(Table& table, const Roles& roles);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SCALE_EVIDENCE_H
