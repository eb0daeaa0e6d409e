#include "kit/preflight/plain_writer.h"

#include "kit/preflight/shifted_rows.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <numeric>
#include <string_view>

namespace measkit {
namespace {

constexpr std::string_view kDefaultIdentifier = "CGATS.17";

bool is_count(std::string_view keyword) {
  return keyword == "NUMBER_OF_FIELDS" || keyword == "NUMBER_OF_SETS";
}

void append_header(const Table& table, std::string& out) {
  if (table.identifier.empty()) out += kDefaultIdentifier;
  out += table.identifier;
  out += '\n';
  for (const HeaderLine& line : table.header) {
    if (is_count(line.keyword)) continue;
    out += line.raw;
    out += '\n';
  }
}

void append_count(std::string_view keyword, std::size_t count, std::string& out) {
  out.append(keyword).append(" ").append(std::to_string(count)).append("\n");
}

bool has_blank(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\t'; });
}

// The most bytes that write_item() writes.
constexpr std::size_t room_for_item(std::size_t size) { return 2 * size + 3; }

// Quotes protect blanks and empty cells; a blank in front keeps a cell from being a comment. Quotes
// inside quotes are doubled, as the library leaves them when it reads.
char* write_item(std::string_view text, char* out) {
  const bool is_plain =
      !text.empty() && text.front() != '#' && text.front() != '"' && !has_blank(text);
  if (is_plain) {
    std::memcpy(out, text.data(), text.size());
    return out + text.size();
  }
  *out++ = '"';
  if (!text.empty() && text.front() == '#') *out++ = ' ';
  for (std::size_t i = 0; i < text.size(); ++i) {
    *out++ = text[i];
    if (text[i] != '"') continue;
    *out++ = '"';
    if (i + 1 < text.size() && text[i + 1] == '"') ++i;  // doubled already
  }
  *out++ = '"';
  return out;
}

void append_item(std::string_view text, std::string& out) {
  const std::size_t size = out.size();
  out.resize(size + room_for_item(text.size()));
  out.resize(static_cast<std::size_t>(write_item(text, out.data() + size) - out.data()));
}

enum class Rows { own, shifted, cells };

// What the rows take: the file's text, the same with some decimal points moved, or new text.
Rows rows_of(const Table& table) {
  if (table.is_cut()) return Rows::cells;
  Rows rows = Rows::own;
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const Field& field = table.fields[i];
    if (!field.texts.empty() || field.source != static_cast<int>(i)) return Rows::cells;
    if (field.shift != 0) rows = Rows::shifted;
  }
  return rows;
}

void append_rows(Table& table, const std::vector<int>& fields, std::string& out) {
  for (std::size_t row = 0; row < table.row_count(); ++row) {
    for (const int field : fields) {
      append_item(table.cell(row, field), out);
      out += '\t';
    }
    if (!fields.empty()) out.back() = '\n';
  }
}

std::vector<int> shifts_of(const Table& table) {
  std::vector<int> shifts;
  for (const Field& field : table.fields) shifts.push_back(field.shift);
  return shifts;
}

std::vector<int> all_fields(const Table& table) {
  std::vector<int> fields(table.fields.size());
  std::iota(fields.begin(), fields.end(), 0);
  return fields;
}

// Everything before the rows.
std::string head_of(const Table& table, const std::vector<int>& fields, std::size_t rows) {
  std::string out;
  append_header(table, out);
  append_count("NUMBER_OF_FIELDS", fields.size(), out);
  out += "BEGIN_DATA_FORMAT\n";
  for (const int field : fields) {
    append_item(table.fields[static_cast<std::size_t>(field)].name, out);
    out += '\t';
  }
  if (!fields.empty()) out.back() = '\n';
  out += "END_DATA_FORMAT\n";
  append_count("NUMBER_OF_SETS", rows, out);
  return out += "BEGIN_DATA\n";
}

std::string write(Table& table, const std::vector<int>& fields, Rows rows) {
  const std::string head = head_of(table, fields, table.row_count());
  std::string out;
  out.reserve(head.size() + table.data.size() + table.data.size() / 4 + 1024);
  out += head;
  switch (rows) {
    case Rows::own:
      out += table.data;
      if (!table.data.empty() && table.data.back() != '\n' && table.data.back() != '\r')
        out += '\n';
      break;
    case Rows::shifted:
      append_shifted_rows(table.data, table.text_cells, shifts_of(table), out);
      break;
    case Rows::cells:
      append_rows(table, fields, out);
      break;
  }
  return out += "END_DATA\n";
}

}  // namespace

std::string plain_text(Table& table) { return plain_text_without(table, {}); }

std::string plain_text_in_advance(const Table& table, std::span<const int> shifts,
                                  std::size_t rows) {
  std::string out;
  out.reserve(table.data.size() + table.data.size() / 4 + 1024);
  out += head_of(table, all_fields(table), rows);
  if (!append_shifted_rows(table.data, table.text_cells, shifts, out)) return {};
  return out += "END_DATA\n";
}

bool is_plain_text_in_advance(const Table& table, std::string_view text,
                              std::span<const int> shifts) {
  return rows_of(table) == Rows::shifted && std::ranges::equal(shifts, shifts_of(table)) &&
         text.starts_with(head_of(table, all_fields(table), table.row_count()));
}

std::string plain_text_without(Table& table, const std::vector<int>& left_out) {
  std::vector<int> fields;
  for (int i = 0; i < static_cast<int>(table.fields.size()); ++i) {
    if (!std::binary_search(left_out.begin(), left_out.end(), i)) fields.push_back(i);
  }
  return write(table, fields, left_out.empty() ? rows_of(table) : Rows::cells);
}

}  // namespace measkit
