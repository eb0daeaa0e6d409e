#include "bench/report.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace bench {

void Times::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
    const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
    const std::string name = run.run_name.function_name;
    seconds_[name].push_back(seconds);
    std::fprintf(stderr, "%-40s %10.3f ms\n", name.c_str(), seconds * 1e3);
  }
}

double Times::of(std::string_view name) const {
  const auto found = seconds_.find(name);
  if (found == seconds_.end()) return 0.0;
  std::vector<double> sorted = found->second;
  std::sort(sorted.begin(), sorted.end());
  return sorted[sorted.size() / 2];
}

void print_table(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths(rows.front().size(), 3);
  for (const std::vector<std::string>& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  const auto print_row = [&widths](const std::vector<std::string>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      std::printf("| %-*s ", static_cast<int>(widths[i]), row[i].c_str());
    }
    std::printf("|\n");
  };
  print_row(rows.front());
  for (const std::size_t width : widths) std::printf("|%s", std::string(width + 2, '-').c_str());
  std::printf("|\n");
  std::for_each(rows.begin() + 1, rows.end(), print_row);
}

std::string format(const char* pattern, double value) {
  std::array<char, 64> buffer{};
  std::snprintf(buffer.data(), buffer.size(), pattern, value);
  return buffer.data();
}

}  // namespace bench
