#include "colortypes/pair_distances.h"

#include "colortypes/difference.h"
#include "colortypes/processor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace vantor::ColorTypes {
namespace {

using Rows = std::span<const std::uint32_t>;

// Rows are compared in tiles of four with four, which the processor's registers hold.
constexpr std::size_t kTile = 4;

struct Totals {
  std::array<double, kTile> sums{};
  std::array<double, kTile> maxima = {kNoDistance, kNoDistance, kNoDistance, kNoDistance};

  void take(std::size_t lane, double distance) {
    sums[lane] += distance;
    maxima[lane] = distance > maxima[lane] ? distance : maxima[lane];
  }
};

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

// All pairs of a row of one tile and a row of the tiles at `others`.
MEASDATA_FOR_WIDE_REGISTERS
void compareTile(const double* tile, const double* others, std::size_t count, std::size_t width,
                 Totals& totals) {
  Totals result = totals;
  for (std::size_t other = 0; other < count; ++other, others += width * kTile) {
    double squares[kTile][kTile] = {};
    for (std::size_t i = 0; i < width * kTile; i += kTile) {
      for (std::size_t row = 0; row < kTile; ++row) {
        for (std::size_t lane = 0; lane < kTile; ++lane) {
          const double difference = others[i + lane] - tile[i + row];
          squares[row][lane] += difference * difference;
        }
      }
    }
    for (const auto& row : squares) {
      for (std::size_t lane = 0; lane < kTile; ++lane) result.take(lane, std::sqrt(row[lane]));
    }
  }
  totals = result;
}

}  // namespace

Distances pairwiseDistances(const ValueTable& table, Rows rows) {
  Totals totals;
  const std::size_t tile_count = rows.size() / kTile;
  if (tile_count > 1) {
    const std::vector<double> tiles = tilesOf(table, rows.first(tile_count * kTile));
    const std::size_t tile_size = kTile * table.width();
    for (std::size_t tile = 1; tile < tile_count; ++tile) {
      compareTile(tiles.data() + tile * tile_size, tiles.data(), tile, table.width(), totals);
    }
  }
  // Within the tiles, and the rows that fill no tile with all before them.
  for (std::size_t k = 1; k < rows.size(); ++k) {
    const std::size_t first = k < tile_count * kTile ? k - k % kTile : 0;
    for (std::size_t j = first; j < k; ++j) {
      totals.take(j % kTile, vectorDistance(table.row(rows[k]), table.row(rows[j])));
    }
  }

  Distances distances;
  const auto count = static_cast<double>(rows.size());
  if (rows.size() > 1) {
    const auto& sums = totals.sums;
    distances.mean = ((sums[0] + sums[1]) + (sums[2] + sums[3])) / (0.5 * count * (count - 1.0));
    distances.max = std::ranges::max(totals.maxima);
  }
  return distances;
}

}  // namespace vantor::ColorTypes
