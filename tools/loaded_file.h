// A measurement file, loaded through the library's C interface.
#ifndef MEASDATA_TOOLS_LOADED_FILE_H
#define MEASDATA_TOOLS_LOADED_FILE_H

#include "measdata.h"

#include <string>

namespace tools {

/// Owns a handle.
class LoadedFile {
 public:
  enum class Form { measurement_file, semicolon_table };

  /// Reads the file as a measurement file or, if that fails, as a semicolon table.
  explicit LoadedFile(const std::string& path) : handle_(init_parser()), path_(path) {
    is_loaded_ = parse_file(handle_, path.c_str()) == 1;
    if (!is_loaded_) try_semicolon_table();
  }
  LoadedFile(const LoadedFile&) = delete;
  LoadedFile& operator=(const LoadedFile&) = delete;
  ~LoadedFile() { cleanup_parser(&handle_); }

  void* handle() const { return handle_; }
  const std::string& path() const { return path_; }
  bool is_loaded() const { return is_loaded_; }
  Form form() const { return form_; }
  std::string messages() const {
    const char* text = parse_messages(handle_);
    return text == nullptr ? "Out of memory\n" : text;
  }

 private:
  // Any text can be read as a semicolon table. It counts as one if its columns are known. (A table
  // that lacks the first ink still has one device channel.)
  void try_semicolon_table() {
    set_parse_mode(handle_, 1);
    const bool is_read = parse_file(handle_, path_.c_str()) == 1;
    const bool has_known_columns = num_device_channels(handle_) == 4 ||
                                   has_color_data(handle_) == 1 || has_xyz_data(handle_) == 1;
    if (is_read && num_patches(handle_) > 0 && has_known_columns) {
      form_ = Form::semicolon_table;
      is_loaded_ = true;
      return;
    }
    set_parse_mode(handle_, 0);
    is_loaded_ = parse_file(handle_, path_.c_str()) == 1;  // for the messages
  }

  void* handle_;
  std::string path_;
  Form form_ = Form::measurement_file;
  bool is_loaded_ = false;
};

}  // namespace tools

#endif  // MEASDATA_TOOLS_LOADED_FILE_H
