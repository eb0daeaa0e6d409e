// measreport: shows what measurement files hold as a page of HTML.
#include "kit/write/html/page.h"
#include "tools/command_line.h"

#include <array>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using measkit::Document;
using tools::CommandLine;

constexpr std::string_view kUsage =
    "usage: measreport [--all] [--as-is] [--strict] [-o REPORT.html] FILE...\n"
    "\n"
    "Shows colour-measurement files as one page of HTML: findings, patches, spectra, colours,\n"
    "wedges, repeats. Several files stand side by side, on the same scales. A FILE named - is the\n"
    "standard input.\n"
    "\n"
    "  -o REPORT.html  write the page to this file instead of the standard output\n"
    "  --all           compare repeats however many there are\n"
    "  --as-is         read the files as the library does, without repairs\n"
    "  --strict        fail when something was repaired, is in doubt or is lost\n"
    "  --version       print the version of the library\n"
    "  --help          print this text\n"
    "\n"
    "Exit status: 0 when every file has a chart with patches, 1 otherwise or when the page cannot\n"
    "be written, 2 for a bad call.\n";

constexpr std::array<tools::Option, 4> kOptions = {
    {{"-o", true}, {"--all"}, {"--as-is"}, {"--strict"}}};

int run(const CommandLine& line) {
  const std::string output = line.value_of("-o").value_or("-");
  if (line.files().empty() || output.empty()) return tools::kBadCall;
  const measkit::Opening opening =
      line.has("--as-is") ? measkit::Opening::as_is : measkit::Opening::repair;
  bool is_done = true;
  std::vector<measkit::Chart> charts;
  for (const std::string& path : line.files()) {
    const std::unique_ptr<Document> opened = tools::open_document(path, opening);
    Document& document = *opened;
    if (line.has("--all")) document.set_effort(measkit::Effort::all);
    for (measkit::Chart& chart : document.page_charts()) charts.push_back(std::move(chart));
    if (!document.has_patches()) tools::tell_unreadable("measreport", document);
    const bool is_clean = !line.has("--strict") || !document.has_other_than_notes();
    is_done = is_done && document.has_patches() && is_clean;
  }
  if (!tools::write_output(measkit::html::html_of(charts), output)) {
    is_done = false;
    std::cerr << "measreport: cannot write the report\n";
  }
  return is_done ? tools::kDone : tools::kFailed;
}

}  // namespace

int main(int argc, char** argv) {
  return tools::run_tool({"measreport", kUsage, kOptions, run}, argc, argv);
}
