// Cuts the free text by which files describe instrument and measurement into words.
#ifndef MEASDATA_API_META_TOKENIZER_H
#define MEASDATA_API_META_TOKENIZER_H

#include <string>
#include <string_view>
#include <vector>

namespace vantor::Api {

using Words = std::vector<std::string>;

/// Words end at blanks and tabs. One that begins with a double quote runs to its closing quote; two
/// double quotes in a row inside it stand for one.
Words split_words(std::string_view text);

}  // namespace vantor::Api

#endif  // MEASDATA_API_META_TOKENIZER_H
