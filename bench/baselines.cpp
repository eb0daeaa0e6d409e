#include "bench/baselines.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <sstream>
#include <utility>

namespace bench {
namespace {

// One blank separates most files' tokens; a table with semicolons in its first line has those.
struct BlankSeparated {
  static bool is_separator(char c) { return c == ' ' || c == '\t' || c == '\n'; }
};
struct SemicolonSeparated {
  static bool is_separator(char c) { return c == ';' || c == '\n'; }
};

bool is_semicolon_table(std::string_view text) {
  return text.substr(0, text.find('\n')).find(';') != std::string_view::npos;
}

template <typename Separators, typename Take>
void for_each_token(std::string_view text, Take take) {
  const char* next = text.data();
  const char* end = next + text.size();
  while (next != end) {
    const char* start = next;
    while (next != end && !Separators::is_separator(*next)) ++next;
    if (next != start) take(start, next);
    if (next != end) ++next;
  }
}

template <typename Take>
void for_each_token(std::string_view text, Take take) {
  if (is_semicolon_table(text)) {
    for_each_token<SemicolonSeparated>(text, take);
  } else {
    for_each_token<BlankSeparated>(text, take);
  }
}

}  // namespace

std::size_t count_lines(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::size_t count_tokens(std::string_view text) {
  std::size_t count = 0;
  for_each_token(text, [&count](const char*, const char*) { ++count; });
  return count;
}

std::vector<double> read_numbers(std::string_view text, std::size_t expected) {
  std::vector<double> numbers;
  numbers.reserve(expected);
  for_each_token(text, [&numbers](const char* start, const char* end) {
    double value = 0.0;
    std::from_chars(start, end, value);
    numbers.push_back(value);
  });
  return numbers;
}

NaiveTable read_naively(const std::string& text) {
  NaiveTable table;
  const char* separators = is_semicolon_table(text) ? ";" : " \t";
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::vector<std::string> cells;
    std::size_t start = 0;
    while ((start = line.find_first_not_of(separators, start)) != std::string::npos) {
      const std::size_t end = std::min(line.find_first_of(separators, start), line.size());
      cells.push_back(line.substr(start, end - start));
      start = end;
    }
    table.cells.push_back(std::move(cells));
  }
  for (const std::vector<std::string>& cells : table.cells) {
    std::vector<double> numbers;
    for (const std::string& cell : cells) numbers.push_back(std::atof(cell.c_str()));
    table.numbers.push_back(std::move(numbers));
  }
  return table;
}

}  // namespace bench
