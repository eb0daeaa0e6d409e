// Splits the free text by which files describe instrument and measurement into words.
#ifndef MEASDATA_API_META_TOKENIZER_H
#define MEASDATA_API_META_TOKENIZER_H

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace vantor::Api {

/// The words of a text, as views into it where it holds them as they are; the text must outlive
/// them. Words end at spaces and tabs. A word that begins with a double quote ends at its closing
/// quote; two double quotes in a row inside it become one.
class Words {
 public:
  explicit Words(std::string_view text);
  Words(const Words&) = delete;
  Words& operator=(const Words&) = delete;

  std::size_t size() const { return words_.size(); }
  bool empty() const { return words_.empty(); }
  std::string_view operator[](std::size_t i) const { return words_[i]; }
  auto begin() const { return words_.begin(); }
  auto end() const { return words_.end(); }

 private:
  std::vector<std::string_view> words_;
  std::deque<std::string> unescaped_;  // those that the text holds in another form
};

}  // namespace vantor::Api

#endif  // MEASDATA_API_META_TOKENIZER_H
