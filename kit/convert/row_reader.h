// Walks through the rows of a table without keeping its cells.
#ifndef MEASDATA_KIT_CONVERT_ROW_READER_H
#define MEASDATA_KIT_CONVERT_ROW_READER_H

#include "kit/preflight/line_cursor.h"
#include "kit/preflight/table.h"
#include "measdata/cell_cutter.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace measkit {

/// A million rows take no more memory than one. Numbers have a decimal point, whatever the file
/// has.
class RowReader {
 public:
  /// `table` must have rows that the library reads or that are cut.
  explicit RowReader(Table& table);

  /// Moves to the next row; false when there is none.
  bool next();
  /// The cells of the row, one a field; valid until next().
  std::span<const std::string_view> cells() const { return cells_; }

 private:
  std::string_view changed(std::size_t i, std::size_t row, std::string_view cell);

  Table& table_;
  std::vector<bool> is_changed_;  // fields whose cells may differ from those of the file
  std::vector<bool> has_commas_;
  LineCursor lines_;
  vantor::MeasData::CellCutter cutter_;
  std::size_t row_ = 0;
  std::vector<std::string_view> cells_;
  std::vector<std::string> made_;  // one a field
};

/// True for fields that hold text whatever their cells look like: ids, names, locations.
bool is_text_field(std::string_view name);

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_ROW_READER_H
