// Collects the times of all benchmarks and prints them as tables.
#ifndef MEASDATA_BENCH_REPORT_H
#define MEASDATA_BENCH_REPORT_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

/// Times by name, in seconds a run. Progress goes to stderr.
class Times final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override;

  /// The median of the repetitions; 0 for a benchmark that did not run.
  double of(std::string_view name) const;

 private:
  std::map<std::string, std::vector<double>, std::less<>> seconds_;
};

/// Prints a table of Markdown, its columns aligned.
void print_table(const std::vector<std::vector<std::string>>& rows);

/// printf into a string.
std::string format(const char* pattern, double value);

}  // namespace bench

#endif  // MEASDATA_BENCH_REPORT_H
