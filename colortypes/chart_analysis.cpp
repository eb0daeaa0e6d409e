#include "colortypes/chart_analysis.h"

#include "colortypes/value_hash.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <compare>
#include <cstdint>
#include <iterator>
#include <limits>
#include <span>
#include <utility>

namespace vantor::ColorTypes {
namespace {

// Counts how often each value comes, by open addressing. Where most rows have values of their own,
// sorting them is faster and takes less memory.
class ValueCounter {
 public:
  explicit ValueCounter(std::size_t rows) : most_(std::max(kMostOfAnyChart, rows / 4)) {}

  bool isFull() const { return taken_ > most_; }
  void count(double value) {
    Slot& slot = find(slots_, value);
    if (slot.count++ == 0) {
      slot.value = value;
      if (4 * ++taken_ > 3 * slots_.size()) grow();
    }
  }

  /// Ends the counting.
  DistinctValues takeResult() {
    std::erase_if(slots_, [](const Slot& slot) { return slot.count == 0; });
    std::ranges::sort(slots_, {}, &Slot::value);
    DistinctValues distinct;
    distinct.values.reserve(slots_.size());
    distinct.counts.reserve(slots_.size());
    for (const Slot& slot : slots_) {
      distinct.values.push_back(slot.value);
      distinct.counts.push_back(slot.count);
    }
    return distinct;
  }

 private:
  struct Slot {
    double value = 0.0;
    std::int32_t count = 0;  // 0: a free slot
  };

  static constexpr std::size_t kMostOfAnyChart = 10000;

  // The slot of the value, or the free one where it belongs.
  Slot& find(std::vector<Slot>& slots, double value) const {
    const std::size_t mask = slots.size() - 1;
    std::size_t slot = static_cast<std::size_t>(hashValue(value, seed_)) & mask;
    while (slots[slot].count != 0 && slots[slot].value != value) slot = (slot + 1) & mask;
    return slots[slot];
  }
  void grow() {
    std::vector<Slot> larger(2 * slots_.size());
    for (const Slot& slot : slots_) {
      if (slot.count != 0) find(larger, slot.value) = slot;
    }
    slots_.swap(larger);
  }

  std::uint64_t seed_ = Base::hash_seed();
  std::vector<Slot> slots_ = std::vector<Slot>(64);  // a power of two of them, always some free
  std::size_t taken_ = 0;
  std::size_t most_;
};

std::vector<double> numbersOf(const ValueTable& device_values, std::size_t channel) {
  std::vector<double> numbers;
  numbers.reserve(device_values.rows());
  for (std::size_t row = 0; row < device_values.rows(); ++row) {
    const double value = device_values.row(row)[channel];
    if (!std::isnan(value)) numbers.push_back(value);
  }
  return numbers;
}

DistinctValues countSorted(std::vector<double> numbers) {
  // 0.0 and -0.0 are equal: the first of them stands for all.
  const auto zero = std::ranges::find(numbers, 0.0);
  if (zero != numbers.end()) std::ranges::replace(zero, numbers.end(), 0.0, double{*zero});
  if (!std::ranges::is_sorted(numbers)) std::ranges::sort(numbers);
  DistinctValues distinct;
  std::size_t size = 0;
  for (const double value : numbers) {
    if (size == 0 || numbers[size - 1] != value) {
      numbers[size++] = value;
      distinct.counts.push_back(0);
    }
    ++distinct.counts.back();
  }
  numbers.resize(size);
  numbers.shrink_to_fit();
  distinct.values = std::move(numbers);
  return distinct;
}

bool isInWedge(std::span<const double> row, std::size_t channel, ZeroSteps zeros) {
  for (std::size_t other = 0; other < row.size(); ++other) {
    if (other != channel && row[other] > 0.0) return false;
  }
  return zeros == ZeroSteps::keep || row[channel] != 0.0;
}

// An integer that is smaller where a value is, and 0 for -0.0; smallest for what is no number.
std::int64_t sortKey(double value) {
  if (std::isnan(value)) return std::numeric_limits<std::int64_t>::min();
  const auto bits = std::bit_cast<std::int64_t>(value);
  return bits >= 0 ? bits : std::numeric_limits<std::int64_t>::min() - bits;
}

// A row of a wedge with what it is sorted by: the rows themselves lie far apart.
struct Step {
  std::int64_t key;
  std::int32_t row;
  bool operator<(const Step& other) const {
    return key != other.key ? key < other.key : row < other.row;
  }
};

}  // namespace

DistinctValues collectDistinctValues(const ValueTable& device_values, std::size_t channel) {
  ValueCounter counter(device_values.rows());
  for (std::size_t row = 0; row < device_values.rows() && !counter.isFull(); ++row) {
    const double value = device_values.row(row)[channel];
    if (!std::isnan(value)) counter.count(value);
  }
  return counter.isFull() ? countSorted(numbersOf(device_values, channel)) : counter.takeResult();
}

std::vector<std::int32_t> rowsOfOneInk(const ValueTable& device_values) {
  std::vector<std::int32_t> found;
  for (std::size_t row = 0; row < device_values.rows(); ++row) {
    int inks = 0;
    for (const double value : device_values.row(row)) {
      inks += value > 0.0 ? 1 : 0;
      if (inks > 1) break;
    }
    if (inks <= 1) found.push_back(static_cast<std::int32_t>(row));
  }
  return found;
}

std::vector<std::int32_t> findPaperWhite(const ValueTable& device_values,
                                         std::span<const std::int32_t> rows) {
  std::vector<std::int32_t> found;
  std::ranges::copy_if(rows, std::back_inserter(found), [&device_values](std::int32_t row) {
    return std::ranges::all_of(device_values.row(static_cast<std::size_t>(row)),
                               [](double value) { return value == 0.0; });
  });
  return found;
}

std::vector<std::int32_t> collectWedge(const ValueTable& device_values,
                                       std::span<const std::int32_t> rows, std::size_t channel,
                                       ZeroSteps zeros) {
  std::vector<Step> steps;
  for (const std::int32_t row : rows) {
    const std::span<const double> values = device_values.row(static_cast<std::size_t>(row));
    if (isInWedge(values, channel, zeros)) steps.push_back({sortKey(values[channel]), row});
  }
  // Many rows without a value belong to the wedges of all channels, and mostly stand in order.
  if (!std::is_sorted(steps.begin(), steps.end())) std::sort(steps.begin(), steps.end());
  std::vector<std::int32_t> wedge(steps.size());
  std::ranges::transform(steps, wedge.begin(), &Step::row);
  return wedge;
}

}  // namespace vantor::ColorTypes
