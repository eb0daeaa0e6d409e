// A column of texts: one a patch.
#ifndef MEASDATA_DATASET_TEXT_COLUMN_H
#define MEASDATA_DATASET_TEXT_COLUMN_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace vantor::DataSet {

/// Zero-terminated texts in a single block, so that a million sample names are two allocations.
class TextColumn {
 public:
  void append(std::string_view text) {
    starts_.push_back(bytes_.size());
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    bytes_.push_back('\0');
  }
  void reserve(std::size_t rows) { starts_.reserve(rows); }
  std::size_t size() const { return starts_.size(); }
  bool empty() const { return starts_.empty(); }
  std::string_view at(std::size_t row) const {
    const std::size_t end = row + 1 < starts_.size() ? starts_[row + 1] : bytes_.size();
    return {c_str(row), end - starts_[row] - 1};
  }
  /// Valid until the next append.
  const char* c_str(std::size_t row) const { return bytes_.data() + starts_[row]; }

 private:
  std::vector<char> bytes_;
  std::vector<std::size_t> starts_;
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_TEXT_COLUMN_H
