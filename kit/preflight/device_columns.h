// Device values under other names, and columns that only look like device values.
#ifndef MEASDATA_KIT_PREFLIGHT_DEVICE_COLUMNS_H
#define MEASDATA_KIT_PREFLIGHT_DEVICE_COLUMNS_H

#include "kit/preflight/table.h"

namespace measkit {

/// Gives the fields that other programs name differently the names of the format: other letter case
/// (lab_l), ink letters (CMYKOG_C), GRAY_K, iRGB_R.
void use_format_names(Table& table);

/// Device values that are the same in every row although the colours differ are placeholders.
void set_placeholders_aside(Table& table);

/// The value at which a channel is full: 1, 100 or 255 for RGB, by the largest value of the table;
/// 0 when no value fits.
double full_scale(double largest_value);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_DEVICE_COLUMNS_H
