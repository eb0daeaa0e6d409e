// measconvert: writes charts in other forms.
#include "kit/convert/conversion.h"
#include "kit/write/layout.h"
#include "kit/write/printable_text.h"
#include "tools/command_line.h"
#include "tools/output_file.h"

#include <array>
#include <iostream>
#include <memory>
#include <numeric>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using measkit::Conversion;
using measkit::ConversionOptions;
using measkit::Document;
using measkit::Form;
using tools::CommandLine;

constexpr std::string_view kUsage =
    "usage: measconvert [OPTION]... IN... -o OUT\n"
    "\n"
    "Writes colour-measurement files in another form. OUT is a file; - is the standard output. "
    "For\n"
    "several inputs or tables it is a folder. An input named - is the standard input. What the "
    "form\n"
    "cannot hold is named on the standard error.\n"
    "\n"
    "  --to FORM           iso28178 (.txt), cgats, sevenchar, csv, tsv, json, jsonl, cxf or ti3; "
    "by\n"
    "                      default the form that the ending of OUT means\n"
    "  --select LIST       write these columns: names, device, lab, lch, xyz, xyy, density, "
    "spectra,\n"
    "                      unknown\n"
    "  --merged            write one row a colour, the mean of its repeats\n"
    "  --lab-from SOURCE   write Lab of the file, computed from xyz, or computed from spectra\n"
    "  --grid 400:700:10   average spectra to these wavelengths in nm: first, last, step\n"
    "  --percent           write spectra in percent\n"
    "  --table N           convert the table at position N, from 1\n"
    "  --keep-unknown      keep columns that no answer uses in text and .ti3 files, too\n"
    "  --digits N          write computed numbers with N significant digits\n"
    "  --decimal-comma     write numbers of CSV and TSV with a comma, cells of CSV at semicolons\n"
    "  --bare              begin CSV and TSV with the names of the columns\n"
    "  --cxf-pairs         write device values and colours of CxF as objects of their own\n"
    "  --force             overwrite files that exist\n"
    "  --strict            when something is lost or left behind, write nothing and fail\n"
    "  --version           print the version of the library\n"
    "  --help              print this text\n"
    "\n"
    "Exit status: 0 when everything is written, 1 when an input cannot be read, an output cannot "
    "be\n"
    "written or, with --strict, something is left behind, 2 for a bad call.\n";

constexpr std::array<tools::Option, 15> kOptions = {{{"-o", true},
                                                     {"--to", true},
                                                     {"--select", true},
                                                     {"--merged"},
                                                     {"--lab-from", true},
                                                     {"--grid", true},
                                                     {"--percent"},
                                                     {"--table", true},
                                                     {"--keep-unknown"},
                                                     {"--digits", true},
                                                     {"--decimal-comma"},
                                                     {"--bare"},
                                                     {"--cxf-pairs"},
                                                     {"--force"},
                                                     {"--strict"}}};

int positive_count(const CommandLine& line, std::string_view option) {
  if (!line.has(option)) return 0;
  const int count = line.count_of(option);
  if (count == 0) throw tools::Refusal(std::string(option) + " takes a number from 1");
  return count;
}

ConversionOptions options_of(const CommandLine& line) {
  ConversionOptions options;
  std::string refusal;
  if (const auto list = line.value_of("--select")) {
    if (auto groups = measkit::column_groups_of(*list, refusal)) options.select = *groups;
  }
  if (const auto word = line.value_of("--lab-from")) {
    if (const auto source = measkit::lab_from_of(*word, refusal)) options.lab_from = *source;
  }
  if (const auto range = line.value_of("--grid")) {
    options.grid = measkit::wavelength_range_of(*range, refusal);
  }
  if (!refusal.empty()) throw tools::Refusal(refusal);
  options.merged = line.has("--merged");
  options.percent = line.has("--percent");
  options.keep_unknown = line.has("--keep-unknown");
  options.decimal_comma = line.has("--decimal-comma");
  options.bare = line.has("--bare");
  options.cxf_pairs = line.has("--cxf-pairs");
  options.digits = positive_count(line, "--digits");
  return options;
}

Form form_of(const CommandLine& line, const std::string& output) {
  const auto name = line.value_of("--to");
  const std::optional<Form> form =
      name ? measkit::form_named(*name) : measkit::form_of_ending(output);
  if (form) return *form;
  throw tools::Refusal(name ? "\"" + *name + "\" is none of " + measkit::form_names()
                            : "the ending of \"" + output + "\" tells no form: --to FORM does");
}

