// Gives Lab to tables that state colours in another way.
#ifndef MEASDATA_KIT_PREFLIGHT_LAB_COLUMNS_H
#define MEASDATA_KIT_PREFLIGHT_LAB_COLUMNS_H

#include "kit/colour/adaptation.h"
#include "kit/preflight/conditions.h"
#include "kit/preflight/table.h"

#include <optional>

namespace measkit {

/// The white of the light and observer that a file states; D50 and 2 degrees where it states none
/// that has a table.
Tristimulus white_of(const std::optional<Stated>& illuminant,
                     const std::optional<Stated>& observer);

/// States that RGB patches are those of a display, where their XYZ or spectra prove it.
void recognise_display(Table& table);

/// Adds XYZ to a table that has chromaticities instead.
void use_xyz_of_chromaticities(Table& table);

/// XYZ on a scale of 0 to 1 become XYZ on a scale of 100, by moving the decimal point. False when
/// the scale is in doubt.
bool use_scale_of_hundred(Table& table);

/// Adds Lab to a table that has neither Lab nor reflectance spectra, from XYZ or LCh.
void add_lab(Table& table, bool is_scale_known);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_LAB_COLUMNS_H
