#include "measdata/file_text.h"

#include <filesystem>
#include <fstream>
#include <ios>
#include <string>
#include <system_error>
#include <utility>

namespace vantor::MeasData {
namespace {

// The path type holds wide characters on Windows and bytes elsewhere; UTF-8 text fits both.
std::filesystem::path path_of(const char* utf8) { return {reinterpret_cast<const char8_t*>(utf8)}; }

}  // namespace

FileStatus FileText::read(const char* path) {
  std::ifstream file;
  try {
    const std::filesystem::path native = path_of(path);
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(native, error);
    if (std::filesystem::is_directory(status)) return FileStatus::not_read;
    if (!std::filesystem::is_regular_file(status)) return FileStatus::not_opened;
    file.open(native, std::ios::binary);
  } catch (const std::system_error&) {  // a path that is not UTF-8, on Windows
    return FileStatus::not_opened;
  }
  if (!file) return FileStatus::not_opened;

  const std::streamoff size = file.seekg(0, std::ios::end).tellg();
  if (!file || !std::in_range<std::size_t>(size)) return FileStatus::not_read;
  file.seekg(0);
  // Not zeroed first: every byte is written by the read.
  bytes_.reset(new char[static_cast<std::size_t>(size)]);
  file.read(bytes_.get(), static_cast<std::streamsize>(size));
  // A file that shrank since it was measured gives what is left of it.
  if (!file && !file.eof()) return FileStatus::not_read;
  size_ = static_cast<std::size_t>(file.gcount());
  return FileStatus::ok;
}

}  // namespace vantor::MeasData
