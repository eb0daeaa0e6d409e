// The tables of the page about messages.
#ifndef MEASDATA_DOCS_SAMPLES_TEST_MESSAGES_TABLE_H
#define MEASDATA_DOCS_SAMPLES_TEST_MESSAGES_TABLE_H

#include <string>
#include <string_view>
#include <vector>

namespace guide {

/// The first two columns of a row.
struct Row {
  std::string text;  ///< with <names> for what changes
  std::string load;
};

std::vector<Row> rows_of_page();

/// Stands for one character or more in a pattern.
inline constexpr char kAnyText = '*';

/// The pattern of a text with <names>.
std::string pattern_of(const std::string& text);

/// Whether a text is, from end to end, what the pattern says.
bool fits(std::string_view text, std::string_view pattern);

}  // namespace guide

#endif  // MEASDATA_DOCS_SAMPLES_TEST_MESSAGES_TABLE_H
