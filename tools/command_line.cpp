#include "tools/command_line.h"

#include "api/measdata.h"
#include "kit/write/printable_text.h"
#include "measdata/file_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>
#include <utility>

#if defined(_WIN32)
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
// clang-format off
#include <windows.h>  // the others need it
// clang-format on

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <stdio.h>
#endif

namespace tools {

CommandLine::CommandLine(const std::vector<std::string>& arguments,
                         std::span<const Option> options) {
  bool are_files = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (are_files || argument == "-" || !argument.starts_with("-")) {
      files_.push_back(argument);
      continue;
    }
    if (argument == "--") {
      are_files = true;
      continue;
    }
    const std::size_t name_length = std::min(argument.find('='), argument.size());
    const bool has_value = name_length != argument.size();
    const auto option = std::ranges::find(options, argument.substr(0, name_length), &Option::name);
    if (option == options.end() || (has_value && !option->may_have_value) ||
        (option->takes_value && i + 1 == arguments.size())) {
      is_valid_ = false;
      continue;
    }
    std::string value;
    if (has_value) value = argument.substr(name_length + 1);
    if (option->takes_value) value = arguments[++i];
    given_.push_back({option->name, std::move(value)});
  }
}

bool CommandLine::has(std::string_view option) const { return value_of(option).has_value(); }

std::optional<std::string> CommandLine::value_of(std::string_view option) const {
  std::optional<std::string> value;
  for (const Given& given : given_) {
    if (given.name == option) value = given.value;
  }
  return value;
}

int CommandLine::count_of(std::string_view option) const {
  const std::string text = value_of(option).value_or("");
  int count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  return error == std::errc() && end == text.data() + text.size() && count > 0 ? count : 0;
}

namespace {

int run_checked(const Tool& tool, const std::vector<std::string>& arguments) {
  std::vector<Option> options(tool.options.begin(), tool.options.end());
  options.push_back({"--help"});
  options.push_back({"--version"});
  const CommandLine line(arguments, options);
  if (line.has("--help")) {
    std::cout << tool.usage;
  } else if (line.has("--version")) {
    std::cout << tool.name << ' ' << parser_version() << '\n';
  } else if (!line.is_valid()) {
    std::cerr << tool.usage;
    return kBadCall;
  } else {
    const int status = tool.run(line);
    if (status == kBadCall) std::cerr << tool.usage;
    if (status != kDone) return status;
  }
  std::cout.flush();
  if (std::cout) return kDone;
  std::cerr << tool.name << ": cannot write to the standard output\n";
  return kFailed;
}

#if defined(_WIN32)

std::string utf8_of(const wchar_t* wide) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
  if (size == 0) return {};
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide, -1, utf8.data(), size, nullptr, nullptr);
  utf8.pop_back();  // the zero at the end
  return utf8;
}

// The arguments of main() are in the code page, which lacks most characters.
std::vector<std::string> arguments_of(int, char**) {
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> wide(
      CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(utf8_of(wide.get()[i]));
  return arguments;
}

// A chart that is read or written keeps its bytes.
void keep_line_ends() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
}

#else

std::vector<std::string> arguments_of(int argc, char** argv) { return {argv + 1, argv + argc}; }

void keep_line_ends() {}

#endif

}  // namespace

std::filesystem::path path_of(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

int run_tool(const Tool& tool, int argc, char** argv) {
  try {
    keep_line_ends();
    return run_checked(tool, arguments_of(argc, argv));
  } catch (const Refusal& refusal) {
    std::cerr << tool.name << ": " << measkit::printable(refusal.what()) << '\n';
    return kBadCall;
  } catch (const std::exception& error) {
    std::cerr << tool.name << ": " << error.what() << '\n';
    return kFailed;
  }
}

std::unique_ptr<measkit::Document> open_document(const std::string& path,
                                                 measkit::Opening opening) {
  if (path != "-") return measkit::Document::open_file(path, opening);
  std::string bytes(std::istreambuf_iterator<char>(std::cin), {});
  return measkit::Document::open_block(std::move(bytes), "standard input", opening);
}

std::string text_of_file(const std::string& path) {
  vantor::MeasData::FileText file;
  if (file.read(path.c_str()) != vantor::MeasData::FileStatus::ok)
    throw Refusal("cannot read " + path);
  return std::string(file.text());
}

bool write_output(std::string_view text, const std::string& path) {
  if (path == "-") return static_cast<bool>(std::cout << text << std::flush);
  std::ofstream file(path_of(path), std::ios::binary);
  return static_cast<bool>(file << text << std::flush);
}

void tell_unreadable(std::string_view tool, const measkit::Document& document) {
  std::cerr << tool << ": " << measkit::printable(document.name()) << ": no patches\n";
  const auto tell = [](const measkit::Findings& findings) {
    for (const measkit::Finding& finding : findings.list()) {
      std::cerr << "  " << measkit::printable(finding.sentence) << '\n';
    }
  };
  tell(document.findings());
  for (std::size_t chart = 0; chart < document.size(); ++chart) {
    tell(document.plain(chart).table.findings);
  }
}

}  // namespace tools
