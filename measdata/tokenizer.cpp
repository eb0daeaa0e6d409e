#include "measdata/tokenizer.h"

namespace vantor::MeasData {

// Called with next_ on the opening quote; leaves it behind the closing one and a separator there.
std::string_view Tokenizer::take_quoted() {
  const char* start = next_ + 1;
  const char* close = start;
  while (close != end_) {
    if (*close == '"') {
      const bool is_doubled = close + 1 != end_ && close[1] == '"';
      if (!is_doubled) break;
      ++close;
    }
    ++close;
  }
  next_ = close;
  if (next_ != end_) ++next_;
  if (next_ != end_ && rules_.is_separator(*next_)) ++next_;
  return {start, static_cast<std::size_t>(close - start)};
}

void split(std::string_view line, const TokenRules& rules, std::vector<std::string_view>& tokens) {
  tokens.clear();
  Tokenizer tokenizer(line, rules);
  for (std::string_view token; tokenizer.next(token);) tokens.push_back(token);
}

void split_items(std::string_view line, const TokenRules& rules, char comment_char,
                 std::vector<std::string_view>& items) {
  items.clear();
  Tokenizer tokenizer(line, rules);
  for (std::string_view token; tokenizer.next(token) && !opens_comment(token, comment_char);) {
    items.push_back(token);
  }
}

std::size_t count_tokens(std::string_view line, const TokenRules& rules) {
  std::size_t count = 0;
  Tokenizer tokenizer(line, rules);
  for (std::string_view token; tokenizer.next(token);) ++count;
  return count;
}

std::size_t count_items(std::string_view line, const TokenRules& rules, char comment_char) {
  std::size_t count = 0;
  Tokenizer tokenizer(line, rules);
  for (std::string_view token; tokenizer.next(token) && !opens_comment(token, comment_char);) {
    ++count;
  }
  return count;
}

}  // namespace vantor::MeasData
