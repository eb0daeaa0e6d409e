#include "tools/output_file.h"

#include "kit/write/layout.h"
#include "tools/command_line.h"

#include <filesystem>
#include <iostream>
#include <random>
#include <system_error>

#if defined(_WIN32)
#include <io.h>
#include <stdio.h>
#else
#include <unistd.h>
#endif

namespace tools {
namespace {

namespace fs = std::filesystem;

bool is_error_output_a_terminal() {
#if defined(_WIN32)
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) == 1;
#endif
}

// Beside the file, so that renaming moves no bytes.
std::string temporary_name(const std::string& path) {
  std::random_device random;
  return path + "." + std::to_string(random()) + ".tmp";
}

// A device or a pipe takes what is written to it; there is nothing to keep.
bool is_special(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  return fs::exists(status) && !fs::is_regular_file(status);
}

// The place that a link names, so that the link stays.
std::string target_of(const std::string& path) {
  std::error_code error;
  if (!fs::is_symlink(path_of(path), error)) return path;
  const fs::path target = fs::weakly_canonical(path_of(path), error);
  const std::u8string utf8 = target.u8string();
  return error ? path : std::string(utf8.begin(), utf8.end());
}

}  // namespace

bool is_folder(const std::string& path) {
  std::error_code error;
  return fs::is_directory(path_of(path), error);
}

bool write_new_file(std::string_view text, const std::string& path, bool overwrites) {
  if (path == "-" || is_special(path_of(path))) return write_output(text, path);
  std::error_code error;
  if (!overwrites && fs::exists(fs::symlink_status(path_of(path), error))) {
    throw Refusal(path + " exists: --force overwrites it");
  }
  const std::string target = target_of(path), temporary = temporary_name(target);
  bool is_written = write_output(text, temporary);
  if (is_written && overwrites) {
    const fs::file_status old = fs::status(path_of(target), error);
    if (fs::exists(old)) fs::permissions(path_of(temporary), old.permissions(), error);
  }
  if (is_written) {
    fs::rename(path_of(temporary), path_of(target), error);
    is_written = !error;
  }
  if (!is_written) fs::remove(path_of(temporary), error);
  return is_written;
}

Progress::Progress(std::size_t count) : count_(count), is_shown_(is_error_output_a_terminal()) {}

void Progress::show(std::size_t position, std::string_view name) const {
  constexpr std::size_t kWidth = 60;
  if (!is_shown_) return;
  clear();
  if (count_ > 1) std::cerr << position + 1 << " of " << count_ << ": ";
  std::cerr << measkit::shortened(name, kWidth) << std::flush;
}

void Progress::clear() const {
  if (is_shown_) std::cerr << "\r\x1b[K" << std::flush;
}

}  // namespace tools
