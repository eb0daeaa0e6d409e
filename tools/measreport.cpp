// measreport: shows measurement files as one HTML page.
#include "measdata.h"
#include "tools/printable_text.h"
#include "tools/report/chart.h"
#include "tools/report/page.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kUsage =
    "usage: measreport [-o REPORT.html] FILE...\n"
    "\n"
    "Shows colour-measurement files as one HTML page: patches, spectra, colours,\n"
    "wedges, repeats.\n"
    "Several files are shown side by side with the same scales.\n"
    "\n"
    "  -o REPORT.html  write the page to this file instead of standard output\n"
    "  --version       print the version of the library\n"
    "  --help          print this text\n"
    "\n"
    "Exit status: 0 on success, 1 if a file could not be read or the page could\n"
    "not be written, 2 for invalid arguments.\n";

struct Options {
  std::vector<std::string> files;
  std::string output;  // empty for the standard output
  bool is_valid = true;
  bool wants_help = false;
  bool wants_version = false;
};

Options read_options(const std::vector<std::string>& arguments) {
  Options options;
  bool are_files = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (are_files || !argument.starts_with("-")) {
      options.files.push_back(argument);
    } else if (argument == "--") {
      are_files = true;
    } else if (argument == "--help") {
      options.wants_help = true;
    } else if (argument == "--version") {
      options.wants_version = true;
    } else if (argument == "-o" && i + 1 < arguments.size() && !arguments[i + 1].empty()) {
      options.output = arguments[++i];
    } else {
      options.is_valid = false;
    }
  }
  return options;
}

bool write(const std::string& page, const std::string& output) {
  if (output.empty()) return static_cast<bool>(std::cout << page << std::flush);
  std::ofstream file(output, std::ios::binary);
  return static_cast<bool>(file << page << std::flush);
}

int run(const std::vector<std::string>& arguments) {
  const Options options = read_options(arguments);
  if (options.wants_help) {
    std::cout << kUsage;
    return 0;
  }
  if (options.wants_version) {
    std::cout << "measreport " << parser_version() << '\n';
    return 0;
  }
  if (!options.is_valid || options.files.empty()) {
    std::cerr << kUsage;
    return 2;
  }
  bool is_done = true;
  std::vector<tools::report::Chart> charts;
  for (const std::string& path : options.files) {
    charts.push_back(tools::report::chart_of(path));
    if (charts.back().is_loaded) continue;
    is_done = false;
    std::cerr << "measreport: " << tools::printable(path) << ": not readable\n";
  }
  if (!write(tools::report::page_of(charts), options.output)) {
    is_done = false;
    std::cerr << "measreport: cannot write the report\n";
  }
  return is_done ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(std::vector<std::string>(argv + 1, argv + argc));
  } catch (const std::exception& error) {
    std::cerr << "measreport: " << error.what() << '\n';
    return 1;
  }
}
