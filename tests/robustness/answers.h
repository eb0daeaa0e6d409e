// Everything that a handle answers, as text.
#ifndef MEASDATA_TESTS_ROBUSTNESS_ANSWERS_H
#define MEASDATA_TESTS_ROBUSTNESS_ANSWERS_H

#include "api/measdata.h"

#include <string>

namespace test {

/// The functions of the C interface: those that are linked in, or those of a library at run time.
struct Interface {
#define MEASDATA_EXPORT(name) decltype(&::name) name;
#include "exports.inc"
#undef MEASDATA_EXPORT
};

/// Appends a line for each answer, whatever the locale, up to one position beyond the last of each
/// list. Takes no memory of its own: all goes to `out`, where the caller reserves enough.
void write_answers(const Interface& library, void* handle, std::string& out);

/// Room for the answers of any sample text.
inline constexpr std::size_t kAnswersSize = std::size_t{1} << 18U;

inline std::string answers(const Interface& library, void* handle) {
  std::string out;
  out.reserve(kAnswersSize);
  write_answers(library, handle, out);
  return out;
}

}  // namespace test

#endif  // MEASDATA_TESTS_ROBUSTNESS_ANSWERS_H
