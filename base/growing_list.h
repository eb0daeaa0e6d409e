// A sequence that grows without a copy.
#ifndef MEASDATA_BASE_GROWING_LIST_H
#define MEASDATA_BASE_GROWING_LIST_H

#include <array>
#include <bit>
#include <cstddef>
#include <vector>

namespace vantor::Base {

/// Each block of it holds as many elements as all blocks before. Nothing is moved when one is
/// added: a vector that moves to larger memory holds its elements twice in the meantime.
template <typename Element>
class GrowingList {
 public:
  std::size_t size() const { return size_; }
  const Element& operator[](std::size_t position) const {
    const std::size_t block = block_of(position);
    return blocks_[block][position + kFirstBlock - start_of(block)];
  }
  Element& operator[](std::size_t position) {
    const std::size_t block = block_of(position);
    return blocks_[block][position + kFirstBlock - start_of(block)];
  }
  void push_back(const Element& element) {
    std::vector<Element>& block = blocks_[block_of(size_)];
    if (block.empty()) block.reserve(start_of(block_of(size_)));
    block.push_back(element);
    ++size_;
  }

 private:
  static constexpr std::size_t kFirstBlock = 64;  // elements, a power of two
  static constexpr std::size_t kBlocks = 48;      // more than any memory holds

  static std::size_t block_of(std::size_t position) {
    return static_cast<std::size_t>(std::bit_width((position + kFirstBlock) / kFirstBlock)) - 1;
  }
  // As if kFirstBlock elements stood before the first; the size of the block, too.
  static std::size_t start_of(std::size_t block) { return kFirstBlock << block; }

  std::array<std::vector<Element>, kBlocks> blocks_;
  std::size_t size_ = 0;
};

}  // namespace vantor::Base

#endif  // MEASDATA_BASE_GROWING_LIST_H
