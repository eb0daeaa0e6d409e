// Keeps the texts that repairs make.
#ifndef MEASDATA_KIT_PREFLIGHT_TEXT_POOL_H
#define MEASDATA_KIT_PREFLIGHT_TEXT_POOL_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace measkit {

/// Texts stay where they are as long as the pool lives. Many small texts share a block.
class TextPool {
 public:
  /// Room for a text of at most `size` bytes; keep() makes it a text.
  char* room(std::size_t size) {
    if (left_ < size) {
      left_ = std::max(size, kBlockSize);
      blocks_.push_back(std::make_unique_for_overwrite<char[]>(left_));
      next_ = blocks_.back().get();
    }
    return next_;
  }
  /// The first `size` bytes of the room.
  std::string_view keep(std::size_t size) {
    const std::string_view text(next_, size);
    next_ += size;
    left_ -= size;
    return text;
  }
  std::string_view add(std::string_view text) {
    if (text.empty()) return {};
    std::memcpy(room(text.size()), text.data(), text.size());
    return keep(text.size());
  }

 private:
  static constexpr std::size_t kBlockSize = std::size_t{1} << 16U;

  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_PREFLIGHT_TEXT_POOL_H
