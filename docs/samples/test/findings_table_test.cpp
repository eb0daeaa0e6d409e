// Compares the table of findings with the sources of the kit, in both directions.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string text_of(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Codes with their severities, as far as both stand together. A code stands behind a severity, or
// it has a hyphen: no other literal of these sources has one between small letters.
std::multimap<std::string, std::string> codes_of_sources() {
  static const std::regex kCode(
      R"re(Severity::(\w+),\s*"([a-z0-9-]+)"|"([a-z0-9]+(?:-[a-z0-9]+)+)")re");
  std::multimap<std::string, std::string> codes;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCES) / "kit")) {
    const std::string path = entry.path().generic_string();
    if (!path.ends_with(".cpp") || path.find("/write/") != std::string::npos) continue;
    const std::string text = text_of(path);
    for (std::sregex_iterator match(text.begin(), text.end(), kCode), end; match != end; ++match) {
      codes.emplace((*match)[2].str() + (*match)[3].str(), (*match)[1]);
    }
  }
  return codes;
}

// The codes of each row with its severities.
std::map<std::string, std::string> codes_of_page() {
  static const std::regex kRow(R"(\n\| (`[^|]+) \| ([^|]+) \|)"), kQuoted("`([^`]+)`");
  const std::string page = text_of(fs::path(SOURCES) / "docs/guide/kit.md");
  std::map<std::string, std::string> codes;
  for (std::sregex_iterator row(page.begin(), page.end(), kRow), end; row != end; ++row) {
    const std::string names = (*row)[1];
    for (std::sregex_iterator name(names.begin(), names.end(), kQuoted); name != end; ++name) {
      EXPECT_TRUE(codes.emplace((*name)[1], (*row)[2]).second) << "twice: " << (*name)[1];
    }
  }
  return codes;
}

TEST(GuideFindings, TheTableHoldsWhatTheSourcesHold) {
  const auto sources = codes_of_sources();
  const auto page = codes_of_page();
  EXPECT_GT(sources.size(), 50U);
  for (const auto& [code, severity] : sources) {
    const auto row = page.find(code);
    ASSERT_NE(row, page.end()) << "not on the page: " << code;
    EXPECT_NE(row->second.find(severity), std::string::npos) << code << " is " << severity;
  }
  for (const auto& [code, severities] : page) {
    EXPECT_TRUE(sources.contains(code)) << "not in the sources: " << code;
  }
}

}  // namespace
