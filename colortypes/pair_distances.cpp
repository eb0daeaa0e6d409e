#include "colortypes/pair_distances.h"

#include "colortypes/difference.h"
#include "colortypes/lanes.h"
#include "colortypes/repeats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

#if defined(__GNUC__)
#define MEASDATA_INLINE [[gnu::always_inline]] inline
#else
#define MEASDATA_INLINE inline
#endif

namespace vantor::ColorTypes {
namespace {

using Rows = std::span<const std::uint32_t>;

// Rows are compared in tiles of four with four, which the processor's registers hold.
constexpr std::size_t kTile = 4;
// So many tiles at a time, whose distances stay in the nearest cache.
constexpr std::size_t kBatch = 32;
// Among fewer rows the search for equal ones takes longer than it saves.
constexpr std::size_t kFewestToSort = 32;

// The rows of each tile value by value: the first value of its four rows, the second, ...
std::vector<double> tilesOf(const ValueTable& table, Rows rows) {
  std::vector<double> tiles(rows.size() * table.width());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::span<const double> row = table.row(rows[i]);
    double* to = tiles.data() + (i - i % kTile) * table.width() + i % kTile;
    for (const double value : row) {
      *to = value;
      to += kTile;
    }
  }
  return tiles;
}

using TileRows = std::array<const double*, kTile>;

// The distances of all pairs of one of four rows and a row of the tiles at `others`, at most kBatch
// of these. `Vector` holds as many doubles as a register. Products and sums stay apart, so that
// every kind of processor gives the same digits.
template <typename Vector>
MEASDATA_INLINE void compare(const TileRows& rows, const double* others, std::size_t count,
                             std::size_t width, double* distances) {
  constexpr std::size_t kParts = kTile * sizeof(double) / sizeof(Vector);
  for (std::size_t other = 0; other < count; ++other) {
    Vector squares[kTile][kParts] = {};
    for (std::size_t i = 0; i < width; ++i) {
      for (std::size_t part = 0; part < kParts; ++part) {
        Vector values;
        std::memcpy(&values, others, sizeof values);
        others += kTile / kParts;
        for (std::size_t row = 0; row < kTile; ++row) {
          const Vector difference = values - rows[row][i];
          squares[row][part] += difference * difference;
        }
      }
    }
    for (const auto& row : squares) {
      for (const Vector& part : row) {
        const Vector result = part;
        std::memcpy(distances, &result, sizeof result);
        distances += kTile / kParts;
      }
    }
  }
  double* const first = distances - count * kTile * kTile;
  for (double* distance = first; distance != distances; ++distance) {
    *distance = std::sqrt(*distance);
  }
}

using Compare = void (*)(const TileRows&, const double*, std::size_t, std::size_t, double*);

void compareAnywhere(const TileRows& rows, const double* others, std::size_t count,
                     std::size_t width, double* distances) {
  compare<Lanes>(rows, others, count, width, distances);
}

#if defined(__x86_64__) && defined(__GNUC__)

using WideLanes = double __attribute__((vector_size(kTile * sizeof(double))));

__attribute__((target("avx2"))) void compareWide(const TileRows& rows, const double* others,
                                                 std::size_t count, std::size_t width,
                                                 double* distances) {
  compare<WideLanes>(rows, others, count, width, distances);
}

Compare chooseCompare() {
  return __builtin_cpu_supports("avx2") != 0 ? compareWide : compareAnywhere;
}

#else

Compare chooseCompare() { return compareAnywhere; }

#endif

class Totals {
 public:
  // The distance of so many pairs.
  void take(double distance, double pairs) {
    single_sum_ += distance * pairs;
    single_max_ = distance > single_max_ ? distance : single_max_;
  }
  // A multiple of two lanes of them. Four sums, so that fewer additions wait for the one before.
  void take(const double* distances, std::size_t count) {
    Lanes sum1 = sums_[0];
    Lanes sum2 = sums_[1];
    Lanes max1 = maxima_[0];
    Lanes max2 = maxima_[1];
    for (std::size_t i = 0; i < count; i += 2 * kLanes) {
      const Lanes first = loadLanes(distances + i);
      const Lanes second = loadLanes(distances + i + kLanes);
      sum1 += first;
      sum2 += second;
      max1 = largerOf(first, max1);
      max2 = largerOf(second, max2);
    }
    sums_ = {sum1, sum2};
    maxima_ = {max1, max2};
  }
  // Those of the rows of one tile and of `count` others, all of which come so often.
  void take(const double* distances, std::size_t count, const double* row_counts,
            const double* other_counts) {
    for (std::size_t other = 0; other < count; ++other, other_counts += kTile) {
      for (std::size_t row = 0; row < kTile; ++row) {
        for (std::size_t i = 0; i < kTile; ++i) {
          take(*distances++, row_counts[row] * other_counts[i]);
        }
      }
    }
  }
  double sum() const {
    const Lanes both = sums_[0] + sums_[1];
    return single_sum_ + (both[0] + both[1]);
  }
  double max() const {
    const Lanes larger = largerOf(maxima_[0], maxima_[1]);
    return std::max({single_max_, larger[0], larger[1]});
  }

