#include "measdata/meas_file_parser.h"

#include "measdata/header_grammar.h"
#include "measdata/semicolon_table.h"
#include "measdata/tokenizer.h"

#include <algorithm>

namespace vantor::MeasData {
namespace {

bool is_index(int index, std::size_t size) {
  return index >= 0 && static_cast<std::size_t>(index) < size;
}

}  // namespace

MeasFileParser::MeasFileParser(int mode) { set_mode(mode); }

void MeasFileParser::set_mode(int mode) {
  settings_.mode = static_cast<ReaderMode>(mode);
  if (settings_.mode == ReaderMode::plain_table) return;
  const bool is_table = settings_.mode == ReaderMode::semicolon_table;
  settings_.separator = is_table ? ';' : ' ';
  settings_.other_separator = is_table ? ';' : '\t';
  settings_.comment_char = is_table ? '%' : '#';
}

bool MeasFileParser::load_file(const char* path) {
  forget();
  if (!is_mode_known()) return false;
  switch (file_.read(path)) {
    case FileStatus::not_opened:
      return fail("Failed to open file '%'\n", {path});
    case FileStatus::not_read:
      return fail("Failed to read file '%'\n", {path});
    case FileStatus::ok:
      break;
  }
  if (file_.text().empty()) return fail("Empty file '%'\n", {path});
  return parse(file_.text());
}

bool MeasFileParser::load_memory(std::string_view text) {
  forget();
  copy_ = text;
  return load_view(copy_);
}

bool MeasFileParser::load_view(std::string_view text) {
  forget();
  if (!is_mode_known()) return false;
  if (text.empty()) return fail("File is empty\n", {});
  return parse(text);
}

bool MeasFileParser::is_mode_known() const {
  return settings_.mode >= ReaderMode::lenient && settings_.mode <= ReaderMode::plain_table;
}

void MeasFileParser::forget() {
  tables_ = ReaderTables();
  text_ = {};
  read_with_ = settings_;
}

bool MeasFileParser::fail(const char* format, MessageLog::Arguments arguments) {
  tables_.log.error(format, arguments);
  return false;
}

bool MeasFileParser::parse(std::string_view text) {
  text_ = text;
  const bool is_silent =
      settings_.mode == ReaderMode::lenient_silent || settings_.mode == ReaderMode::plain_table;
  tables_.log.reset(is_silent ? Warnings::drop : Warnings::write, text);
  tables_.rows = RowList(text);
  tables_.keeps_rows_of_wrong_width = keeps_rows_of_wrong_width_;
  numbers_ = NumberReader();  // the locale may have changed since the last load
  if (is_semicolon_table()) {
    read_semicolon_table(text, read_with_.comment_char, tables_);
  } else {
    HeaderGrammar(read_with_, tables_).read(text);
  }
  return tables_.log.no_errors();
}

std::string MeasFileParser::field_name(int index) const {
  const std::vector<std::string_view>& names = tables_.fields.names();
  if (!is_index(index, names.size())) return {};
  return std::string(names[static_cast<std::size_t>(index)]);
}

std::string MeasFileParser::value(int row, int column) const {
  CellCutter cutter;
  const std::span<const std::string_view> cells = cells_of_row(row, cutter);
  if (!is_index(column, cells.size())) return {};
  return text_of(cells[static_cast<std::size_t>(column)], column);
}

double MeasFileParser::value_as_double(int row, int column) const {
  return numbers_.read(value(row, column));
}

std::span<const std::string_view> MeasFileParser::cells_of_row(int row, CellCutter& cutter) const {
  if (!is_index(row, tables_.rows.size())) return {};
  const std::string_view line = tables_.rows[static_cast<std::size_t>(row)];
  if (!is_semicolon_table()) {
    return cutter.cut(text_, line, kBlankSeparated, read_with_.comment_char);
  }
  const auto cells = cutter.cut(text_, line, kSemicolonTable, read_with_.comment_char);
  return cells.first(std::min(cells.size(), tables_.fields.names().size()));
}

std::string MeasFileParser::text_of(std::string_view cell, int column) const {
  std::string text(cell);
  if (is_numeric(column)) {
    const std::size_t comma = text.find(',');
    if (comma != std::string::npos) text[comma] = '.';
  }
  return text;
}

bool MeasFileParser::is_known_field(std::string_view name) const {
  // A semicolon table knows no identifiers of its own.
  return !is_semicolon_table() && (MeasData::is_known_field(tables_.file_kind, name) ||
                                   tables_.declared_fields.contains(name));
}

}  // namespace vantor::MeasData
