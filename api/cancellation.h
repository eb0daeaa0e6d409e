// Keeps a thread from being cancelled.
#ifndef MEASDATA_API_CANCELLATION_H
#define MEASDATA_API_CANCELLATION_H

#if __has_include(<pthread.h>) && !defined(__wasm__)  // no threads there
#include <pthread.h>
#endif

namespace vantor::Api {

/// While it lives, a request to cancel the calling thread waits. Reading a file may act on such a
/// request, and then unwinds the stack, which must not pass an export.
class [[maybe_unused]] NoCancellation {
#if defined(PTHREAD_CANCEL_DISABLE)
 public:
  NoCancellation() { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &state_before_); }
  NoCancellation(const NoCancellation&) = delete;
  NoCancellation& operator=(const NoCancellation&) = delete;
  ~NoCancellation() { pthread_setcancelstate(state_before_, nullptr); }

 private:
  int state_before_ = PTHREAD_CANCEL_ENABLE;
#endif
};

}  // namespace vantor::Api

#endif  // MEASDATA_API_CANCELLATION_H
