#include "kit/convert/json_form.h"

#include "kit/convert/columns.h"
#include "kit/convert/json_number.h"
#include "kit/convert/row_reader.h"
#include "kit/convert/text_buffer.h"
#include "kit/preflight/converted_text.h"
#include "kit/preflight/header_lines.h"
#include "kit/write/printable_text.h"

#include <algorithm>
#include <set>
#include <span>

namespace measkit {
namespace {

// The most bytes that a byte of text takes, as "\u001f".
constexpr std::size_t kMostOfByte = 6;

char* write_escaped(std::string_view text, char* out) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  *out++ = '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      *out++ = '\\';
      *out++ = c;
    } else if (byte >= 0x20) {
      *out++ = c;
    } else {
      out = copy_text("\\u00", out);
      *out++ = kDigits[byte >> 4U];
      *out++ = kDigits[byte & 0x0FU];
    }
  }
  *out++ = '"';
  return out;
}

bool is_ascii(std::string_view text) {
  return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

void add_text(std::string_view text, TextBuffer& out) {
  const std::string utf8 = is_ascii(text) ? std::string() : utf8_of(text);
  const std::string_view written = utf8.empty() ? text : utf8;
  out.keep(write_escaped(written, out.room(kMostOfByte * written.size() + 2)));
}

// The line of a keyword as this form would write it back.
bool is_usual(const HeaderLine& line) {
  const std::string_view raw = line.raw;
  const std::string quoted = "\"" + line.value + "\"";
  if (!is_keyword(line.keyword) || !raw.starts_with(line.keyword) ||
      line.value.find('"') != std::string::npos)
    return false;
  const std::string_view rest = raw.substr(line.keyword.size());
  const std::size_t start = rest.find_first_not_of(" \t");
  if (start == 0) return false;
  if (start == std::string_view::npos) return false;
  return rest.substr(start) == quoted || (rest.substr(start) == line.value &&
                                          line.value.find_first_of(" \t#") == std::string::npos);
}

void add_header(const Table& table, TextBuffer& out) {
  bool is_first = true;
  for (const HeaderLine& line : table.header) {
    if (line.keyword == "NUMBER_OF_FIELDS" || line.keyword == "NUMBER_OF_SETS") continue;
    out.add(is_first ? "\n    {" : ",\n    {");
    is_first = false;
    if (line.keyword.empty()) {
      out.add("\"comment\": ");
      add_text(line.raw, out);
    } else {
      out.add("\"keyword\": ");
      add_text(line.keyword, out);
      out.add(", \"value\": ");
      add_text(line.value, out);
      if (!is_usual(line)) {
        out.add(", \"line\": ");
        add_text(line.raw, out);
      }
    }
    out.add("}");
  }
}

void add_fields(const Table& table, const std::vector<std::string>& units, TextBuffer& out) {
  out.add("\n   ],\n   \"fields\": [");
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    if (i != 0) out.add(", ");
    add_text(table.fields[i].name, out);
  }
  out.add("],\n   \"units\": [");
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (i != 0) out.add(", ");
    if (units[i].empty()) {
      out.add("null");
    } else {
      add_text(units[i], out);
    }
  }
  out.add("],\n   \"patches\": [");
}

std::vector<bool> numeric_columns(const Table& table) {
  std::vector<bool> is_numeric;
  for (const Field& field : table.fields) is_numeric.push_back(!is_text_field(field.name));
  return is_numeric;
}

// Writes the cells of a row, each behind its lead.
class RowWriter {
 public:
  RowWriter(const Table& table, std::vector<std::string> leads)
      : is_numeric_(numeric_columns(table)), leads_(std::move(leads)) {
    for (const std::string& lead : leads_) size_of_leads_ += lead.size();
  }

  void write(std::span<const std::string_view> cells, std::string_view end, TextBuffer& out) const {
    std::size_t size = size_of_leads_ + end.size();
    for (const std::string_view cell : cells) size += kMostOfByte * cell.size() + 2;
    char* to = out.room(size);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      to = copy_text(leads_[i], to);
      char* const number_end = is_numeric_[i] ? write_json_number(cells[i], to) : nullptr;
      if (number_end != nullptr) {
        to = number_end;
      } else if (is_ascii(cells[i])) {
        to = write_escaped(cells[i], to);
      } else {
        const std::string utf8 = utf8_of(cells[i]);  // at most twice as long
        to = write_escaped(utf8, to);
      }
    }
    out.keep(copy_text(end, to));
  }

 private:
  std::vector<bool> is_numeric_;
  std::vector<std::string> leads_;
  std::size_t size_of_leads_ = 0;
};

}  // namespace

std::string json_start() {
  return "{\n \"format\": \"" + std::string(kJsonFormat) +
         "\",\n \"version\": " + std::to_string(kJsonVersion) + ",\n \"charts\": [";
}

std::string json_end() { return "\n ]\n}\n"; }

std::string json_of(std::string before, Table& table, std::string_view name,
                    const std::vector<std::string>& units) {
  TextBuffer out(std::move(before),
                 table.data.size() + 2 * table.row_count() * table.fields.size());
  out.add("\n  {\n   \"name\": ");
  add_text(name, out);
  out.add(",\n   \"identifier\": ");
  add_text(table.identifier.empty() ? "CGATS.17" : table.identifier, out);
  out.add(",\n   \"header\": [");
  add_header(table, out);
  add_fields(table, units, out);
  std::vector<std::string> leads(table.fields.size(), ", ");
  if (!leads.empty()) leads.front() = "\n    [";
  const RowWriter writer(table, std::move(leads));
  bool is_first = true;
  for (RowReader rows(table); rows.next(); is_first = false) {
    if (!is_first) out.add(",");
    writer.write(rows.cells(), "]", out);
  }
  out.add("\n   ]\n  }");
  return out.take();
}

std::string json_lines_of(Table& table) {
  std::vector<std::string> leads;
  TextBuffer lead(0);
  std::set<std::string> keys;
  for (const Field& field : table.fields) {
    lead.add(leads.empty() ? "{" : ", ");
    std::string key = field.name;
    for (int i = 2; !keys.insert(key).second; ++i) key = field.name + "_" + std::to_string(i);
    add_text(key, lead);
    lead.add(": ");
    leads.push_back(lead.take());
  }
  const RowWriter writer(table, std::move(leads));
  TextBuffer out(4 * table.data.size());
  for (RowReader rows(table); rows.next();) writer.write(rows.cells(), "}\n", out);
  return out.take();
}

}  // namespace measkit
