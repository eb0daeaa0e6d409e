// measinfo: prints the contents of measurement files.
#include "measdata.h"
#include "tools/json_report.h"
#include "tools/loaded_file.h"
#include "tools/printable_text.h"
#include "tools/text_report.h"

#include <charconv>
#include <exception>
#include <iostream>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

constexpr std::string_view kUsage =
    "usage: measinfo [--patches N | --json] FILE...\n"
    "\n"
    "Prints the contents of colour-measurement files: instrument, keywords,\n"
    "channels, patches.\n"
    "\n"
    "  --patches N  list only the first N patches of each file\n"
    "  --json       print everything as JSON\n"
    "  --version    print the version of the library\n"
    "  --help       print this text\n"
    "\n"
    "Exit status: 0 on success, 1 if a file could not be read or the output could\n"
    "not be written, 2 for invalid arguments.\n";

struct Options {
  std::vector<std::string> files;
  int most_patches = std::numeric_limits<int>::max();
  bool is_valid = true;
  bool wants_json = false;
  bool wants_help = false;
  bool wants_version = false;
};

bool read_count(std::string_view text, int& count) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  return error == std::errc() && end == text.data() + text.size() && count >= 0;
}

Options read_options(const std::vector<std::string>& arguments) {
  Options options;
  bool are_files = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (are_files || !argument.starts_with("-")) {
      options.files.push_back(argument);
    } else if (argument == "--") {
      are_files = true;
    } else if (argument == "--json") {
      options.wants_json = true;
    } else if (argument == "--help") {
      options.wants_help = true;
    } else if (argument == "--version") {
      options.wants_version = true;
    } else if (argument == "--patches" && i + 1 < arguments.size()) {
      options.is_valid = read_count(arguments[++i], options.most_patches) && options.is_valid;
    } else {
      options.is_valid = false;
    }
  }
  return options;
}

// The number of files that could not be read.
int report_files_as_json(const Options& options) {
  int failures = 0;
  std::cout << tools::json_report(options.files, failures) << '\n';
  return failures;
}

int report_files(const Options& options) {
  int failures = 0;
  bool is_first = true;
  for (const std::string& path : options.files) {
    const tools::LoadedFile file(path);
    if (!file.is_loaded()) {
      ++failures;
      std::cerr << "measinfo: " << tools::printable(path) << ": not readable\n";
      tools::print_messages(std::cerr, file.messages());
      continue;
    }
    if (!is_first) std::cout << '\n';
    is_first = false;
    tools::print_report(std::cout, file, options.most_patches);
  }
  return failures;
}

int run(const std::vector<std::string>& arguments) {
  const Options options = read_options(arguments);
  if (options.wants_help) {
    std::cout << kUsage;
    return 0;
  }
  if (options.wants_version) {
    std::cout << "measinfo " << parser_version() << '\n';
    return 0;
  }
  if (!options.is_valid || options.files.empty()) {
    std::cerr << kUsage;
    return 2;
  }
  const int failures = options.wants_json ? report_files_as_json(options) : report_files(options);
  std::cout.flush();
  if (!std::cout) {
    std::cerr << "measinfo: cannot write the report\n";
    return 1;
  }
  return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(std::vector<std::string>(argv + 1, argv + argc));
  } catch (const std::exception& error) {
    std::cerr << "measinfo: " << error.what() << '\n';
    return 1;
  }
}
