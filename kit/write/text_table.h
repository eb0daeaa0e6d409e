// A table of text for a terminal.
#ifndef MEASDATA_KIT_WRITE_TEXT_TABLE_H
#define MEASDATA_KIT_WRITE_TEXT_TABLE_H

#include <cstddef>
#include <string>
#include <vector>

namespace measkit {

enum class Align { left, right };

/// Columns are as wide as their widest cell. Cells are added row by row; they must be printable.
class TextTable {
 public:
  void add_column(std::string title, Align align);
  void add(std::string cell);
  std::size_t columns() const { return widths_.size(); }
  /// The titles and all rows.
  std::vector<std::string> lines() const;

 private:
  std::vector<std::size_t> widths_;
  std::vector<Align> aligns_;
  std::vector<std::string> cells_;  // titles first
};

}  // namespace measkit

#endif  // MEASDATA_KIT_WRITE_TEXT_TABLE_H
