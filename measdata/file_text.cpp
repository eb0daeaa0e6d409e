#include "measdata/file_text.h"

#include <filesystem>
#include <system_error>
#include <utility>

#if defined(__unix__) || defined(__APPLE__)
#define MEASDATA_POSIX_FILES
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#else
#include <fstream>
#include <ios>
#endif

namespace vantor::MeasData {
namespace {

// The path type holds wide characters on Windows and bytes elsewhere; UTF-8 text fits both.
std::filesystem::path path_of(const char* utf8) { return {reinterpret_cast<const char8_t*>(utf8)}; }

#ifdef MEASDATA_POSIX_FILES

// What is at a path may change between a look at it and its opening: the opening must not wait for
// a pipe, and what was opened is looked at again.
class OpenFile {
 public:
  explicit OpenFile(const std::filesystem::path& path)
      : descriptor_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {
    struct stat status = {};
    if (descriptor_ == -1 || fstat(descriptor_, &status) != 0) return;
    is_directory_ = S_ISDIR(status.st_mode);
    is_open_ = S_ISREG(status.st_mode);
    if (is_open_ && std::in_range<std::size_t>(status.st_size)) {
      size_ = static_cast<std::size_t>(status.st_size);
      has_size_ = true;
    }
    // Some file systems heed it even for files.
    fcntl(descriptor_, F_SETFL, fcntl(descriptor_, F_GETFL) & ~O_NONBLOCK);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (descriptor_ != -1) close(descriptor_);
  }

  bool is_directory() const { return is_directory_; }
  bool is_open() const { return is_open_; }
  bool has_size() const { return has_size_; }
  std::size_t size() const { return size_; }
  // False when the system cannot read; `count` becomes the bytes that there were.
  bool read(char* bytes, std::size_t& count) const {
    const std::size_t wanted = count;
    for (count = 0; count < wanted;) {
      const ssize_t taken = ::read(descriptor_, bytes + count, wanted - count);
      if (taken == 0) break;
      if (taken == -1 && errno == EINTR) continue;
      if (taken == -1) return false;
      count += static_cast<std::size_t>(taken);
    }
    return true;
  }

 private:
  int descriptor_;
  bool is_directory_ = false;
  bool is_open_ = false;
  bool has_size_ = false;
  std::size_t size_ = 0;
};

#else

class OpenFile {
 public:
  explicit OpenFile(const std::filesystem::path& path) : file_(path, std::ios::binary) {
    is_open_ = static_cast<bool>(file_);
    const std::streamoff size = file_.seekg(0, std::ios::end).tellg();
    has_size_ = file_ && std::in_range<std::size_t>(size);
    if (has_size_) size_ = static_cast<std::size_t>(size);
    file_.seekg(0);
  }

  bool is_directory() const { return false; }
  bool is_open() const { return is_open_; }
  bool has_size() const { return has_size_; }
  std::size_t size() const { return size_; }
  bool read(char* bytes, std::size_t& count) {
    file_.read(bytes, static_cast<std::streamsize>(count));
    count = static_cast<std::size_t>(file_.gcount());
    return file_ || file_.eof();
  }

 private:
  std::ifstream file_;
  bool is_open_ = false;
  bool has_size_ = false;
  std::size_t size_ = 0;
};

#endif

}  // namespace

FileStatus FileText::read(const char* path) try {
  const std::filesystem::path native = path_of(path);
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(native, error);
  if (std::filesystem::is_directory(status)) return FileStatus::not_read;
  if (!std::filesystem::is_regular_file(status)) return FileStatus::not_opened;
  OpenFile file(native);
  if (file.is_directory()) return FileStatus::not_read;
  if (!file.is_open()) return FileStatus::not_opened;
  if (!file.has_size()) return FileStatus::not_read;
  // Not zeroed first: every byte is written by the read. A file that shrank since it was measured
  // gives what is left of it.
  size_ = file.size();
  bytes_.reset(new char[size_]);
  return file.read(bytes_.get(), size_) ? FileStatus::ok : FileStatus::not_read;
} catch (const std::system_error&) {  // a path that is not UTF-8, on Windows
  return FileStatus::not_opened;
}

}  // namespace vantor::MeasData
