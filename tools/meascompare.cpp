// meascompare: tells how far measurement files are apart.
#include "kit/compare/average.h"
#include "kit/compare/tolerances.h"
#include "kit/write/comparison_json.h"
#include "kit/write/comparison_text.h"
#include "kit/write/html/comparison/comparison_page.h"
#include "kit/write/measurement_text.h"
#include "kit/write/printable_text.h"
#include "tools/command_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using measkit::Chart;
using measkit::Document;
using measkit::JudgedComparison;
using tools::CommandLine;
using tools::Refusal;

constexpr std::string_view kUsage =
    "usage: meascompare [OPTION]... REFERENCE SAMPLE...\n"
    "       meascompare --to-mean [OPTION]... FILE FILE...\n"
    "       meascompare --average OUT [OPTION]... FILE FILE...\n"
    "\n"
    "Tells how far colour-measurement files are apart: Delta E, by groups and by patches, tone\n"
    "values, spectra. A FILE named - is the standard input.\n"
    "\n"
    "  --to-mean          compare each file with the mean of all: the repeatability\n"
    "  --average OUT      write the mean of all files as a measurement file; - is the standard\n"
    "                     output\n"
    "  --median           average by the median instead of the mean\n"
    "  --drop-outliers    leave outliers out of an average\n"
    "  --match KEY        match patches by device, id, name, location or order\n"
    "  --formula F        de76, de94, de00 (the default) or cmc\n"
    "  --cmc L:C          the weights of CMC, 2:1 by default\n"
    "  --tolerances FILE  tell whether the figures are within these limits\n"
    "  --json             print all that is known as JSON\n"
    "  --csv              print a line for each patch\n"
    "  -o REPORT.html     write a page of HTML; - is the standard output\n"
    "  --as-is            read the files as the library does, without repairs\n"
    "  --version          print the version of the library\n"
    "  --help             print this text\n"
    "\n"
    "Exit status: 0 within the tolerances or without any, 1 beyond them, 2 for a bad call, a file\n"
    "that cannot be read or charts that cannot be compared.\n";

constexpr std::array<tools::Option, 12> kOptions = {{{"--to-mean"},
                                                     {"--average", true},
                                                     {"--median"},
                                                     {"--drop-outliers"},
                                                     {"--match", true},
                                                     {"--formula", true},
                                                     {"--cmc", true},
                                                     {"--tolerances", true},
                                                     {"--json"},
                                                     {"--csv"},
                                                     {"-o", true},
                                                     {"--as-is"}}};

std::optional<measkit::MatchBy> match_by(std::string_view word) {
  using measkit::MatchBy;
  if (word == "device") return MatchBy::device;
  if (word == "id") return MatchBy::id;
  if (word == "name") return MatchBy::name;
  if (word == "location") return MatchBy::location;
  if (word == "order") return MatchBy::order;
  return std::nullopt;
}

bool read_weights(std::string_view text, double& lightness, double& chroma) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return false;
  const auto read = [](std::string_view number, double& value) {
    const char* const end = number.data() + number.size();
    const auto [rest, error] = std::from_chars(number.data(), end, value);
    return error == std::errc() && rest == end && value > 0.0 && value <= 1000.0;
  };
  return read(text.substr(0, colon), lightness) && read(text.substr(colon + 1), chroma);
}

measkit::Measure formula_called(std::string_view name) {
  for (const measkit::Measure formula : measkit::kFormulas) {
    if (measkit::kMeasureNames[static_cast<std::size_t>(formula)] == name) return formula;
  }
  throw Refusal("no formula is called " + std::string(name));
}

measkit::ComparisonOptions options_of(const CommandLine& line) {
  measkit::ComparisonOptions options;
  if (line.has("--median")) options.averaging = measkit::Averaging::median;
  if (const auto key = line.value_of("--match")) {
    options.match = match_by(*key);
    if (!options.match) throw Refusal("patches do not match by " + *key);
  }
  if (const auto formula = line.value_of("--formula")) options.formula = formula_called(*formula);
  const auto weights = line.value_of("--cmc");
  if (weights && !read_weights(*weights, options.cmc_lightness, options.cmc_chroma))
    throw Refusal("the weights of CMC look like 2:1, not " + *weights);
  return options;
}

