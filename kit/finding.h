// What the kit noticed in a file, and what it did about it.
#ifndef MEASDATA_KIT_FINDING_H
#define MEASDATA_KIT_FINDING_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace measkit {

enum class Severity {
  note,      ///< worth knowing; nothing was changed and nothing is wrong
  repaired,  ///< the plain text differs from the file here
  doubtful,  ///< two readings are possible; nothing was changed
  lost,      ///< something of the file cannot be kept
};

struct Finding {
  std::string_view code;  ///< for programs; a literal, such as "spectra-in-percent"
  Severity severity;
  std::string sentence;  ///< for people, with the figures that led to it
  std::size_t line;      ///< of the file, counted from 1; 0 when it is about no one line
};

/// A list that no file can make endless: findings beyond the first kMost are counted only.
class Findings {
 public:
  static constexpr std::size_t kMost = 100;

  void add(Severity severity, std::string_view code, std::string sentence, std::size_t line = 0) {
    if (severity != Severity::note) has_other_than_notes_ = true;
    if (list_.size() < kMost) {
      list_.push_back({code, severity, std::move(sentence), line});
    } else {
      ++more_;
    }
  }

  void append(const Findings& others) {
    for (const Finding& one : others.list_) add(one.severity, one.code, one.sentence, one.line);
    more_ += others.more_;
  }
  const std::vector<Finding>& list() const { return list_; }
  /// How many findings are not in the list.
  std::size_t more() const { return more_; }
  bool has(std::string_view code) const {
    return std::any_of(list_.begin(), list_.end(),
                       [code](const Finding& finding) { return finding.code == code; });
  }
  bool has_other_than_notes() const { return has_other_than_notes_; }

 private:
  std::vector<Finding> list_;
  std::size_t more_ = 0;
  bool has_other_than_notes_ = false;
};

}  // namespace measkit

#endif  // MEASDATA_KIT_FINDING_H
