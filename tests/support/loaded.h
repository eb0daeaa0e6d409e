// A text loaded through the C interface, for tests.
#ifndef MEASDATA_TESTS_SUPPORT_LOADED_H
#define MEASDATA_TESTS_SUPPORT_LOADED_H

#include "api/measdata.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace test {

using Triple = std::array<double, 3>;

/// What arrays hold that the library was asked to fill, before it did.
inline constexpr double kUntouched = -12345.0;

/// Owns a handle.
class Handle {
 public:
  Handle() : handle_(init_parser()) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { cleanup_parser(&handle_); }

  operator void*() const { return handle_; }  // NOLINT(google-explicit-constructor)

  int load(std::string_view text, const char* name = "test") {
    return parse_mem(handle_, text.size(), text.data(), name);
  }
  std::string messages() const { return parse_messages(handle_); }
  std::vector<double> device(int patch) const {
    std::vector<double> values(static_cast<std::size_t>(num_device_channels(handle_)), kUntouched);
    get_dev_from_patch(handle_, patch, values.data());
    return values;
  }
  Triple lab(int patch) const {
    Triple values = {kUntouched, kUntouched, kUntouched};
    get_lab_from_patch(handle_, patch, values.data());
    return values;
  }
  Triple xyz(int patch) const {
    Triple values = {kUntouched, kUntouched, kUntouched};
    get_xyz_from_patch(handle_, patch, values.data());
    return values;
  }
  std::vector<double> spectrum(int patch) const {
    const double* values = get_spectrum_from_patch(handle_, patch);
    if (values == nullptr) return {};
    return {values, values + spectral_size(handle_)};
  }

 private:
  void* handle_;
};

/// A handle that a text was loaded into.
class Loaded : public Handle {
 public:
  explicit Loaded(std::string_view text, int mode = 0) {
    set_parse_mode(*this, mode);
    result = load(text);
  }
  int result;
};

/// Words joined by blanks: prefix380 prefix390 ...
inline std::string numbered(const std::string& prefix, int first, int step, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    if (i > 0) text += ' ';
    text += prefix + std::to_string(first + i * step);
  }
  return text;
}

/// A standard file with the given field list and rows, each row ending with a line feed.
inline std::string file_of(const std::string& fields, const std::string& rows,
                           const std::string& header = "") {
  return "CGATS.17\n" + header + "BEGIN_DATA_FORMAT\n" + fields +
         "\nEND_DATA_FORMAT\nBEGIN_DATA\n" + rows + "END_DATA\n";
}

}  // namespace test

#endif  // MEASDATA_TESTS_SUPPORT_LOADED_H
