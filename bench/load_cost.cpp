// Measures what it costs to load a large file: time, and peak memory of a process that does nothing
// else. Prints a table in Markdown.
#include "bench/charts.h"
#include "measdata.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr int kRows = 100000;

// Runs `work` in a child process, so that its memory is its own; peak resident bytes.
template <typename Work>
long in_child(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  rusage usage = {};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) {
    std::fprintf(stderr, "the child process failed\n");
    std::exit(1);
  }
  return usage.ru_maxrss * 1024L;
}

double load_milliseconds(const char* path) {
  void* handle = init_parser();
  const auto start = std::chrono::steady_clock::now();
  const int is_loaded = parse_file(handle, path);
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
  if (is_loaded != 1 || num_patches(handle) != kRows) _exit(1);
  cleanup_parser(&handle);
  return time.count();
}

}  // namespace

int main() {
  const std::string path = (std::filesystem::temp_directory_path() / "measdata-load.txt").string();
  in_child([&path] { std::ofstream(path, std::ios::binary) << bench::spectral_chart(kRows); });
  const auto bytes = static_cast<double>(std::filesystem::file_size(path));

  const auto peak = static_cast<double>(in_child([&path] { load_milliseconds(path.c_str()); }));
  std::array<double, 9> times{};
  for (double& time : times) time = load_milliseconds(path.c_str());
  std::sort(times.begin(), times.end());
  std::filesystem::remove(path);

  const double median = times[times.size() / 2];
  std::printf("| file | load, median of %zu | speed | peak memory per byte of file |\n",
              times.size());
  std::printf("|---|---|---|---|\n");
  std::printf("| %d rows x 47 columns, %.1f MB | %.0f ms | %.0f MB/s | %.2f bytes |\n", kRows,
              bytes / 1e6, median, bytes / 1e3 / median, peak / bytes);
  return 0;
}
