// Memory of operator new that is counted and runs out on request. For programs of one thread.
#ifndef MEASDATA_TESTS_ROBUSTNESS_COUNTED_MEMORY_H
#define MEASDATA_TESTS_ROBUSTNESS_COUNTED_MEMORY_H

namespace test {

enum class Shortage {
  once,  ///< one allocation fails
  lasting,
};

/// Blocks that are not freed yet.
long live_blocks();

/// While it lives, the n-th allocation from now on fails, n from 1; in a lasting shortage all that
/// follow, too.
class MemoryShortage {
 public:
  MemoryShortage(long n, Shortage kind);
  MemoryShortage(const MemoryShortage&) = delete;
  MemoryShortage& operator=(const MemoryShortage&) = delete;
  ~MemoryShortage();

  /// True when an allocation has failed.
  bool has_struck() const;
};

}  // namespace test

#endif  // MEASDATA_TESTS_ROBUSTNESS_COUNTED_MEMORY_H
