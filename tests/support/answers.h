// Everything that a handle answers, as text.
#ifndef MEASDATA_TESTS_SUPPORT_ANSWERS_H
#define MEASDATA_TESTS_SUPPORT_ANSWERS_H

#include "api/measdata.h"

#include <climits>
#include <cstddef>
#include <string>

namespace test {

/// The functions of the C interface: those that are linked in, or those of a library at run time.
struct Interface {
#define MEASDATA_EXPORT(name) decltype(&::name) name;
#include "exports.inc"
#undef MEASDATA_EXPORT
};

/// The functions that are linked in.
inline Interface linked_library() {
  return {
#define MEASDATA_EXPORT(name) &::name,
#include "exports.inc"
#undef MEASDATA_EXPORT
  };
}

/// What the arrays hold that the library is asked to fill, before it does.
inline constexpr double kUnanswered = -7.0;

/// How many positions at the beginning of each list are asked for: some or all.
inline constexpr int kSomePositions = 12;
inline constexpr int kAllPositions = INT_MAX;

/// Appends a line for each answer, whatever the locale: function(position): answer. Numbers have
/// as many digits as tell them from all others. Asks for the `first` and the last positions, and
/// for some that do not exist; `handle` may be null. Takes no memory of its own: all goes to
/// `out`, where the caller reserves enough.
void write_answers(const Interface& library, void* handle, std::string& out,
                   int first = kSomePositions);

/// Room for the answers of any sample text.
inline constexpr std::size_t kAnswersSize = std::size_t{1} << 18U;

inline std::string answers(const Interface& library, void* handle) {
  std::string out;
  out.reserve(kAnswersSize);
  write_answers(library, handle, out);
  return out;
}

inline std::string answers(void* handle) { return answers(linked_library(), handle); }

}  // namespace test

#endif  // MEASDATA_TESTS_SUPPORT_ANSWERS_H
