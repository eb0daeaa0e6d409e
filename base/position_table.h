// Finds things by their hash.
#ifndef MEASDATA_BASE_POSITION_TABLE_H
#define MEASDATA_BASE_POSITION_TABLE_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <vector>

namespace vantor::Base {

/// Knows the positions of things that its owner keeps in a sequence, by open addressing: one block
/// of memory, and mostly one look into it for each question.
class PositionTable {
 public:
  using Position = std::uint32_t;
  static constexpr Position kNone = std::numeric_limits<Position>::max();

  /// Makes room for `count` things.
  void reserve(std::size_t count) {
    if (is_crowded(count)) rehash(std::bit_ceil(count + count / 3 + 1));
  }
  void clear() { *this = PositionTable(); }

  /// Announces a search that comes soon, so that the memory it needs is on its way by then.
  void prefetch(std::uint64_t hash) const {
#if defined(__GNUC__)
    if (!slots_.empty()) __builtin_prefetch(&slots_[key_of(hash) & (slots_.size() - 1)]);
#else
    static_cast<void>(hash);
#endif
  }

  /// The position of the thing for which `is_equal(position)` holds; kNone when there is none.
  template <typename IsEqual>
  Position find(std::uint64_t hash, const IsEqual& is_equal) const {
    return slots_.empty() ? kNone : slots_[find_slot(key_of(hash), is_equal)].position;
  }

  /// The same, but when there is none the thing is added at `new_position`.
  template <typename IsEqual>
  Position find_or_add(std::uint64_t hash, std::size_t new_position, const IsEqual& is_equal) {
    if (is_crowded(count_ + 1)) grow();
    Slot& slot = slots_[find_slot(key_of(hash), is_equal)];
    if (slot.position == kNone) {
      if (new_position >= kNone) throw std::length_error("too many entries");
      slot = {key_of(hash), static_cast<Position>(new_position)};
      ++count_;
    }
    return slot.position;
  }

 private:
  struct Slot {
    std::uint32_t key = 0;
    Position position = kNone;
  };
  using Slots = std::vector<Slot>;
  static constexpr std::size_t kFewestSlots = 16;

  // At most three quarters of the slots are taken.
  bool is_crowded(std::size_t count) const { return 4 * count > 3 * slots_.size(); }
  static std::uint32_t key_of(std::uint64_t hash) { return static_cast<std::uint32_t>(hash); }

  template <typename IsEqual>
  std::size_t find_slot(std::uint32_t key, const IsEqual& is_equal) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = key & mask;
    while (slots_[slot].position != kNone &&
           !(slots_[slot].key == key && is_equal(slots_[slot].position))) {
      slot = (slot + 1) & mask;
    }
    return slot;
  }

  void grow() { rehash(slots_.empty() ? kFewestSlots : 2 * slots_.size()); }

  void rehash(std::size_t size) {
    Slots slots(size);
    for (const Slot& old : slots_) {
      if (old.position == kNone) continue;
      std::size_t slot = old.key & (size - 1);
      while (slots[slot].position != kNone) slot = (slot + 1) & (size - 1);
      slots[slot] = old;
    }
    slots_.swap(slots);
  }

  Slots slots_;  // none, or a power of two of them
  std::size_t count_ = 0;
};

}  // namespace vantor::Base

#endif  // MEASDATA_BASE_POSITION_TABLE_H
