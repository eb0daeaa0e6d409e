// Reads a table of values separated by semicolons, as spreadsheet programs write it.
#ifndef MEASDATA_MEASDATA_SEMICOLON_TABLE_H
#define MEASDATA_MEASDATA_SEMICOLON_TABLE_H

#include "measdata/reader_tables.h"

#include <string_view>

namespace vantor::MeasData {

/// The first line names the columns, or the last of the later lines that begin with the comment
/// character. Every further line is a row; empty ones, comments and rows that are too short are
/// left out. Nothing here is an error.
void read_semicolon_table(std::string_view text, char comment_char, ReaderTables& tables);

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_SEMICOLON_TABLE_H
