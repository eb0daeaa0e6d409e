// A text that grows in large steps and is written through a pointer.
#ifndef MEASDATA_KIT_CONVERT_TEXT_BUFFER_H
#define MEASDATA_KIT_CONVERT_TEXT_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace measkit {

class TextBuffer {
 public:
  explicit TextBuffer(std::size_t expected) : TextBuffer({}, expected) {}
  /// Goes on behind `start`.
  TextBuffer(std::string start, std::size_t expected)
      : text_(std::move(start)), used_(text_.size()) {
    text_.resize(used_ + expected + kLeast);
  }

  /// Room for `size` bytes behind the text; keep() tells how much of it was used.
  char* room(std::size_t size) {
    if (text_.size() - used_ < size) {
      text_.resize(std::max(text_.size() + text_.size() / 2, used_ + size + kLeast));
    }
    return text_.data() + used_;
  }
  void keep(const char* end) { used_ = static_cast<std::size_t>(end - text_.data()); }
  void add(std::string_view text) {
    char* const start = room(text.size());
    if (!text.empty()) std::memcpy(start, text.data(), text.size());
    used_ += text.size();
  }

  std::string take() {
    text_.resize(std::exchange(used_, 0));
    return std::exchange(text_, {});
  }

 private:
  static constexpr std::size_t kLeast = 4096;

  std::string text_;
  std::size_t used_;
};

/// Copies a text to `out`; the end of the copy. Most cells are short: two words that may overlap
/// copy them faster than a call.
inline char* copy_text(std::string_view text, char* out) {
  const char* const from = text.data();
  const std::size_t size = text.size();
  constexpr std::size_t kWord = 8, kHalf = 4;
  if (size > 2 * kWord) {
    std::memcpy(out, from, size);
  } else if (size >= kWord) {
    std::memcpy(out, from, kWord);
    std::memcpy(out + size - kWord, from + size - kWord, kWord);
  } else if (size >= kHalf) {
    std::memcpy(out, from, kHalf);
    std::memcpy(out + size - kHalf, from + size - kHalf, kHalf);
  } else {
    for (std::size_t i = 0; i < size; ++i) out[i] = from[i];
  }
  return out + size;
}

}  // namespace measkit

#endif  // MEASDATA_KIT_CONVERT_TEXT_BUFFER_H
