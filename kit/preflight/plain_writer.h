// Writes a table as a measurement file that every reader takes.
#ifndef MEASDATA_KIT_PREFLIGHT_PLAIN_WRITER_H
#define MEASDATA_KIT_PREFLIGHT_PLAIN_WRITER_H

#include "kit/preflight/table.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace measkit {

/// The header as it stands but for what repairs changed, the fields on one line, true counts, and
/// the rows. Rows that no repair touched keep their very text.
std::string plain_text(Table& table);

/// The same without some fields, whose positions ascend.
std::string plain_text_without(Table& table, const std::vector<int>& left_out);

/// The plain text of a table of `rows` numeric rows, if a repair will move the points of its fields
/// by `shifts` and do nothing else. Empty when the rows differ in width.
std::string plain_text_in_advance(const Table& table, std::span<const int> shifts,
                                  std::size_t rows);
/// True when the table, repaired by now, has that plain text.
bool is_plain_text_in_advance(const Table& table, std::string_view text,
                              std::span<const int> shifts);

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_PLAIN_WRITER_H