// The name of a file for a chart inside a folder: of the input, and of the table where it has
// several.
std::string file_name(const Document& document, std::size_t chart, bool is_one_of_several,
                      Form form) {
  const std::string& path = document.name();
  std::string name = path.substr(path.find_last_of("/\\") + 1);
  name = name.substr(0, std::min(name.rfind('.'), name.size()));
  if (name.empty()) name = "chart";
  if (is_one_of_several) {
    const std::string& own = document.plain(chart).table.own_name;
    std::string suffix = own.empty() ? std::to_string(chart + 1) : own;
    for (char& c : suffix) {
      const bool is_plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                            (c >= 'a' && c <= 'z') || c == '-' || c == '_';
      if (!is_plain) c = '_';
    }
    name += "_" + suffix;
  }
  return name.append(measkit::ending_of(form));
}

class Run {
 public:
  Run(const CommandLine& line, std::string output)
      : line_(line),
        output_(std::move(output)),
        form_(form_of(line, output_)),
        options_(options_of(line)),
        is_folder_(tools::is_folder(output_)) {
    if (line.files().size() > 1 && !is_folder_) {
      throw tools::Refusal("several inputs need a folder that exists behind -o");
    }
  }

  int convert_all() {
    const tools::Progress progress(line_.files().size());
    for (std::size_t i = 0; i < line_.files().size(); ++i) {
      progress.show(i, line_.files()[i]);
      convert_file(line_.files()[i]);
    }
    progress.clear();
    return is_done_ ? tools::kDone : tools::kFailed;
  }

 private:
  void convert_file(const std::string& path) {
    const std::unique_ptr<Document> document = tools::open_document(path, measkit::Opening::repair);
    if (!document->has_patches()) {
      tools::tell_unreadable("measconvert", *document);
      is_done_ = false;
      return;
    }
    tell_lost(path, document->findings());
    std::vector<std::size_t> charts(document->size());
    std::iota(charts.begin(), charts.end(), std::size_t{0});
    if (const int table = positive_count(line_, "--table"); table != 0) {
      if (static_cast<std::size_t>(table) > charts.size()) {
        throw tools::Refusal(path + " has " + measkit::counted(charts.size(), "table", "tables"));
      }
      charts = {static_cast<std::size_t>(table) - 1};
    }
    for (const std::size_t chart : charts) {
      tell_lost(document->chart_name(chart), document->plain(chart).table.findings);
    }
    const bool is_several = charts.size() > 1;
    if (form_ == Form::json || !is_several) {
      write(*document, charts, target(*document, charts.front(), false));
      return;
    }
    if (!is_folder_) {
      throw tools::Refusal(path + " has " + std::to_string(charts.size()) +
                           " tables: --table N takes one, a folder behind -o takes all");
    }
    for (const std::size_t chart : charts) {
      write(*document, std::span(&chart, 1), target(*document, chart, true));
    }
  }

  std::string target(const Document& document, std::size_t chart, bool is_one_of_several) {
    if (!is_folder_) return output_;
    const std::string name = file_name(document, chart, is_one_of_several, form_);
    if (!written_.insert(name).second) {
      throw tools::Refusal("two charts would be written to " + name);
    }
    return output_ + "/" + name;
  }

  void write(Document& document, std::span<const std::size_t> charts, const std::string& path) {
    const Conversion conversion = measkit::convert(document, charts, form_, options_);
    if (!conversion.refusal.empty()) {
      throw tools::Refusal(document.name() + ": " + conversion.refusal);
    }
    for (const std::string& sentence : conversion.left_behind) {
      tell(document.name(), "left behind: " + sentence);
    }
    if (!is_done_ && line_.has("--strict")) return;
    if (!tools::write_new_file(conversion.text, path, line_.has("--force"))) {
      std::cerr << "measconvert: cannot write " << measkit::printable(path) << '\n';
      is_done_ = false;
    }
  }

  // What the file itself does not give.
  void tell_lost(const std::string& name, const measkit::Findings& findings) {
    for (const measkit::Finding& finding : findings.list()) {
      if (finding.severity == measkit::Severity::lost) tell(name, "lost: " + finding.sentence);
    }
  }

  void tell(const std::string& name, const std::string& sentence) {
    std::cerr << "measconvert: " << measkit::printable(name) << ": " << measkit::printable(sentence)
              << '\n';
    if (line_.has("--strict")) is_done_ = false;
  }

  const CommandLine& line_;
  std::string output_;
  Form form_;
  ConversionOptions options_;
  bool is_folder_;
  bool is_done_ = true;
  std::set<std::string> written_;
};

int run(const CommandLine& line) {
  const std::string output = line.value_of("-o").value_or("");
  if (line.files().empty() || output.empty()) return tools::kBadCall;
  return Run(line, output).convert_all();
}

}  // namespace

int main(int argc, char** argv) {
  return tools::run_tool({"measconvert", kUsage, kOptions, run}, argc, argv);
}
