// Writes a table as a measurement file that every reader takes.
#ifndef MEASDATA_KIT_PREFLIGHT_PLAIN_WRITER_H
#define MEASDATA_KIT_PREFLIGHT_PLAIN_WRITER_H

#include "kit/preflight/table.h"

#include <string>

namespace measkit {

/// The header as it stands but for what repairs changed, the fields on one line, true counts, and
/// the rows. Rows that no repair touched keep their very text.
std::string plain_text(Table& table);

/// The same without some fields, whose positions ascend.
std::string plain_text_without(Table& table, const std::vector<int>& left_out);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_PLAIN_WRITER_H
