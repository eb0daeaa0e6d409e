// Tables as .ti3 text, which profilers read.
#ifndef MEASDATA_KIT_CONVERT_TI3_FORM_H
#define MEASDATA_KIT_CONVERT_TI3_FORM_H

#include "kit/convert/conversion.h"

#include <string>
#include <vector>

namespace measkit {

/// RGB on a scale of 100, XYZ or else Lab, spectra in percent. `rgb_scale` is the value of a full
/// channel in the table, 0 when it is not known; `lab` are those of the library, one row a row, for
/// a table without XYZ and Lab. Refuses a table without colours.
std::string ti3_of(Table& table, double rgb_scale, const Values& lab, int digits,
                   std::vector<std::string>& left_behind, RefusalWords& refusal);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_TI3_FORM_H
