// A table of numbers: one row a patch.
#ifndef MEASDATA_COLORTYPES_VALUE_TABLE_H
#define MEASDATA_COLORTYPES_VALUE_TABLE_H

#include <cstddef>
#include <memory>
#include <span>

namespace vantor::ColorTypes {

/// Rows of equal width, one behind the other in a single block. A table is filled once; copies of
/// it share the block.
class ValueTable {
 public:
  /// Forgets all rows and makes room for others, one behind the other from the address that it
  /// gives: the caller fills them, all of them, before anything else is done with the table.
  double* reset(std::size_t width, std::size_t rows) {
    *this = ValueTable();
    const std::shared_ptr<double[]> values(new double[width * rows]);  // not zeroed
    values_ = values;
    width_ = width;
    rows_ = rows;
    return values.get();
  }

  std::size_t rows() const { return rows_; }
  std::size_t width() const { return width_; }
  bool empty() const { return rows_ == 0; }
  std::span<const double> row(std::size_t index) const {
    return {values_.get() + index * width_, width_};
  }
  /// All rows, one behind the other.
  std::span<const double> values() const { return {values_.get(), rows_ * width_}; }

 private:
  std::shared_ptr<const double[]> values_;
  std::size_t width_ = 0;
  std::size_t rows_ = 0;
};

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_VALUE_TABLE_H
