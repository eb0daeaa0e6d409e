// Measurement files made by chance, sound ones and broken ones.
#ifndef MEASDATA_TESTS_SUPPORT_GENERATED_TEXT_H
#define MEASDATA_TESTS_SUPPORT_GENERATED_TEXT_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace test {

/// The same seed gives the same texts everywhere.
class TextGenerator {
 public:
  explicit TextGenerator(std::uint64_t seed) : random_(seed) {}

  /// A file with a header, a semicolon table or a plain table.
  std::string text();
  /// The same text with one to four faults.
  std::string broken(std::string text);

 private:
  std::size_t below(std::size_t n) { return static_cast<std::size_t>(random_() % n); }
  bool one_in(std::size_t n) { return below(n) == 0; }
  template <typename List>
  auto one_of(const List& list) {
    return list[below(std::size(list))];
  }
  std::string some_of(std::string_view bytes, std::size_t most);

  std::string file_with_header();
  std::string semicolon_table();
  std::string plain_table();

  // From the first `choice` fields of the list.
  std::vector<std::string> field_names(std::size_t count, std::size_t choice);
  std::string header_line();
  std::string row(std::size_t width);
  std::string semicolon_row(std::size_t width);
  std::string gap();
  std::string number();
  std::string name_cell();
  std::string quoted();
  std::string padding();
  void end_line(std::string& text);

  void break_once(std::string& text);
  void break_lines(std::string& text);
  std::string strange_bytes();

  std::mt19937_64 random_;
  std::string line_break_;  // of the text at hand; empty for any mixture
};

}  // namespace test

#endif  // MEASDATA_TESTS_SUPPORT_GENERATED_TEXT_H
