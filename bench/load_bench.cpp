// Measures loading and asking. Simple readers run over the same bytes for comparison, from a scan
// for line feeds to a naive design. Prints Markdown.
#include "bench/baselines.h"
#include "bench/charts.h"
#include "bench/peak_memory.h"
#include "bench/report.h"
#include "colortypes/pair_distances.h"
#include "dataset/fill.h"
#include "dataset/merge.h"
#include "kit/colour/colour_difference.h"
#include "kit/preflight/preflight.h"
#include "measdata.h"
#include "measdata/meas_file_parser.h"
#ifdef MEASDATA_BENCH_IT8
#include "bench/it8_reader.h"
#endif

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <numeric>
#include <string>
#include <vector>

namespace {

using bench::format;

constexpr int kSmallRows = 1617;
constexpr int kBigRows = 100000;
constexpr int kNarrowRows = 1000000;
constexpr int kPairRows = 5000;
constexpr int kCxfPatches = 20000;
constexpr int kFirstDoubled = 15625;
constexpr int kLastDoubled = 1000000;

constexpr const char* kRows[] = {"newline scan",
                                 "tokenizing",
                                 "tokenizing + from_chars",
                                 "naive design",
                                 "library: reader alone",
                                 "library: parse_mem",
                                 "library: parse_file",
                                 "library: read all back",
                                 "kit: preflight and load",
                                 "lcms2 IT8 reader"};
constexpr const char* kReference = "tokenizing + from_chars";

struct File {
  std::string name;
  std::string text;
  int mode = 0;  // of set_parse_mode
};

void check(bool is_right, const char* what) {
  if (is_right) return;
  std::fprintf(stderr, "failed: %s\n", what);
  std::exit(1);
}

std::string read_whole(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void write_whole(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string temporary_path(const std::string& name) {
  return (std::filesystem::temp_directory_path() / ("measdata-bench-" + name + ".txt")).string();
}

class Handle {
 public:
  explicit Handle(int mode = 0) : handle_(init_parser()) { set_parse_mode(handle_, mode); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { cleanup_parser(&handle_); }

  void load(const std::string& text) {
    check(parse_mem(handle_, text.size(), text.data(), "bench") == 1, "parse_mem");
  }
  void load_file(const std::string& path) {
    check(parse_file(handle_, path.c_str()) == 1, "parse_file");
  }
  void* get() const { return handle_; }

 private:
  void* handle_;
};

// Every value of every patch.
double read_back(void* handle) {
  double sum = 0.0;
  double values[15] = {};
  const int patches = num_patches(handle);
  const int bands = spectral_size(handle);
  for (int patch = 0; patch < patches; ++patch) {
    sum += *get_id_from_patch(handle, patch) + *get_name_from_patch(handle, patch);
    get_dev_from_patch(handle, patch, values);
    sum += values[0];
    get_xyz_from_patch(handle, patch, values);
    sum += values[0];
    get_lab_from_patch(handle, patch, values);
    sum += values[0];
    if (const double* spectrum = get_spectrum_from_patch(handle, patch)) {
      for (int band = 0; band < bands; ++band) sum += spectrum[band];
    }
  }
  return sum;
}

using Work = std::function<void()>;

void add(const std::string& name, const Work& work) {
  benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
    for (auto _ : state) work();
  });
}

// The work on a text that is made when its turn comes.
void add_made(const std::string& name, const std::function<std::string()>& make) {
  benchmark::RegisterBenchmark(name.c_str(), [make](benchmark::State& state) {
    const std::string text = make();
    for (auto _ : state) Handle().load(text);
  });
}

void add_file(const File& file) {
  const std::string& text = file.text;
  const std::size_t tokens = bench::count_tokens(text);
  const std::string path = temporary_path(file.name);
  write_whole(path, text);
  const auto add_row = [&file](const char* row, const Work& work) {
    add(file.name + "/" + row, work);
  };
  add_row("newline scan", [&text] { benchmark::DoNotOptimize(bench::count_lines(text)); });
  add_row("tokenizing", [&text] { benchmark::DoNotOptimize(bench::count_tokens(text)); });
  add_row(kReference,
          [&text, tokens] { benchmark::DoNotOptimize(bench::read_numbers(text, tokens).data()); });
  add_row("naive design",
          [&text] { benchmark::DoNotOptimize(bench::read_naively(text).numbers.data()); });
  add_row("library: reader alone", [&file] {
    vantor::MeasData::MeasFileParser reader(file.mode + 1);
    check(reader.load_view(file.text), "load_view");
  });
  add_row("library: parse_mem", [&file] { Handle(file.mode).load(file.text); });
  add_row("library: parse_file", [path, mode = file.mode] { Handle(mode).load_file(path); });
  if (file.mode == 0) {
    add_row("kit: preflight and load", [&text] {
      const measkit::Preflighted tables = measkit::preflight(text, "bench");
      check(tables.tables.size() == 1, "preflight");
    });
  }
  benchmark::RegisterBenchmark((file.name + "/library: read all back").c_str(),
                               [&file](benchmark::State& state) {
                                 Handle handle(file.mode);
                                 handle.load(file.text);
                                 for (auto _ : state) {
                                   benchmark::DoNotOptimize(read_back(handle.get()));
                                 }
                               });
#ifdef MEASDATA_BENCH_IT8
  if (file.name == "it8") {
    add_row("lcms2 IT8 reader",
            [&text] { check(bench::read_as_it8(text) > 0, "cmsIT8LoadFromMem"); });
  }
#endif
}

void add_parts() {
  benchmark::RegisterBenchmark("merge", [](benchmark::State& state) {
    const std::string text = bench::narrow_chart(kBigRows, kBigRows);
    vantor::MeasData::MeasFileParser reader(1);
    vantor::DataSet::PatchDataSet all;
    check(vantor::DataSet::read_memory(all, text, reader), "read_memory");
    for (auto _ : state) {
      vantor::DataSet::PatchDataSet unique;
      vantor::DataSet::merge_repeats(all, unique);
      benchmark::DoNotOptimize(unique.num_patches);
    }
  });
  benchmark::RegisterBenchmark("cxf", [](benchmark::State& state) {
    const std::string text = bench::cxf_document(kCxfPatches);
    for (auto _ : state) {
      const measkit::Preflighted tables = measkit::preflight(text, "bench");
      check(tables.tables.size() == 1, "preflight of CxF");
    }
  });
  benchmark::RegisterBenchmark("lab", [](benchmark::State& state) {
    Handle handle;
    handle.load(bench::spectral_chart(kSmallRows, kSmallRows));
    for (auto _ : state) {
      double lab[3] = {};
      for (int patch = 0; patch < kSmallRows; ++patch) {
        get_lab_from_patch(handle.get(), patch, lab);
        benchmark::DoNotOptimize(lab);
      }
    }
  });
  benchmark::RegisterBenchmark("ciede2000", [](benchmark::State& state) {
    Handle handle;
    handle.load(bench::narrow_chart(kSmallRows + 1, kSmallRows + 1));
    std::vector<measkit::Lab> colours;
    for (int patch = 0; patch <= kSmallRows; ++patch) {
      double lab[3] = {};
      get_lab_from_patch(handle.get(), patch, lab);
      colours.push_back({lab[0], lab[1], lab[2]});
    }
    for (auto _ : state) {
      double sum = 0.0;
      for (std::size_t i = 0; i < kSmallRows; ++i)
        sum += measkit::delta_e_2000(colours[i], colours[i + 1]);
      benchmark::DoNotOptimize(sum);
    }
  });
  benchmark::RegisterBenchmark("pairs", [](benchmark::State& state) {
    const std::string text = bench::single_patch_chart(kPairRows);
    vantor::MeasData::MeasFileParser reader(1);
    vantor::DataSet::PatchDataSet all;
    check(vantor::DataSet::read_memory(all, text, reader), "read_memory");
    std::vector<std::uint32_t> rows(all.spectra.rows());
    std::iota(rows.begin(), rows.end(), 0U);
    for (auto _ : state) {
      benchmark::DoNotOptimize(vantor::ColorTypes::pairwiseDistances(all.spectra, rows));
    }
  });
  for (int count = kFirstDoubled; count <= kLastDoubled; count *= 2) {
    const std::string suffix = "/" + std::to_string(count);
    add_made("rows" + suffix, [count] { return bench::narrow_chart(count, count); });
    add_made("keywords" + suffix, [count] { return bench::keyword_file(count); });
    add_made("fields" + suffix, [count] { return bench::wide_file(count); });
  }
}

// Peak memory of a process in bytes for each byte of the file that it reads: by file, then by row.
using Memory = std::map<std::string, std::map<std::string, double>>;

void measure_memory(const char* name, const std::function<std::string()>& make, Memory& memory) {
  const std::string path = temporary_path("memory");
  bench::peak_bytes([&] { write_whole(path, make()); });
  const auto bytes = static_cast<double>(std::filesystem::file_size(path));
  const auto add_row = [&](const char* row, const Work& work) {
    memory[name][row] = bench::peak_bytes(work) / bytes;
  };
  add_row(kReference, [&path] {
    const std::string text = read_whole(path);
    benchmark::DoNotOptimize(bench::read_numbers(text, bench::count_tokens(text)).data());
  });
  add_row("naive design", [&path] {
    benchmark::DoNotOptimize(bench::read_naively(read_whole(path)).numbers.data());
  });
  add_row("library: parse_mem", [&path] { Handle().load(read_whole(path)); });
  add_row("library: parse_file", [&path] { Handle().load_file(path); });
  std::filesystem::remove(path);
}

// In the files with repeats, two rows have the same device values.
Memory measure_memory() {
  Memory memory;
  measure_memory(
      "big", [] { return bench::spectral_chart(kBigRows, kBigRows); }, memory);
  measure_memory(
      "big, repeats", [] { return bench::spectral_chart(kBigRows, kBigRows / 2); }, memory);
  measure_memory(
      "narrow", [] { return bench::narrow_chart(kNarrowRows, kNarrowRows); }, memory);
  measure_memory(
      "narrow, repeats", [] { return bench::narrow_chart(kNarrowRows, kNarrowRows / 2); }, memory);
  return memory;
}

void print_memory(const Memory& memory) {
  std::vector<std::vector<std::string>> table = {{"peak memory, bytes per byte of the file"}};
  for (const auto& [file, rows] : memory) table[0].push_back(file);
  for (const char* row : kRows) {
    std::vector<std::string> line = {row};
    for (const auto& [file, rows] : memory) {
      if (const auto peak = rows.find(row); peak != rows.end()) {
        line.push_back(format("%.2f", peak->second));
      }
    }
    if (line.size() > 1) table.push_back(line);
  }
  bench::print_table(table);
}

#ifdef MEASDATA_BENCH_IT8
// The reader refuses tables with too many cells; the largest file that it takes.
std::string largest_it8_file() {
  int taken = 1;
  int refused = kBigRows;
  while (refused - taken > 1) {
    const int rows = (taken + refused) / 2;
    (bench::read_as_it8(bench::spectral_chart(rows, rows)) > 0 ? taken : refused) = rows;
  }
  return bench::spectral_chart(taken, taken);
}
#endif

void print_files(const std::vector<File>& files, const bench::Times& times) {
  std::vector<std::vector<std::string>> table(1);
  table[0] = {"milliseconds (speed, " + std::string(kReference) + " = 1)"};
  for (const File& file : files) {
    table[0].push_back(file.name + ", " +
                       format("%.1f MB", static_cast<double>(file.text.size()) / 1e6));
  }
  for (const char* row : kRows) {
    std::vector<std::string> line = {row};
    for (const File& file : files) {
      const double time = times.of(file.name + "/" + row);
      const double reference = times.of(file.name + "/" + kReference);
      line.push_back(
          time == 0.0 ? "" : format("%.2f", time * 1e3) + format(" (%.2f)", reference / time));
    }
    table.push_back(line);
  }
  bench::print_table(table);
}

// The largest factor between the times of a count and twice the count.
double worst_doubling(const bench::Times& times, const std::string& what) {
  double worst = 0.0;
  for (int count = kFirstDoubled; 2 * count <= kLastDoubled; count *= 2) {
    worst = std::max(worst, times.of(what + "/" + std::to_string(2 * count)) /
                                times.of(what + "/" + std::to_string(count)));
  }
  return worst;
}

// The factor of a doubling on average over the whole range.
double mean_doubling(const bench::Times& times, const std::string& what) {
  double doublings = 0.0;
  int last = kFirstDoubled;
  for (; 2 * last <= kLastDoubled; last *= 2) ++doublings;
  return std::pow(times.of(what + "/" + std::to_string(last)) /
                      times.of(what + "/" + std::to_string(kFirstDoubled)),
                  1.0 / doublings);
}

// What the preflight adds to the load of the same text.
std::string added_by_preflight(const bench::Times& times, const File& file) {
  const double added = times.of(file.name + "/kit: preflight and load") -
                       times.of(file.name + "/library: parse_mem");
  return format("%.0f MB/s", static_cast<double>(file.text.size()) / 1e6 / std::max(added, 1e-9));
}

void print_parts(const std::vector<File>& files, const bench::Times& times) {
  std::vector<std::vector<std::string>> table = {{"what", "measured"}};
  for (const File& file : files) {
    if (times.of(file.name + "/kit: preflight and load") == 0.0) continue;
    table.push_back(
        {"preflight of " + file.name + ", on top of the load", added_by_preflight(times, file)});
  }
  table.push_back(
      {"merging 100,000 distinct rows of 4 channels", format("%.1f ms", times.of("merge") * 1e3)});
  table.push_back(
      {"reading and loading CxF of 20,000 spectra of 36 bands",
       format("%.0f MB/s", static_cast<double>(bench::cxf_document(kCxfPatches).size()) /
                               times.of("cxf") / 1e6)});
  table.push_back({"Lab from spectra of 36 bands",
                   format("%.1f million patches per second", kSmallRows / times.of("lab") / 1e6)});
  table.push_back({"CIEDE2000", format("%.1f million pairs per second",
                                       kSmallRows / times.of("ciede2000") / 1e6)});
  table.push_back({"statistics of repeats, 36 bands",
                   format("%.0f million pairs per second",
                          0.5 * kPairRows * (kPairRows - 1) / times.of("pairs") / 1e6)});
  for (const char* what : {"rows", "keywords", "fields"}) {
    table.push_back({"time when the number of " + std::string(what) + " doubles",
                     format("x %.2f on average", mean_doubling(times, what)) +
                         format(", x %.2f at most", worst_doubling(times, what))});
  }
  bench::print_table(table);
}

}  // namespace

int main(int argc, char** argv) {
  const Memory memory = measure_memory();

  std::vector<std::string> arguments = {argv[0], "--benchmark_repetitions=5",
                                        "--benchmark_min_time=0.1",
                                        "--benchmark_enable_random_interleaving=true"};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  int count = static_cast<int>(pointers.size());
  benchmark::Initialize(&count, pointers.data());
  if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) return 1;

  std::vector<File> files = {
      {"small", bench::spectral_chart(kSmallRows, kSmallRows)},
      {"big", bench::spectral_chart(kBigRows, kBigRows)},
      {"narrow", bench::narrow_chart(kNarrowRows, kNarrowRows)},
      {"percent", bench::percent_chart(kBigRows)},
      {"repeats", bench::spectral_chart(10000, 2000)},
      {"semicolon", bench::semicolon_table(kBigRows), 1},
  };
#ifdef MEASDATA_BENCH_IT8
  files.push_back({"it8", largest_it8_file()});
#endif
  for (const File& file : files) add_file(file);
  add_parts();

  bench::Times times;
  benchmark::RunSpecifiedBenchmarks(&times);
  print_files(files, times);
  std::printf("\n");
  print_memory(memory);
  std::printf("\n");
  print_parts(files, times);
  for (const File& file : files) std::filesystem::remove(temporary_path(file.name));
  return 0;
}
