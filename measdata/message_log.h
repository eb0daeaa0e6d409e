// The diagnostics of one read: complete English lines in order of occurrence.
#ifndef MEASDATA_MEASDATA_MESSAGE_LOG_H
#define MEASDATA_MEASDATA_MESSAGE_LOG_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantor::MeasData {

enum class Warnings { write, drop };

/// Keeps what each message says in a few bytes and writes the lines when they are asked for: a
/// short line of a file can earn a long message, and most reads succeed, whose messages nobody
/// asks for.
///
/// The format of a message is a literal, in which '%' stands for its arguments in turn.
class MessageLog {
 public:
  struct Argument {
    Argument(std::string_view name) : text(name) {}  // NOLINT(google-explicit-constructor)
    Argument(const char* name) : text(name) {}       // NOLINT(google-explicit-constructor)
    Argument(std::size_t count) : number(count), is_number(true) {}  // NOLINT: as above
    std::string_view text;
    std::size_t number = 0;
    bool is_number = false;
  };
  using Arguments = std::initializer_list<Argument>;

  /// Forgets everything; warnings are written or dropped from now on. Arguments that lie in
  /// `source`, which must outlive the log, are not copied.
  void reset(Warnings warnings, std::string_view source);

  void error(const char* format, Arguments arguments = {});
  void warning(const char* format, Arguments arguments = {});
  void note(const char* format, Arguments arguments = {});
  /// A message that is always written and counts as error and warning at once.
  void grave(const char* format, Arguments arguments = {});

  std::string text() const;
  bool no_errors() const { return no_errors_; }
  bool no_warnings() const { return no_warnings_; }
  /// Strict reading: a warning fails the read as an error does.
  void count_warnings_as_errors() { no_errors_ = no_errors_ && no_warnings_; }

 private:
  void append(const char* format, Arguments arguments);
  void append_argument(const Argument& argument);
  void append_number(std::uint64_t number);
  template <typename Take>
  void for_each_piece(Take take) const;
  template <typename Take>
  void for_each_piece_of(std::span<const unsigned char> block, Take& take) const;

  std::string_view source_;
  std::vector<const char*> formats_;  // those in use, each once
  // For each message the position of its format and its arguments. No message lies in two blocks,
  // and no block is moved when others come.
  std::vector<std::vector<unsigned char>> blocks_;
  Warnings warnings_ = Warnings::write;
  bool no_errors_ = true;
  bool no_warnings_ = true;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_MESSAGE_LOG_H
