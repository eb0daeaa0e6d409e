// Cuts a line into tokens.
#ifndef MEASDATA_MEASDATA_TOKENIZER_H
#define MEASDATA_MEASDATA_TOKENIZER_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace vantor::MeasData {

enum class EmptyTokens { drop, keep };
enum class Quotes { ignore, honour };

struct TokenRules {
  char separator;
  char other_separator;  ///< the same byte again where there is only one
  EmptyTokens empty_tokens;
  Quotes quotes;

  bool is_separator(char c) const { return c == separator || c == other_separator; }
};

/// Items of data rows and field lists, in every mode but the semicolon table.
inline constexpr TokenRules kBlankSeparated = {' ', '\t', EmptyTokens::drop, Quotes::honour};
/// Cells of a semicolon table.
inline constexpr TokenRules kSemicolonTable = {';', ';', EmptyTokens::keep, Quotes::honour};

/// Yields the tokens of a line one after the other, as views into it.
///
/// A token that begins with a double quote runs to the closing quote and is given without both; a
/// doubled quote inside does not close it and stays doubled. Without a closing quote it runs to the
/// end of the line. Text right behind a closing quote begins a new token.
class Tokenizer {
 public:
  Tokenizer(std::string_view line, const TokenRules& rules)
      : next_(line.data()), end_(line.data() + line.size()), rules_(rules) {}

  /// Moves to the next token; false when there is none.
  bool next(std::string_view& token) {
    while (next_ != end_) {
      if (rules_.quotes == Quotes::honour && *next_ == '"') {
        token = take_quoted();
        is_quoted_ = true;
        return true;
      }
      is_quoted_ = false;
      const char* start = next_;
      while (next_ != end_ && !rules_.is_separator(*next_)) ++next_;
      token = std::string_view(start, static_cast<std::size_t>(next_ - start));
      if (next_ != end_) ++next_;
      if (!token.empty() || rules_.empty_tokens == EmptyTokens::keep) return true;
    }
    return false;
  }

  /// True when the token that next() gave stood in quotes.
  bool is_quoted() const { return is_quoted_; }

 private:
  std::string_view take_quoted();

  const char* next_;
  const char* end_;
  TokenRules rules_;
  bool is_quoted_ = false;
};

/// All tokens of a line; `tokens` is emptied first.
void split(std::string_view line, const TokenRules& rules, std::vector<std::string_view>& tokens);

/// The tokens before the first that begins with the comment character; `items` is emptied first.
void split_items(std::string_view line, const TokenRules& rules, char comment_char,
                 std::vector<std::string_view>& items);

std::size_t count_tokens(std::string_view line, const TokenRules& rules);

/// How many tokens stand before the first that begins with the comment character.
std::size_t count_items(std::string_view line, const TokenRules& rules, char comment_char);

/// True for a token that opens a comment.
inline bool opens_comment(std::string_view token, char comment_char) {
  return !token.empty() && token.front() == comment_char;
}

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_TOKENIZER_H
