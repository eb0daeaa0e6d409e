#include "kit/preflight/plain_writer.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/line_cursor.h"
#include "measdata/cell_cutter.h"
#include "measdata/tokenizer.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
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

// Rows go from the file to the text without being kept.
void append_shifted_rows(const Table& table, std::string& out) {
  std::size_t room = 1;
  for (const Field& field : table.fields) room += 2 + room_for_moved_point(field.shift);
  vantor::MeasData::CellCutter cutter;
  std::size_t size = out.size();
  for (LineCursor lines(table.data); lines.next();) {
    const auto cells = cutter.cut(table.data, lines.line(), vantor::MeasData::kBlankSeparated, '#');
    if (cells.empty()) continue;
    const std::size_t row_room = room_for_item(lines.line().size()) + room;
    if (out.size() < size + row_room) out.resize(2 * (size + row_room));
    char* end = out.data() + size;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const int shift = table.fields[i].shift;
      if (shift != 0) {
        end = write_moved_point(cells[i], shift, end);
      } else {
        end = write_item(cells[i], end);
      }
      *end++ = '\t';
    }
    end[-1] = '\n';
    size = static_cast<std::size_t>(end - out.data());
  }
  out.resize(size);
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

std::string write(Table& table, const std::vector<int>& fields, Rows rows) {
  std::string out;
  out.reserve(table.data.size() + table.data.size() / 4 + 1024);
  append_header(table, out);
  append_count("NUMBER_OF_FIELDS", fields.size(), out);
  out += "BEGIN_DATA_FORMAT\n";
  for (const int field : fields) {
    append_item(table.fields[static_cast<std::size_t>(field)].name, out);
    out += '\t';
  }
  if (!fields.empty()) out.back() = '\n';
  out += "END_DATA_FORMAT\n";
  append_count("NUMBER_OF_SETS", table.row_count(), out);
  out += "BEGIN_DATA\n";
  switch (rows) {
    case Rows::own:
      out += table.data;
      if (!table.data.empty() && table.data.back() != '\n' && table.data.back() != '\r')
        out += '\n';
      break;
    case Rows::shifted:
      append_shifted_rows(table, out);
      break;
    case Rows::cells:
      append_rows(table, fields, out);
      break;
  }
  return out += "END_DATA\n";
}

}  // namespace

std::string plain_text(Table& table) { return plain_text_without(table, {}); }

std::string plain_text_without(Table& table, const std::vector<int>& left_out) {
  std::vector<int> fields;
  for (int i = 0; i < static_cast<int>(table.fields.size()); ++i) {
    if (!std::binary_search(left_out.begin(), left_out.end(), i)) fields.push_back(i);
  }
  return write(table, fields, left_out.empty() ? rows_of(table) : Rows::cells);
}

}  // namespace measkit
