// What the documentation promises of any text, checked. A broken promise ends the process.
#ifndef MEASDATA_FUZZ_INVARIANTS_H
#define MEASDATA_FUZZ_INVARIANTS_H

#include <string>
#include <string_view>

namespace fuzz {

/// Ends the process with a message when the promise does not hold.
void promise(bool holds, const char* what);

/// A load of one text on a fresh handle.
struct Load {
  std::string_view text;
  int mode = 0;
  const char* name = "";
};

/// Promises about one load: equal texts give equal answers in whatever order they are asked for,
/// line ends do not matter, a file gives what its bytes give, and `handle`, which was loaded with
/// other texts before the same one, answers alike but for keywords.
void check_load(const Load& load, const char* path, void* handle);

/// Promises about what a handle answers: counts add up, positions that are told exist, and arrays
/// stay untouched where positions do not exist. Names of keywords end at a zero byte for a caller,
/// and so are not looked up when a text held one.
void check_answers(void* handle, bool has_zero_bytes);

}  // namespace fuzz

#endif  // MEASDATA_FUZZ_INVARIANTS_H
