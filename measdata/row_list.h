// The lines of a data block.
#ifndef MEASDATA_MEASDATA_ROW_LIST_H
#define MEASDATA_MEASDATA_ROW_LIST_H

#include "base/growing_list.h"
#include "measdata/line_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>

namespace vantor::MeasData {

/// Whole lines of a text, none of them empty, in eight bytes each: half of what views would take.
class RowList {
 public:
  RowList() = default;
  /// For lines of `text`, which must outlive the list.
  explicit RowList(std::string_view text) : text_(text) {}

  std::size_t size() const { return size_; }
  /// Forgets the rows and those to come, but for their number.
  void keep_size_alone() {
    if (!keeps_places_) return;
    places_ = {};
    keeps_places_ = false;
  }
  void push_back(std::string_view row) {
    ++size_;
    if (!keeps_places_) return;
    const auto start = static_cast<std::uint64_t>(row.data() - text_.data());
    if (start >> (64U - kLengthBits) != 0) throw std::bad_alloc();  // 1 TiB
    places_.push_back(start << kLengthBits | std::min<std::uint64_t>(row.size(), kLongLine));
  }
  std::string_view operator[](std::size_t row) const {
    const std::uint64_t place = places_[row];
    const auto start = static_cast<std::size_t>(place >> kLengthBits);
    const auto length = static_cast<std::size_t>(place & kLongLine);
    return length != kLongLine ? text_.substr(start, length) : line_at(start);
  }

 private:
  static constexpr unsigned kLengthBits = 24;  // the others are for the start
  // Stands for all lengths from this on.
  static constexpr std::uint64_t kLongLine = (std::uint64_t{1} << kLengthBits) - 1;

  std::string_view line_at(std::size_t start) const {
    std::string_view line;
    LineReader(text_.substr(start)).next(line);
    return line;
  }

  std::string_view text_;
  Base::GrowingList<std::uint64_t> places_;
  std::size_t size_ = 0;
  bool keeps_places_ = true;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_ROW_LIST_H
