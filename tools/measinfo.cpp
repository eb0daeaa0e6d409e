// measinfo: tells what measurement files hold.
#include "kit/write/json.h"
#include "kit/write/summary.h"
#include "tools/command_line.h"
#include "tools/terminal.h"

#include <array>
#include <cstddef>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace {

using measkit::Document;
using tools::CommandLine;

constexpr std::string_view kUsage =
    "usage: measinfo [--all | --json] [--color[=WHEN]] [--as-is] [--strict] FILE...\n"
    "       measinfo --plain [--table N] FILE\n"
    "\n"
    "Tells what colour-measurement files hold: findings, conditions, channels, patches.\n"
    "A FILE named - is the standard input.\n"
    "\n"
    "  --all        list every patch, and compare repeats however many there are\n"
    "  --json       print all that is known of the files as JSON\n"
    "  --plain      print a chart of the file as a plain measurement file\n"
    "  --table N    the N-th chart, counted from 1 as measinfo lists them\n"
    "  --as-is      read the file as the library does, without repairs\n"
    "  --strict     fail when something was repaired, is in doubt or is lost\n"
    "  --color      show colours, also in files and pipes; --color=never shows none, and\n"
    "               --color=auto, the default, on terminals that have them\n"
    "  --version    print the version of the library\n"
    "  --help       print this text\n"
    "\n"
    "Exit status: 0 when every file has a chart with patches, 1 otherwise, 2 for a bad call.\n";

constexpr std::array<tools::Option, 7> kOptions = {{{"--all"},
                                                    {"--json"},
                                                    {"--color", false, true},
                                                    {"--plain"},
                                                    {"--table", true},
                                                    {"--as-is"},
                                                    {"--strict"}}};

std::optional<tools::ColourChoice> chosen_colours(const CommandLine& line) {
  return tools::colour_choice(line.value_of("--color").value_or("auto"));
}

bool is_good(Document& document, const CommandLine& line) {
  const bool is_clean = !line.has("--strict") || !document.has_other_than_notes();
  if (!document.has_patches()) tools::tell_unreadable("measinfo", document);
  return document.has_patches() && is_clean;
}

int print_plain_text(const CommandLine& line, Document& document) {
  const int table = line.has("--table") ? line.count_of("--table") : 1;
  if (table == 0) return tools::kBadCall;
  const auto chart = static_cast<std::size_t>(table) - 1;
  if (chart >= document.size()) {
    const std::string count = std::to_string(document.size());
    std::cerr << "measinfo: no table " << table << "; the file has " << count << '\n';
    for (const measkit::Finding& finding : document.findings().list()) {
      std::cerr << "  " << finding.sentence << '\n';
    }
    return tools::kFailed;
  }
  std::cout << document.plain(chart).text;
  return is_good(document, line) ? tools::kDone : tools::kFailed;
}

void print(Document& document, const CommandLine& line, const measkit::Screen& screen,
           bool is_first) {
  if (line.has("--json")) {
    std::cout << (is_first ? "[" : ",")
              << measkit::to_json(document.name(), document.charts(), document.findings());
    return;
  }
  const measkit::Detail detail =
      line.has("--all") ? measkit::Detail::all : measkit::Detail::screenful;
  std::cout << (is_first ? "" : "\n")
            << measkit::summary_of(document.name(), document.charts(), document.findings(), detail,
                                   screen);
}

int run(const CommandLine& line) {
  const bool wants_plain = line.has("--plain");
  const std::optional<tools::ColourChoice> colours = chosen_colours(line);
  if (line.files().empty() || (wants_plain && line.files().size() != 1) ||
      (!wants_plain && line.has("--table")) || !colours) {
    return tools::kBadCall;
  }
  const measkit::Opening opening =
      line.has("--as-is") ? measkit::Opening::as_is : measkit::Opening::repair;
  const measkit::Screen screen = tools::screen_of_output(*colours);
  bool are_good = true;
  for (const std::string& path : line.files()) {
    const std::unique_ptr<Document> opened = tools::open_document(path, opening);
    Document& document = *opened;
    if (line.has("--all")) document.set_effort(measkit::Effort::all);
    if (wants_plain) return print_plain_text(line, document);
    are_good = is_good(document, line) && are_good;
    print(document, line, screen, &path == &line.files().front());
  }
  if (line.has("--json")) std::cout << "]\n";
  return are_good ? tools::kDone : tools::kFailed;
}

}  // namespace

int main(int argc, char** argv) {
  return tools::run_tool({"measinfo", kUsage, kOptions, run}, argc, argv);
}
