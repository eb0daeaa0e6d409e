// Lines and tokens for the reference reader, one byte after the other.
#ifndef MEASDATA_TESTS_MEASDATA_REFERENCE_TEXT_H
#define MEASDATA_TESTS_MEASDATA_REFERENCE_TEXT_H

#include <cstddef>
#include <string>
#include <vector>

namespace test {

enum class Quotes { ignored, honoured };
enum class Empty { dropped, kept };

std::vector<std::string> lines_of(const std::string& text);

/// Doubled quotes inside a quoted token stay doubled.
std::vector<std::string> tokens_of(const std::string& line, const std::string& separators,
                                   Quotes quotes, Empty empty);

bool is_comment(const std::string& token, char comment_char);

std::vector<std::string> items_before_comment(const std::vector<std::string>& tokens,
                                              char comment_char);

/// The tokens from `first` on, with blanks between them.
std::string joined(const std::vector<std::string>& tokens, std::size_t first);

}  // namespace test

#endif  // MEASDATA_TESTS_MEASDATA_REFERENCE_TEXT_H
