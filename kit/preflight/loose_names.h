// Field names that people write in place of those of the format.
#ifndef MEASDATA_KIT_PREFLIGHT_LOOSE_NAMES_H
#define MEASDATA_KIT_PREFLIGHT_LOOSE_NAMES_H

#include "kit/preflight/table.h"

namespace measkit {

/// Renames fields such as L*, a* and b*, C, M, Y and K, or 380nm to 730nm to the format's names.
/// Only what the table lacks otherwise is looked for: colours, device values or spectra.
void use_loose_names(Table& table);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_LOOSE_NAMES_H
