// Writes files so that a failure leaves what was there before.
#ifndef MEASDATA_TOOLS_OUTPUT_FILE_H
#define MEASDATA_TOOLS_OUTPUT_FILE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace tools {

/// True for a folder that exists.
bool is_folder(const std::string& path);

/// Writes a file under a temporary name beside `path` and renames it; "-" is the standard output.
/// False when it cannot be written. Throws a Refusal for a file that exists, unless `overwrites`.
bool write_new_file(std::string_view text, const std::string& path, bool overwrites);

/// The names of long work on a terminal, on the line that the next one replaces. Says nothing where
/// the standard error is no terminal.
class Progress {
 public:
  explicit Progress(std::size_t count);
  void show(std::size_t position, std::string_view name) const;
  void clear() const;

 private:
  std::size_t count_;
  bool is_shown_;
};

}  // namespace tools

#endif  // MEASDATA_TOOLS_OUTPUT_FILE_H
