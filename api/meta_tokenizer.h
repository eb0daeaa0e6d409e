// Splits the free text by which files describe instrument and measurement into words.
#ifndef MEASDATA_API_META_TOKENIZER_H
#define MEASDATA_API_META_TOKENIZER_H

#include <string>
#include <string_view>
#include <vector>

namespace vantor::Api {

using Words = std::vector<std::string>;

/// Words end at spaces and tabs. A word that begins with a double quote ends at its closing quote;
/// two double quotes in a row inside it become one.
Words split_words(std::string_view text);

}  // namespace vantor::Api

#endif  // MEASDATA_API_META_TOKENIZER_H
