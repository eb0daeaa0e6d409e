// Simple readers for comparison with the library, from the least to the most work.
#ifndef MEASDATA_BENCH_BASELINES_H
#define MEASDATA_BENCH_BASELINES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

std::size_t count_lines(std::string_view text);

/// Counts the tokens between spaces, tabs and line feeds. A semicolon table is split at semicolons
/// and line feeds.
std::size_t count_tokens(std::string_view text);

/// Converts each of these tokens with std::from_chars; a token that is no number becomes 0.
std::vector<double> read_numbers(std::string_view text, std::size_t expected);

/// The simplest design: vectors of vectors of strings, and atof for each cell.
struct NaiveTable {
  std::vector<std::vector<std::string>> cells;
  std::vector<std::vector<double>> numbers;
};
NaiveTable read_naively(const std::string& text);

}  // namespace bench

#endif  // MEASDATA_BENCH_BASELINES_H
