// What a load is compared with: how little work a reader can do, and how much.
#ifndef MEASDATA_BENCH_BASELINES_H
#define MEASDATA_BENCH_BASELINES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

std::size_t count_lines(std::string_view text);

/// Tokens between blanks, tabs and line feeds, nothing else about them looked at. A semicolon table
/// is cut at semicolons and line feeds.
std::size_t count_tokens(std::string_view text);

/// The same, with std::from_chars turning each token into a number, 0 where it is none.
std::vector<double> read_numbers(std::string_view text, std::size_t expected);

/// The design that comes to mind first: strings in vectors in a vector, atof for each cell.
struct NaiveTable {
  std::vector<std::vector<std::string>> cells;
  std::vector<std::vector<double>> numbers;
};
NaiveTable read_naively(const std::string& text);

}  // namespace bench

#endif  // MEASDATA_BENCH_BASELINES_H
