// A table of numbers: one row a patch.
#ifndef MEASDATA_COLORTYPES_VALUE_TABLE_H
#define MEASDATA_COLORTYPES_VALUE_TABLE_H

#include <cstddef>
#include <span>
#include <vector>

namespace vantor::ColorTypes {

/// Rows of equal width, one behind the other in a single block.
class ValueTable {
 public:
  /// Forgets all rows, gives their memory back and sets the width of the rows to come.
  void reset(std::size_t width) {
    *this = ValueTable();
    width_ = width;
  }
  void reserve(std::size_t rows) { values_.reserve(rows * width_); }
  /// Adds a row of zeros and gives it to be filled.
  std::span<double> append_row() {
    values_.resize(values_.size() + width_);
    ++rows_;
    return {values_.data() + (rows_ - 1) * width_, width_};
  }

  std::size_t rows() const { return rows_; }
  std::size_t width() const { return width_; }
  bool empty() const { return rows_ == 0; }
  std::span<const double> row(std::size_t index) const {
    return {values_.data() + index * width_, width_};
  }

 private:
  std::vector<double> values_;
  std::size_t width_ = 0;
  std::size_t rows_ = 0;
};

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_VALUE_TABLE_H
