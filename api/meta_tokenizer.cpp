#include "api/meta_tokenizer.h"

namespace vantor::Api {
namespace {

constexpr std::string_view kDoubledQuote = "\"\"";

std::string without_doubled_quotes(std::string_view word) {
  std::string text;
  for (std::size_t i = 0; i < word.size(); ++i) {
    text += word[i];
    if (word.substr(i).starts_with(kDoubledQuote)) ++i;
  }
  return text;
}

}  // namespace

bool Words::next() {
  std::string_view word;
  if (!tokenizer_.next(word)) return false;
  const std::size_t place = count_++ % kKept;
  if (tokenizer_.is_quoted() && word.find(kDoubledQuote) != std::string_view::npos) {
    word = unescaped_[place] = without_doubled_quotes(word);
  }
  words_[place] = word;
  return true;
}

}  // namespace vantor::Api
