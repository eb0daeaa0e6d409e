// Reads tables without the frame of a measurement file, as spreadsheets and instruments export
// them.
#ifndef MEASDATA_KIT_PREFLIGHT_SPREADSHEET_H
#define MEASDATA_KIT_PREFLIGHT_SPREADSHEET_H

#include "kit/preflight/table.h"

#include <string_view>
#include <vector>

namespace measkit {

/// One table, or none when nothing proves what the columns are; a finding then tells in one
/// sentence what was seen and what would help. `text` must outlive the table.
std::vector<Table> read_spreadsheet(std::string_view text, Findings& findings);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SPREADSHEET_H
