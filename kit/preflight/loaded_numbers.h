// Has the library read the numbers of a table.
#ifndef MEASDATA_KIT_PREFLIGHT_LOADED_NUMBERS_H
#define MEASDATA_KIT_PREFLIGHT_LOADED_NUMBERS_H

#include "kit/preflight/table.h"

#include <vector>

namespace measkit {

/// Which fields hold numbers that matter.
std::vector<bool> numeric_fields(const Table& table, const Roles& roles);

/// Loads the table's text when the library reads it as it stands and every cell that matters is a
/// number: no cell stands for a value that is missing. When the first rows look like percent, their
/// plain text in factors is made and loaded at once, since a load takes most of the time.
void load_numbers(Table& table, const char* name);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_LOADED_NUMBERS_H
