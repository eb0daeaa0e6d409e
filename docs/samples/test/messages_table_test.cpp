// Compares the tables of messages with the sources of the library, in both directions.
#include "docs/samples/test/messages_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace guide {
namespace {

std::string text_of(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::smatch> all_matches(const std::string& text, const std::regex& regex) {
  return {std::sregex_iterator(text.begin(), text.end(), regex), {}};
}

// The pieces of a message as one regular expression: what is not a literal may be anything.
std::string join(const std::string& pieces) {
  static const std::regex piece(R"re("((?:[^"\\]|\\.)*)"|[^\s",][^",]*)re");
  std::string pattern;
  for (const std::smatch& match : all_matches(pieces, piece)) {
    pattern += match[1].matched ? match[1].str() : ".+";
  }
  return std::regex_replace(pattern, std::regex(R"(\\n)"), "");
}

// Every message that the sources spell out.
std::set<std::string> patterns_of_sources() {
  static const std::regex logged(R"((?:error|warning|note|grave|fail)\(\{([^}]*)\}\))");
  static const std::regex stored(
      R"re((?:messages \+=|const char\* k\w+ =|return)\s+("[^"]{9,}"))re");
  std::set<std::string> patterns;
  const std::filesystem::path root(SOURCES);
  for (const char* folder : {"measdata", "dataset"}) {
    for (const auto& entry : std::filesystem::directory_iterator(root / folder)) {
      const std::string source = text_of(entry.path());
      for (const std::smatch& match : all_matches(source, logged)) patterns.insert(join(match[1]));
      for (const std::smatch& match : all_matches(source, stored)) patterns.insert(join(match[1]));
    }
  }
  const std::string lifecycle = text_of(root / "api/lifecycle.cpp");
  for (const std::smatch& match : all_matches(lifecycle, stored)) patterns.insert(join(match[1]));
  // A condition chooses this one.
  const std::string names = text_of(root / "dataset/channel_names.cpp");
  for (const std::smatch& match : all_matches(names, std::regex(R"re("(stod [^"]*)")re"))) {
    patterns.insert(match[1]);
  }
  return patterns;
}

}  // namespace

std::vector<Row> rows_of_page() {
  static const std::regex row(R"re(\n\| `+([^`]+)`+ \| ([^|]+) \|)re");
  std::vector<Row> rows;
  const std::string page = text_of(std::filesystem::path(SOURCES) / "docs/guide/messages.md");
  for (const std::smatch& match : all_matches(page, row)) rows.push_back({match[1], match[2]});
  return rows;
}

std::string pattern_of(const std::string& text) {
  return std::regex_replace(text, std::regex("<[^>]*>"), ".+");
}

namespace {

TEST(GuideMessages, TheTablesHoldWhatTheSourcesHold) {
  const std::set<std::string> patterns = patterns_of_sources();
  const std::vector<Row> rows = rows_of_page();
  EXPECT_GT(patterns.size(), 30U);
  const auto is_said = [](const std::string& pattern, const Row& row) {
    return std::regex_match(row.text, std::regex(pattern));
  };
  for (const std::string& pattern : patterns) {
    EXPECT_TRUE(std::ranges::any_of(rows, [&](const Row& row) { return is_said(pattern, row); }))
        << "not on the page: " << pattern;
  }
  for (const Row& row : rows) {
    EXPECT_TRUE(std::ranges::any_of(patterns, [&](const auto& p) { return is_said(p, row); }))
        << "not in the sources: " << row.text;
  }
}

}  // namespace
}  // namespace guide
