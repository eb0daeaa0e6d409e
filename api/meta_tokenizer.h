// Splits the free text by which files describe instrument and measurement into words.
#ifndef MEASDATA_API_META_TOKENIZER_H
#define MEASDATA_API_META_TOKENIZER_H

#include "measdata/tokenizer.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace vantor::Api {

/// Walks the words of a text, which must outlive it. Words end at spaces and tabs. A word that
/// begins with a double quote ends at its closing quote; two double quotes in a row inside it
/// become one.
///
/// It remembers few words, because a text may hold millions.
class Words {
 public:
  explicit Words(std::string_view text) : tokenizer_(text, MeasData::kBlankSeparated) {}
  Words(const Words&) = delete;
  Words& operator=(const Words&) = delete;

  /// Moves to the next word; false when there is none.
  bool next();
  /// How many words were met so far.
  std::size_t count() const { return count_; }
  /// The word so many places before the last one met, at most three. Valid until three more words
  /// are met.
  std::string_view back(std::size_t places = 0) const {
    return words_[(count_ - 1 - places) % kKept];
  }

 private:
  static constexpr std::size_t kKept = 4;

  MeasData::Tokenizer tokenizer_;
  std::size_t count_ = 0;
  std::array<std::string_view, kKept> words_;
  std::array<std::string, kKept> unescaped_;  // those that the text holds in another form
};

}  // namespace vantor::Api

#endif  // MEASDATA_API_META_TOKENIZER_H