// The documents of the files, each with patches.
class Files {
 public:
  explicit Files(const CommandLine& line) {
    const auto opening = line.has("--as-is") ? measkit::Opening::as_is : measkit::Opening::repair;
    for (const std::string& path : line.files()) {
      documents_.push_back(tools::open_document(path, opening));
      Document& document = *documents_.back();
      if (!document.has_patches()) {
        tools::tell_unreadable("meascompare", document);
        throw Refusal(document.name() + " cannot be compared");
      }
      if (document.charts().size() > 1) {
        std::cerr << "meascompare: " << measkit::printable(document.name()) << ": the first of "
                  << document.charts().size() << " charts is taken\n";
      }
      charts_.push_back(&document.charts().front());
    }
  }
  std::span<const Chart* const> charts() const { return charts_; }

 private:
  std::vector<std::unique_ptr<Document>> documents_;
  std::vector<const Chart*> charts_;
};

void tell(const std::vector<measkit::Finding>& findings) {
  for (const measkit::Finding& finding : findings) {
    std::cerr << "meascompare: " << measkit::printable(finding.sentence) << '\n';
  }
}

// The average of all charts as a measurement file.
std::string average_text(std::span<const Chart* const> charts, const CommandLine& line,
                         const measkit::ComparisonOptions& options) {
  const measkit::AveragedChart average = measkit::average_charts(
      charts, {options.match, options.averaging, line.has("--drop-outliers")});
  if (!average.refusal.empty()) throw Refusal(average.refusal);
  tell(average.findings);
  const bool is_mean = options.averaging == measkit::Averaging::mean;
  std::string names;
  for (const Chart* chart : charts) names.append(names.empty() ? "" : ", ").append(chart->name);
  const std::array<measkit::Entry, 1> further = {
      {{"PROCESSING", (is_mean ? "mean of " : "median of ") + names}}};
  return measkit::measurement_text_of(average.chart, further);
}

void write(std::string_view text, const std::string& path) {
  if (!tools::write_output(text, path)) throw Refusal("cannot write " + path);
}

void print(std::span<const JudgedComparison> samples, const CommandLine& line) {
  if (const auto output = line.value_of("-o"))
    write(measkit::html::comparison_page_of(samples), *output);
  if (line.has("--json")) {
    std::cout << measkit::comparison_json_of(samples);
  } else if (line.has("--csv")) {
    std::cout << measkit::comparison_csv_of(samples);
  } else if (!line.has("-o")) {
    for (const JudgedComparison& judged : samples) {
      if (&judged != samples.data()) std::cout << '\n';
      std::cout << measkit::comparison_text_of(judged);
    }
    if (samples.size() > 1) std::cout << measkit::comparison_overview_of(samples);
  }
}

std::vector<measkit::Tolerance> tolerances_of(const CommandLine& line) {
  const auto path = line.value_of("--tolerances");
  if (!path) return {};
  measkit::Tolerances read = measkit::read_tolerances(tools::text_of_file(*path));
  if (!read.error.empty()) throw Refusal(*path + ": " + read.error);
  return std::move(read.list);
}

int compare(const CommandLine& line, const Chart& reference, std::span<const Chart* const> samples,
            const measkit::ComparisonOptions& options) {
  const std::vector<measkit::Tolerance> tolerances = tolerances_of(line);
  std::vector<JudgedComparison> judged;
  for (const Chart* sample : samples) {
    JudgedComparison& one = judged.emplace_back();
    one.comparison = measkit::compare(reference, *sample, options);
    if (!one.comparison.is_refused()) one.verdicts = measkit::judge(one.comparison, tolerances);
  }
  print(judged, line);
  for (const JudgedComparison& one : judged) {
    if (one.comparison.is_refused())
      throw Refusal(one.comparison.sample->name + ": " + one.comparison.refusal);
  }
  const bool is_good = std::ranges::all_of(judged, &JudgedComparison::has_passed);
  return is_good ? tools::kDone : tools::kFailed;
}

int run(const CommandLine& line) {
  if (line.files().size() < 2) return tools::kBadCall;
  const measkit::ComparisonOptions options = options_of(line);
  const Files files(line);
  const auto output = line.value_of("--average");
  if (!output && !line.has("--to-mean"))
    return compare(line, *files.charts().front(), files.charts().subspan(1), options);
  std::string text = average_text(files.charts(), line, options);
  if (output) {
    write(text, *output);
    return tools::kDone;
  }
  const auto mean = Document::open_block(std::move(text), "the mean", measkit::Opening::repair);
  return compare(line, mean->charts().front(), files.charts(), options);
}

}  // namespace

int main(int argc, char** argv) {
  return tools::run_tool({"meascompare", kUsage, kOptions, run}, argc, argv);
}
