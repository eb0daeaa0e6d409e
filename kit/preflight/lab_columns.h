// Gives Lab to tables that state colours in another way.
#ifndef MEASDATA_KIT_PREFLIGHT_LAB_COLUMNS_H
#define MEASDATA_KIT_PREFLIGHT_LAB_COLUMNS_H

#include "kit/preflight/table.h"

namespace measkit {

/// Adds XYZ to a table that has chromaticities instead.
void use_xyz_of_chromaticities(Table& table);

/// XYZ on a scale of 0 to 1 become XYZ on a scale of 100, by moving the decimal point. False when
/// the scale is in doubt.
bool use_scale_of_hundred(Table& table);

/// Adds Lab to a table that has neither Lab nor reflectance spectra, from XYZ or LCh.
void add_lab(Table& table, bool is_scale_known);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_LAB_COLUMNS_H
