#include "colortypes/pair_distances.h"

#include "colortypes/difference.h"
#include "colortypes/lanes.h"

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
  void take(double distance) {
    single_sum_ += distance;
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

// All pairs of rows in different tiles.
void comparePairsOfTiles(const ValueTable& table, Rows rows, Totals& totals) {
  std::array<double, kBatch * kTile * kTile> distances;  // NOLINT: filled before it is read
  const std::vector<double> tiles = tilesOf(table, rows);
  const std::size_t tile_size = kTile * table.width();
  const Compare compare_tiles = chooseCompare();
  for (std::size_t tile = 1; tile < rows.size() / kTile; ++tile) {
    const auto row = [&](std::size_t i) { return table.row(rows[tile * kTile + i]).data(); };
    const TileRows tile_rows = {row(0), row(1), row(2), row(3)};
    for (std::size_t first = 0; first < tile; first += kBatch) {
      const std::size_t count = std::min(kBatch, tile - first);
      compare_tiles(tile_rows, tiles.data() + first * tile_size, count, table.width(),
                    distances.data());
      totals.take(distances.data(), count * kTile * kTile);
    }
  }
}

}  // namespace

Distances pairwiseDistances(const ValueTable& table, Rows rows) {
  Totals totals;
  const std::size_t in_tiles = rows.size() - rows.size() % kTile;
  if (in_tiles > kTile && table.width() != 0) {
    comparePairsOfTiles(table, rows.first(in_tiles), totals);
  }
  // Within the tiles, and the rows that fill no tile with all before them.
  for (std::size_t k = 1; k < rows.size(); ++k) {
    const std::size_t first = k < in_tiles ? k - k % kTile : 0;
    for (std::size_t j = first; j < k; ++j) {
      totals.take(vectorDistance(table.row(rows[k]), table.row(rows[j])));
    }
  }

  Distances distances;
  if (rows.size() > 1) {
    const auto count = static_cast<double>(rows.size());
    distances.mean = totals.sum() / (0.5 * count * (count - 1.0));
    distances.max = totals.max();
  }
  return distances;
}

}  // namespace vantor::ColorTypes
