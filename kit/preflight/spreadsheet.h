// Reads tables without the frame of a measurement file, as spreadsheets and instruments export
// them.
#ifndef MEASDATA_KIT_PREFLIGHT_SPREADSHEET_H
#define MEASDATA_KIT_PREFLIGHT_SPREADSHEET_H

#include "kit/preflight/table.h"

#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// The text with blanks for the line breaks inside quoted cells, in `storage`; the text itself when
/// there are none. `text` may lie in `storage`.
std::string_view with_cells_on_one_line(std::string_view text, std::string& storage,
                                        Findings& findings);

/// The tables of the text, or none when nothing proves what the columns are; a finding then tells
/// in one sentence what was seen and what would help. `text` must outlive the tables.
std::vector<Table> read_spreadsheet(std::string_view text, Findings& findings);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_SPREADSHEET_H
