// Compares the tables of messages with the sources of the library, in both directions.
#include "docs/samples/test/messages_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace guide {
namespace {

std::string text_of(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// What stands between each `begin` and the next `end`.
std::vector<std::string> all_between(const std::string& text, std::string_view begin,
                                     std::string_view end) {
  std::vector<std::string> found;
  for (auto at = text.find(begin); at != std::string::npos; at = text.find(begin, at)) {
    at += begin.size();
    found.push_back(text.substr(at, text.find(end, at) - at));
  }
  return found;
}

// The pieces of a message, literals and expressions divided by commas, as one pattern.
std::string join(const std::string& pieces) {
  std::string pattern;
  for (std::size_t at = 0; at < pieces.size();) {
    const bool is_literal = pieces[at] == '"';
    const std::size_t end = std::min(pieces.find(is_literal ? '"' : ',', at + 1), pieces.size());
    if (is_literal) {
      pattern += pieces.substr(at + 1, end - at - 1);
    } else if (pieces.find_first_not_of(" \n", at) < end) {
      pattern += kAnyText;
    }
    at = end + 1;
    at = std::min(pieces.find_first_not_of(", \n", at), pieces.size());
  }
  const std::size_t line_end = pattern.find("\\n");
  return pattern.substr(0, line_end);
}

// The literal that a statement gives a name to, adds or returns; empty when it does none of that.
std::string stored_literal(const std::string& statement) {
  const std::size_t equals = statement.find('=');
  const std::size_t begin =
      statement.find_first_not_of(" \n", equals == std::string::npos ? 0 : equals + 1);
  return begin != std::string::npos && statement[begin] == '"' ? statement.substr(begin) : "";
}

void add_stored(const std::string& source, std::set<std::string>& patterns) {
  for (const char* begin : {"messages +", "const char* k", "return", "is_out_of_memory ?"}) {
    for (const std::string& statement : all_between(source, begin, ";")) {
      const std::string pattern = join(stored_literal(statement));
      if (pattern.size() >= 9) patterns.insert(pattern);
    }
  }
}

// Every message that the sources spell out.
std::set<std::string> patterns_of_sources() {
  std::set<std::string> patterns;
  const std::filesystem::path root(SOURCES);
  for (const char* folder : {"measdata", "dataset"}) {
    for (const auto& entry : std::filesystem::directory_iterator(root / folder)) {
      const std::string source = text_of(entry.path());
      for (const char* logged : {"error(\"", "warning(\"", "note(\"", "grave(\"", "fail(\""}) {
        for (std::string format : all_between(source, logged, "\\n")) {
          std::ranges::replace(format, '%', kAnyText);
          patterns.insert(std::move(format));
        }
      }
      add_stored(source, patterns);
    }
  }
  add_stored(text_of(root / "api/lifecycle.cpp"), patterns);
  // A condition chooses this one.
  const std::string names = text_of(root / "dataset/channel_names.cpp");
  for (const auto& rest : all_between(names, "\"stod ", "\"")) patterns.insert("stod " + rest);
  return patterns;
}

}  // namespace

std::vector<Row> rows_of_page() {
  std::vector<Row> rows;
  std::ifstream page(std::filesystem::path(SOURCES) / "docs/guide/messages.md");
  for (std::string line; std::getline(page, line);) {
    const std::size_t begin = line.find_first_not_of("| `");
    if (!line.starts_with("| `") || begin == std::string::npos) continue;
    const std::size_t end = line.find('`', begin);
    const std::size_t load = line.find(" | ", end) + 3;
    rows.push_back(
        {line.substr(begin, end - begin), line.substr(load, line.find(" |", load) - load)});
  }
  return rows;
}

std::string pattern_of(const std::string& text) {
  std::string pattern;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t end = text[at] == '<' ? text.find('>', at) : std::string::npos;
    pattern += end == std::string::npos ? text[at] : kAnyText;
    if (end != std::string::npos) at = end;
  }
  return pattern;
}

bool fits(std::string_view text, std::string_view pattern) {
  if (pattern.empty() || text.empty()) return pattern.empty() && text.empty();
  if (pattern[0] != kAnyText) {
    return text[0] == pattern[0] && fits(text.substr(1), pattern.substr(1));
  }
  return fits(text.substr(1), pattern.substr(1)) || fits(text.substr(1), pattern);
}

namespace {

TEST(GuideMessages, TheTablesHoldWhatTheSourcesHold) {
  const std::set<std::string> patterns = patterns_of_sources();
  const std::vector<Row> rows = rows_of_page();
  EXPECT_GT(patterns.size(), 30U);
  for (const std::string& pattern : patterns) {
    EXPECT_TRUE(std::ranges::any_of(rows, [&](const Row& row) { return fits(row.text, pattern); }))
        << "not on the page: " << pattern;
  }
  for (const Row& row : rows) {
    EXPECT_TRUE(std::ranges::any_of(patterns, [&](const auto& p) { return fits(row.text, p); }))
        << "not in the sources: " << row.text;
  }
}

}  // namespace
}  // namespace guide
