// Finds the tables of a measurement file: headers, lists of fields and data blocks.
#ifndef MEASDATA_KIT_PREFLIGHT_FRAME_READER_H
#define MEASDATA_KIT_PREFLIGHT_FRAME_READER_H

#include "kit/preflight/table.h"

#include <string_view>
#include <vector>

namespace measkit {

/// True when some line begins with `marker`, such as BEGIN_DATA.
bool has_marker_line(std::string_view text, std::string_view marker);

/// All tables of a text with BEGIN_DATA lines, in their order. A table has at least one field and a
/// data block; a later table without a list of fields takes that of the one before. What deviates
/// from the frame that the library reads is put right and told.
///
/// `text` must outlive the tables.
std::vector<Table> read_frames(std::string_view text, Findings& findings);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_FRAME_READER_H
