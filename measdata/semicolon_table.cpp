#include "measdata/semicolon_table.h"

#include "measdata/data_lines.h"
#include "measdata/line_reader.h"
#include "measdata/tokenizer.h"

#include <cstddef>

namespace vantor::MeasData {
namespace {

std::string_view find_identifier_line(std::string_view text, char comment_char) {
  LineReader lines(text);
  std::string_view found;
  lines.next(found);
  for (std::string_view line; lines.next(line);) {
    if (opens_comment(line, comment_char)) found = line;
  }
  return found;
}

void read_names(std::string_view line, ReaderTables& tables) {
  const std::size_t count = count_tokens(line, kSemicolonTable);
  tables.fields.reserve(count);
  tables.column_kinds.assign(count, ColumnKind::numeric);
  Tokenizer tokenizer(line, kSemicolonTable);
  for (std::string_view name; tokenizer.next(name);) tables.fields.append(name);
}

}  // namespace

void read_semicolon_table(std::string_view text, char comment_char, ReaderTables& tables) {
  read_names(find_identifier_line(text, comment_char), tables);
  const std::size_t width = tables.fields.names().size();

  LineReader first_line(text);
  std::string_view skipped;
  first_line.next(skipped);
  DataLineReader lines(first_line.rest(), kSemicolonTable, comment_char);
  for (DataLine line; lines.next(line);) {
    if (line.text.empty() || opens_comment(line.text, comment_char)) continue;
    const std::size_t cells = line.is_plain ? line.items : count_tokens(line.text, kSemicolonTable);
    if (cells >= width) tables.rows.push_back(line.text);
  }
}

}  // namespace vantor::MeasData
