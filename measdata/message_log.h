// The diagnostics of one read: complete English lines in order of occurrence.
#ifndef MEASDATA_MEASDATA_MESSAGE_LOG_H
#define MEASDATA_MEASDATA_MESSAGE_LOG_H

#include <initializer_list>
#include <string>
#include <string_view>

namespace vantor::MeasData {

enum class Warnings { write, drop };

/// Each message is given in pieces that are joined as they stand.
class MessageLog {
 public:
  using Pieces = std::initializer_list<std::string_view>;

  /// Forgets everything; warnings are written or dropped from now on.
  void reset(Warnings warnings);

  void error(Pieces pieces);
  void warning(Pieces pieces);
  void note(Pieces pieces);
  /// A message that is always written and counts as error and warning at once.
  void grave(Pieces pieces);

  const std::string& text() const { return text_; }
  bool no_errors() const { return no_errors_; }
  bool no_warnings() const { return no_warnings_; }
  /// Strict reading: a warning fails the read as an error does.
  void count_warnings_as_errors() { no_errors_ = no_errors_ && no_warnings_; }

 private:
  void append(Pieces pieces);

  std::string text_;
  Warnings warnings_ = Warnings::write;
  bool no_errors_ = true;
  bool no_warnings_ = true;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_MESSAGE_LOG_H
