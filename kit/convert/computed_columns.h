// Columns of a converted table that are computed.
#ifndef MEASDATA_KIT_CONVERT_COMPUTED_COLUMNS_H
#define MEASDATA_KIT_CONVERT_COMPUTED_COLUMNS_H

#include "kit/chart/chart.h"
#include "kit/convert/conversion.h"
#include "kit/preflight/table.h"

#include <string_view>

namespace measkit {

/// A number as text, with so many significant digits; 0: as few as read back equal.
std::string_view number_text(double value, int digits, TextPool& pool);

/// Replaces the Lab of a table by, or adds, those of its XYZ for the light that the header states.
RefusalWords use_lab_of_xyz(Table& table, int digits);
/// The same with those of the library, one row a row of the table.
void use_lab(Table& table, const Values& lab, int digits);

/// Brings spectra to other wavelengths. Each new value is the mean of the samples around it, with
/// weights that fall linearly to 0 at the distance of a step: that of the new wavelengths or, where
/// it is larger, that of the old ones.
RefusalWords use_grid(Table& table, const WavelengthRange& range, int digits);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_COMPUTED_COLUMNS_H
