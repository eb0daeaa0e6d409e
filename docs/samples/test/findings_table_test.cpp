// Compares the table of findings with the sources of the kit, in both directions.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;

std::string text_of(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string sources() {
  std::string text;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCES) / "kit")) {
    if (entry.path().extension() == ".cpp") text += text_of(entry.path());
  }
  return text;
}

// The text between the next two `quotes` behind `at`, which moves behind them; empty without any.
std::string_view next_quoted(std::string_view text, char quotes, std::size_t& at) {
  const std::size_t start = text.find(quotes, at);
  const std::size_t end = start == text.npos ? text.npos : text.find(quotes, start + 1);
  if (end == text.npos) return {};
  at = end + 1;
  return text.substr(start + 1, end - start - 1);
}

// The codes of the table's rows with their severities.
std::map<std::string, std::string, std::less<>> codes_of_page() {
  std::map<std::string, std::string, std::less<>> codes;
  const fs::path guide = fs::path(SOURCES) / "docs/guide";
  std::istringstream page(text_of(guide / "kit.md") + text_of(guide / "comparing.md"));
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with("| `")) continue;
    const std::size_t names = line.find(" |");
    const std::string severities = line.substr(names, line.find(" |", names + 2) - names);
    const bool is_finding = severities == " | note" || severities == " | doubtful" ||
                            severities.find("repaired") != std::string::npos ||
                            severities.find("lost") != std::string::npos;
    if (!is_finding) continue;  // of another table
    std::size_t at = 0;
    const std::string_view cell = std::string_view(line).substr(0, names);
    for (std::string_view code = next_quoted(cell, '`', at); !code.empty();
         code = next_quoted(cell, '`', at)) {
      EXPECT_TRUE(codes.emplace(code, severities).second) << "twice: " << code;
    }
  }
  return codes;
}

TEST(GuideFindings, TheTableHoldsWhatTheSourcesHold) {
  const std::string text = sources();
  const auto page = codes_of_page();
  for (const auto& [code, severities] : page) {
    EXPECT_NE(text.find('"' + code + '"'), text.npos) << "not in the sources: " << code;
  }
  constexpr std::string_view kMark = "(Severity::";
  std::size_t findings = 0;
  for (std::size_t at = text.find(kMark); at != text.npos; at = text.find(kMark, at)) {
    at += kMark.size();
    const std::size_t comma = text.find(',', at);
    const std::string severity = text.substr(at, comma - at);
    const std::size_t quote = text.find_first_not_of(" \n", comma + 1);
    if (quote == text.npos || text[quote] != '"') continue;  // the code is a variable
    const std::string_view code = next_quoted(text, '"', at);
    const auto row = page.find(code);
    ASSERT_NE(row, page.end()) << "not on the page: " << code;
    EXPECT_NE(row->second.find(severity), std::string::npos) << code << " is " << severity;
    ++findings;
  }
  EXPECT_GT(findings, 40U);
}

}  // namespace
