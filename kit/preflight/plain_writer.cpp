#include "kit/preflight/plain_writer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace measkit {
namespace {

constexpr std::string_view kDefaultIdentifier = "CGATS.17";

bool is_count(std::string_view keyword) {
  return keyword == "NUMBER_OF_FIELDS" || keyword == "NUMBER_OF_SETS";
}

void append_header(const Table& table, std::string& out) {
  out += table.identifier.empty() ? kDefaultIdentifier : std::string_view(table.identifier);
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

// Quotes protect blanks, comment characters and empty cells. A quote inside cannot be written,
// since readers differ in how they read it.
void append_item(std::string_view text, std::string& out) {
  const bool is_plain =
      !text.empty() && text.front() != '#' && text.find_first_of(" \t\"") == std::string_view::npos;
  if (is_plain) {
    out += text;
    return;
  }
  out += '"';
  for (const char c : text) out += c == '"' ? '\'' : c;
  out += '"';
}

// True when the data block needs no change: each field is still the file's own column.
bool has_own_rows(const Table& table) {
  if (table.is_cut()) return false;
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const Field& field = table.fields[i];
    if (!field.texts.empty() || field.source != static_cast<int>(i)) return false;
  }
  return true;
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

std::string write(Table& table, const std::vector<int>& fields, bool keeps_rows) {
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
  if (keeps_rows) {
    out += table.data;
    if (!table.data.empty() && table.data.back() != '\n' && table.data.back() != '\r') out += '\n';
  } else {
    append_rows(table, fields, out);
  }
  return out += "END_DATA\n";
}

}  // namespace

std::string plain_text(Table& table) { return plain_text_without(table, {}); }

std::string plain_text_without(Table& table, const std::vector<int>& left_out) {
  std::vector<int> fields;
  for (int i = 0; i < static_cast<int>(table.fields.size()); ++i) {
    if (std::find(left_out.begin(), left_out.end(), i) == left_out.end()) fields.push_back(i);
  }
  return write(table, fields, left_out.empty() && has_own_rows(table));
}

}  // namespace measkit
