// Asks a handle all that can be asked.
#ifndef MEASDATA_TESTS_SUPPORT_QUESTIONS_H
#define MEASDATA_TESTS_SUPPORT_QUESTIONS_H

#include <cstddef>

namespace test {

/// Calls every function that asks something, on the handle and, where that is allowed, on its
/// merged patches, with positions in range and out of range, and reads every answer to its end, so
/// that a sanitizer sees it. The result is what a compiler cannot leave out.
std::size_t ask_everything(void* handle);

}  // namespace test

#endif  // MEASDATA_TESTS_SUPPORT_QUESTIONS_H
