// Settles how many fields and rows a table has.
#ifndef MEASDATA_KIT_PREFLIGHT_STRUCTURE_H
#define MEASDATA_KIT_PREFLIGHT_STRUCTURE_H

#include "kit/preflight/table.h"

namespace measkit {

/// Loads the table's text where the library reads it as it stands, else cuts its cells. Afterwards
/// every row has one cell for each field, and counts that the file declares wrongly are told.
void settle_structure(Table& table, const char* name);

/// Cells for which the file has a sign of "not measured" become nan.
void mark_missing_values(Table& table);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_STRUCTURE_H
