#include "api/meta_tokenizer.h"

#include "measdata/tokenizer.h"

#include <cstddef>

namespace vantor::Api {

Words split_words(std::string_view text) {
  Words words;
  MeasData::Tokenizer tokenizer(text, MeasData::kBlankSeparated);
  for (std::string_view token; tokenizer.next(token);) {
    std::string& word = words.emplace_back();
    for (std::size_t i = 0; i < token.size(); ++i) {
      word += token[i];
      const bool is_doubled = token[i] == '"' && i + 1 < token.size() && token[i + 1] == '"';
      if (tokenizer.is_quoted() && is_doubled) ++i;
    }
  }
  return words;
}

}  // namespace vantor::Api
