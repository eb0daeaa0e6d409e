#include "kit/convert/row_reader.h"

#include "kit/preflight/decimal_text.h"
#include "kit/preflight/loaded_numbers.h"
#include "measdata/tokenizer.h"

#include <algorithm>
#include <array>

namespace measkit {
namespace {

using vantor::MeasData::kBlankSeparated;

constexpr char kCommentChar = '#';

// Fields with a role are numeric; the cells of others stay as they are.
std::vector<bool> fields_with_commas(Table& table) {
  const bool may_have_some = table.is_cut() || table.data.find(',') != std::string_view::npos;
  return may_have_some ? numeric_fields(table, table.roles())
                       : std::vector<bool>(table.fields.size());
}

}  // namespace

RowReader::RowReader(Table& table)
    : table_(table),
      has_commas_(fields_with_commas(table)),
      lines_(table.data),
      cells_(table.fields.size()),
      made_(table.fields.size()) {
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const Field& field = table.fields[i];
    is_changed_.push_back(!field.texts.empty() || field.shift != 0 || has_commas_[i]);
  }
}

bool RowReader::next() {
  if (row_ == table_.row_count()) return false;
  const std::size_t row = row_++;
  if (table_.is_cut()) {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      const std::string_view cell = table_.own_cell(row, table_.fields[i]);
      cells_[i] = is_changed_[i] ? changed(i, row, cell) : cell;
    }
    return true;
  }
  std::span<const std::string_view> own;
  while (own.empty() && lines_.next()) {
    own = cutter_.cut(table_.data, lines_.line(), kBlankSeparated, kCommentChar);
  }
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const Field& field = table_.fields[i];
    const auto source = static_cast<std::size_t>(field.source);
    const std::string_view cell =
        field.source != kNoField && source < own.size() ? own[source] : std::string_view();
    cells_[i] = is_changed_[i] ? changed(i, row, cell) : cell;
  }
  return true;
}

// A cell as the table has it. The library reads the first comma of a number as its decimal point.
std::string_view RowReader::changed(std::size_t i, std::size_t row, std::string_view cell) {
  const Field& field = table_.fields[i];
  if (!field.texts.empty()) return field.texts[row];
  if (field.shift != 0) {
    std::string& made = made_[i];
    made.resize(cell.size() + room_for_moved_point(field.shift));
    char* const end = write_moved_point(cell, field.shift, made.data());
    return cell = {made.data(), static_cast<std::size_t>(end - made.data())};
  }
  const std::size_t comma = has_commas_[i] ? cell.find(',') : std::string_view::npos;
  if (comma == std::string_view::npos) return cell;
  made_[i].assign(cell);
  made_[i][comma] = '.';
  return made_[i];
}

bool is_text_field(std::string_view name) {
  static constexpr std::array<std::string_view, 8> kNames = {
      "SAMPLE_ID",  "STRING",      "SAMPLE_NO",   "SampleID",
      "SampleName", "Sample_Name", "SAMPLE_NAME", "SAMPLE_LOC"};
  return std::ranges::find(kNames, name) != kNames.end();
}

}  // namespace measkit
