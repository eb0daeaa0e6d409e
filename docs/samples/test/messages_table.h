// The tables of the page about messages.
#ifndef MEASDATA_DOCS_SAMPLES_TEST_MESSAGES_TABLE_H
#define MEASDATA_DOCS_SAMPLES_TEST_MESSAGES_TABLE_H

#include <string>
#include <vector>

namespace guide {

/// The first two columns of a row.
struct Row {
  std::string text;  ///< with <names> for what changes
  std::string load;
};

std::vector<Row> rows_of_page();

/// A regular expression for a text with <names>.
std::string pattern_of(const std::string& text);

}  // namespace guide

#endif  // MEASDATA_DOCS_SAMPLES_TEST_MESSAGES_TABLE_H
