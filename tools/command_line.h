// What all tools do with their arguments, and how they end.
#ifndef MEASDATA_TOOLS_COMMAND_LINE_H
#define MEASDATA_TOOLS_COMMAND_LINE_H

#include "kit/document.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tools {

/// Why a tool cannot do what it is asked for. run_tool() tells it; the status is kBadCall.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The ends of a tool.
enum Status : int { kDone = 0, kFailed = 1, kBadCall = 2 };

struct Option {
  std::string_view name;        ///< such as "--json"
  bool takes_value = false;     ///< the next argument
  bool may_have_value = false;  ///< behind "=", such as "--color=never"
};

class CommandLine {
 public:
  /// Everything that is no option is a file; so is all behind "--", and "-" by itself.
  CommandLine(const std::vector<std::string>& arguments, std::span<const Option> options);

  /// False when an option is unknown, lacks its value or has one that it does not take.
  bool is_valid() const { return is_valid_; }
  bool has(std::string_view option) const;
  /// The last value of an option; empty when it was given without one.
  std::optional<std::string> value_of(std::string_view option) const;
  /// The last value as a number from 1; 0 when it is none.
  int count_of(std::string_view option) const;
  const std::vector<std::string>& files() const { return files_; }

 private:
  struct Given {
    std::string_view name;
    std::string value;
  };
  std::vector<Given> given_;
  std::vector<std::string> files_;
  bool is_valid_ = true;
};

struct Tool {
  std::string_view name, usage;
  std::span<const Option> options;  ///< beside --help and --version
  std::function<int(const CommandLine&)> run;
};

/// Runs a tool on the arguments of main() and returns its status: prints help and version, refuses
/// bad calls, and tells when memory runs out or the standard output cannot be written. On Windows
/// it takes the arguments as UTF-8 from the system instead.
int run_tool(const Tool& tool, int argc, char** argv);

/// A path as the system has it.
std::filesystem::path path_of(std::string_view utf8);

/// Opens a file or, for "-", the standard input.
std::unique_ptr<measkit::Document> open_document(const std::string& path, measkit::Opening opening);

/// The bytes of a file; throws a Refusal when it cannot be read.
std::string text_of_file(const std::string& path);

/// Writes a file or, for "-", the standard output; false when it cannot.
bool write_output(std::string_view text, const std::string& path);

/// Tells on the standard error why a document has no patches.
void tell_unreadable(std::string_view tool, const measkit::Document& document);

}  // namespace tools

#endif  // MEASDATA_TOOLS_COMMAND_LINE_H