 private:
  double single_sum_ = 0.0;
  double single_max_ = kNoDistance;
  std::array<Lanes, 2> sums_ = {Lanes{0.0, 0.0}, Lanes{0.0, 0.0}};
  std::array<Lanes, 2> maxima_ = {Lanes{kNoDistance, kNoDistance}, Lanes{kNoDistance, kNoDistance}};
};

// Different rows, and how often each of them comes; no counts when each comes once.
struct DifferentRows {
  std::vector<std::uint32_t> rows;
  std::vector<double> counts;

  double count(std::size_t i) const { return counts.empty() ? 1.0 : counts[i]; }
};

DifferentRows differentRowsOf(const ValueTable& table, Rows rows) {
  DifferentRows different;
  different.rows.assign(rows.begin(), rows.end());
  if (rows.size() < kFewestToSort) return different;
  ValueTable sorted;
  double* next = sorted.reset(table.width(), rows.size());
  for (const std::uint32_t row : rows) next = std::ranges::copy(table.row(row), next).out;
  const RepeatGroups groups(sorted);
  if (!groups.hasRepeats()) return different;
  different.rows.clear();
  for (std::size_t entry = 0; entry < groups.size(); ++entry) {
    different.rows.push_back(rows[groups.members(entry).front()]);
    different.counts.push_back(static_cast<double>(groups.members(entry).size()));
  }
  return different;
}

// All pairs of rows in different tiles.
void comparePairsOfTiles(const ValueTable& table, const DifferentRows& different, Totals& totals) {
  std::array<double, kBatch * kTile * kTile> distances;  // NOLINT: filled before it is read
  const std::size_t tile_count = different.rows.size() / kTile;
  const Rows rows = Rows(different.rows).first(tile_count * kTile);
  const std::vector<double> tiles = tilesOf(table, rows);
  const std::size_t tile_size = kTile * table.width();
  const Compare compare_tiles = chooseCompare();
  for (std::size_t tile = 1; tile < tile_count; ++tile) {
    const auto row = [&](std::size_t i) { return table.row(rows[tile * kTile + i]).data(); };
    const TileRows tile_rows = {row(0), row(1), row(2), row(3)};
    for (std::size_t first = 0; first < tile; first += kBatch) {
      const std::size_t count = std::min(kBatch, tile - first);
      compare_tiles(tile_rows, tiles.data() + first * tile_size, count, table.width(),
                    distances.data());
      if (different.counts.empty()) {
        totals.take(distances.data(), count * kTile * kTile);
      } else {
        totals.take(distances.data(), count, different.counts.data() + tile * kTile,
                    different.counts.data() + first * kTile);
      }
    }
  }
}

// Pairs of rows in the same tile, and those of the rows that fill no tile with all before them.
void compareOtherPairs(const ValueTable& table, const DifferentRows& different, Totals& totals) {
  const std::vector<std::uint32_t>& rows = different.rows;
  const std::size_t in_tiles = rows.size() - rows.size() % kTile;
  for (std::size_t k = 0; k < rows.size(); ++k) {
    const double count = different.count(k);
    // Not always 0: infinite values have no difference.
    if (count > 1.0) {
      totals.take(vectorDistance(table.row(rows[k]), table.row(rows[k])),
                  0.5 * count * (count - 1.0));
    }
    const std::size_t first = k < in_tiles ? k - k % kTile : 0;
    for (std::size_t j = first; j < k; ++j) {
      totals.take(vectorDistance(table.row(rows[k]), table.row(rows[j])),
                  count * different.count(j));
    }
  }
}

}  // namespace

Distances pairwiseDistances(const ValueTable& table, Rows rows) {
  Distances distances;
  if (rows.size() < 2) return distances;
  Totals totals;
  const DifferentRows different = differentRowsOf(table, rows);
  if (different.rows.size() > kTile && table.width() != 0) {
    comparePairsOfTiles(table, different, totals);
  }
  compareOtherPairs(table, different, totals);
  const auto count = static_cast<double>(rows.size());
  distances.mean = totals.sum() / (0.5 * count * (count - 1.0));
  distances.max = totals.max();
  return distances;
}

}  // namespace vantor::ColorTypes
