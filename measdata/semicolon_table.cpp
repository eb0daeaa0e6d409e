#include "measdata/semicolon_table.h"

#include "measdata/line_reader.h"
#include "measdata/tokenizer.h"

#include <cstddef>
#include <vector>

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

std::size_t count_cells(std::string_view line) {
  Tokenizer tokenizer(line, kSemicolonTable);
  std::size_t count = 0;
  for (std::string_view cell; tokenizer.next(cell);) ++count;
  return count;
}

}  // namespace

void read_semicolon_table(std::string_view text, char comment_char, ReaderTables& tables) {
  std::vector<std::string_view> names;
  split(find_identifier_line(text, comment_char), kSemicolonTable, names);
  for (const std::string_view name : names) {
    tables.fields.append(name);
    tables.column_kinds.push_back(ColumnKind::numeric);
  }

  LineReader lines(text);
  std::string_view line;
  lines.next(line);
  while (lines.next(line)) {
    if (line.empty() || opens_comment(line, comment_char)) continue;
    if (count_cells(line) >= names.size()) tables.rows.push_back(line);
  }
}

}  // namespace vantor::MeasData
