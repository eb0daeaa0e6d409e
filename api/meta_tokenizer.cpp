#include "api/meta_tokenizer.h"

#include "measdata/tokenizer.h"

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

Words::Words(std::string_view text) {
  words_.reserve(MeasData::count_tokens(text, MeasData::kBlankSeparated));
  MeasData::Tokenizer tokenizer(text, MeasData::kBlankSeparated);
  for (std::string_view word; tokenizer.next(word);) {
    if (tokenizer.is_quoted() && word.find(kDoubledQuote) != std::string_view::npos) {
      word = unescaped_.emplace_back(without_doubled_quotes(word));
    }
    words_.push_back(word);
  }
}

}  // namespace vantor::Api
