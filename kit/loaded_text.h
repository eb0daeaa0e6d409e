// A handle of the library that is released with its owner.
#ifndef MEASDATA_KIT_LOADED_TEXT_H
#define MEASDATA_KIT_LOADED_TEXT_H

#include "api/measdata.h"

#include <string>
#include <string_view>
#include <utility>

namespace measkit {

class LoadedText {
 public:
  LoadedText() = default;
  /// Loads a measurement file (mode 0) or a semicolon table (mode 1) from memory. `name` names a
  /// single channel that has no other name.
  LoadedText(std::string_view text, const char* name, int mode = 0) : handle_(init_parser()) {
    set_parse_mode(handle_, mode);
    is_loaded_ = parse_mem(handle_, text.size(), text.data(), name) == 1;
  }
  LoadedText(LoadedText&& other) noexcept
      : handle_(std::exchange(other.handle_, nullptr)), is_loaded_(other.is_loaded_) {}
  LoadedText& operator=(LoadedText&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(is_loaded_, other.is_loaded_);
    return *this;
  }
  ~LoadedText() { cleanup_parser(&handle_); }

  bool is_loaded() const { return is_loaded_; }
  void* handle() const { return handle_; }

 private:
  void* handle_ = nullptr;
  bool is_loaded_ = false;
};

/// The first line of what the library tells about a load.
inline std::string first_message(void* handle) {
  const char* const messages = parse_messages(handle);
  const std::string_view text = messages == nullptr ? "Out of memory" : messages;
  return std::string(text.substr(0, text.find('\n')));
}

}  // namespace measkit

#endif  // MEASDATA_KIT_LOADED_TEXT_H
