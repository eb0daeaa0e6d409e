// A column of texts: one a patch.
#ifndef MEASDATA_DATASET_TEXT_COLUMN_H
#define MEASDATA_DATASET_TEXT_COLUMN_H

#include "base/copy_on_write.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace vantor::DataSet {

/// Zero-terminated texts in a single block, so that a million sample names are two allocations.
/// Copies of the column share it.
class TextColumn {
 public:
  void append(std::string_view text) {
    Texts& texts = texts_.edit();
    texts.starts.push_back(texts.bytes.size());
    texts.bytes.insert(texts.bytes.end(), text.begin(), text.end());
    texts.bytes.push_back('\0');
  }
  void reserve(std::size_t rows) {
    texts_.edit().starts.reserve(rows);
    texts_.edit().bytes.reserve(rows * kUsualLength);
  }
  std::size_t size() const { return texts_.get().starts.size(); }
  bool empty() const { return size() == 0; }
  std::string_view at(std::size_t row) const {
    const Texts& texts = texts_.get();
    const std::size_t end = row + 1 < size() ? texts.starts[row + 1] : texts.bytes.size();
    return {c_str(row), end - texts.starts[row] - 1};
  }
  /// Valid until the next append.
  const char* c_str(std::size_t row) const {
    const Texts& texts = texts_.get();
    return texts.bytes.data() + texts.starts[row];
  }
  /// All texts, each with its zero.
  std::span<const char> bytes() const { return texts_.get().bytes; }

 private:
  static constexpr std::size_t kUsualLength = 8;
  struct Texts {
    std::vector<char> bytes;
    std::vector<std::size_t> starts;
  };

  Base::CopyOnWrite<Texts> texts_;
};

}  // namespace vantor::DataSet

#endif  // MEASDATA_DATASET_TEXT_COLUMN_H
