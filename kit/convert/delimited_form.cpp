#include "kit/convert/delimited_form.h"

#include "kit/convert/columns.h"
#include "kit/convert/row_reader.h"
#include "kit/convert/text_buffer.h"
#include "kit/preflight/converted_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace measkit {
namespace {

std::string header_of(const Table& table) {
  const std::string& identifier = table.identifier;
  std::string out(kDelimitedMark);
  out.append(identifier.empty() ? "CGATS.17" : identifier).append("\n");
  for (const HeaderLine& line : table.header) {
    if (line.keyword == "NUMBER_OF_FIELDS" || line.keyword == "NUMBER_OF_SETS") continue;
    for (LineCursor lines(line.raw); lines.next();)
      out.append("# ").append(lines.line()).append("\n");
  }
  return out;
}

// Bytes of a cell that ask for quotes.
class SpecialBytes {
 public:
  explicit SpecialBytes(char delimiter) {
    for (const char byte : {'"', '\n', '\r', '#', delimiter}) {
      is_special_[static_cast<std::uint8_t>(byte)] = true;
    }
  }
  // Blanks at the ends get lost without quotes.
  bool are_in(std::string_view text) const {
    if (text.starts_with(' ') || text.ends_with(' ')) return true;
    return std::ranges::any_of(
        text, [this](char c) { return is_special_[static_cast<std::uint8_t>(c)]; });
  }

 private:
  std::array<bool, 256> is_special_{};
};

char* write_quoted(std::string_view text, char* out) {
  *out++ = '"';
  for (const char c : text) {
    if (c == '"') *out++ = '"';
    *out++ = c;
  }
  *out++ = '"';
  return out;
}

class RowWriter {
 public:
  RowWriter(const Table& table, const DelimitedForm& form) : form_(form), special_(form.delimiter) {
    const std::vector<ColumnGroup> groups = column_groups(table);
    for (const ColumnGroup group : groups) {
      const bool is_text = group == ColumnGroup::names || group == ColumnGroup::unknown;
      has_comma_.push_back(form.decimal_comma && !is_text);
    }
  }

  enum class Row { titles, cells };

  void write(std::span<const std::string_view> cells, Row row, TextBuffer& out) const {
    constexpr std::size_t kMostAdded = 3;  // quotes and a delimiter
    std::size_t size = 0;
    for (const std::string_view cell : cells) size += 2 * cell.size() + kMostAdded;
    char* to = out.room(size + 1);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i != 0) *to++ = form_.delimiter;
      char* const start = to;
      to = special_.are_in(cells[i]) ? write_quoted(cells[i], to) : copy_text(cells[i], to);
      if (row == Row::cells && has_comma_[i]) std::replace(start, to, '.', ',');
    }
    *to++ = '\n';
    out.keep(to);
  }

 private:
  DelimitedForm form_;
  SpecialBytes special_;
  std::vector<bool> has_comma_;
};

}  // namespace

std::string delimited_text_of(Table& table, const DelimitedForm& form,
                              const std::vector<std::string>& units) {
  TextBuffer out(table.data.size() + table.data.size() / 8);
  if (!form.bare) out.add(header_of(table));
  std::vector<std::string> titles;
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    titles.push_back(table.fields[i].name + (units[i].empty() ? "" : " [" + units[i] + "]"));
  }
  const RowWriter writer(table, form);
  writer.write(std::vector<std::string_view>(titles.begin(), titles.end()), RowWriter::Row::titles,
               out);
  for (RowReader rows(table); rows.next();) writer.write(rows.cells(), RowWriter::Row::cells, out);
  return out.take();
}

}  // namespace measkit
