// Spectra under other names, of other quantities and on other scales.
#ifndef MEASDATA_KIT_PREFLIGHT_SPECTRAL_COLUMNS_H
#define MEASDATA_KIT_PREFLIGHT_SPECTRAL_COLUMNS_H

#include "kit/preflight/table.h"

namespace measkit {

/// Columns that hold wavelength and value in turns become one column for each wavelength.
void pair_up_spectra(Table& table);

/// Spectra of lamps and displays get names that no reader takes for reflectances, and
/// transmittances are told.
void name_quantity(Table& table);

/// Percent become factors, by moving the decimal point. False when the numbers are no reflectances,
/// and their fields were set aside.
bool use_reflectance_factors(Table& table);

/// True for measurements of a display.
bool is_display(const Table& table);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SPECTRAL_COLUMNS_H
