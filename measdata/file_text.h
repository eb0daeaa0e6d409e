// Reads a whole file into memory.
#ifndef MEASDATA_MEASDATA_FILE_TEXT_H
#define MEASDATA_MEASDATA_FILE_TEXT_H

#include <cstddef>
#include <memory>
#include <string_view>

namespace vantor::MeasData {

enum class FileStatus { ok, not_opened, not_read };

/// The bytes of a file, as they stand.
class FileText {
 public:
  /// Reads the file named by a UTF-8 path. Only regular files are read: a pipe or a device could
  /// block or never end, so they count as not opened; a directory as not read.
  FileStatus read(const char* path);

  std::string_view text() const { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_FILE_TEXT_H
