#include "colortypes/repeats.h"

#include "colortypes/chart_analysis.h"
#include "colortypes/difference.h"
#include "colortypes/pair_distances.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace {

using namespace vantor::ColorTypes;
using Rows = std::vector<std::vector<double>>;
using Members = std::vector<std::vector<std::uint32_t>>;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

ValueTable table_of(const Rows& rows) {
  ValueTable table;
  double* next = table.reset(rows.empty() ? 0 : rows.front().size(), rows.size());
  for (const auto& row : rows) next = std::ranges::copy(row, next).out;
  return table;
}

// The rows of each entry; nothing when no row repeats.
Members members_of(const Rows& rows) {
  const RepeatGroups groups(table_of(rows));
  Members members;
  for (std::size_t entry = 0; groups.hasRepeats() && entry < groups.size(); ++entry) {
    members.emplace_back(groups.members(entry).begin(), groups.members(entry).end());
  }
  return members;
}

TEST(Repeats, RowsAreEqualAsDoubles) {
  EXPECT_EQ(members_of({{1, 2}, {2, 1}, {1, 2}, {1, 2.0000000001}, {2, 1}, {1, 2}}),
            (Members{{0, 2, 5}, {1, 4}, {3}}));
  EXPECT_EQ(members_of({{0.0}, {-0.0}, {kNan}, {kNan}}), (Members{{0, 1}, {2}, {3}}));
  EXPECT_EQ(members_of({{1}, {2}, {kNan}, {kNan}}), Members{});
  EXPECT_EQ(RepeatGroups(table_of({{1}, {2}, {kNan}, {kNan}})).size(), 4U);
  // More rows than one group of searches, the second half repeating the first.
  Rows rows;
  Members expected;
  for (std::uint32_t i = 0; i < 200; ++i) {
    rows.push_back({i % 100 * 0.5, 7});
    if (i < 100) expected.push_back({i, i + 100});
  }
  EXPECT_EQ(members_of(rows), expected);
}

// Against the definition, pair by pair: counts that fill tiles of four and batches of 32 tiles, and
// counts that do not; rows that all differ, that come several times, that are all equal, and one
// that is infinite.
TEST(Repeats, DistancesOfManyPairs) {
  const auto check = [](std::size_t count, std::size_t width, std::size_t different, double last) {
    Rows rows(count, std::vector<double>(width));
    for (std::size_t i = 0; i < count * width; ++i) {
      const std::size_t value = i / width % different * width + i % width;
      rows[i / width][i % width] = static_cast<double>(value * value * 7919 % 1000) / 1000.0;
    }
    rows[different - 1][0] += last;
    double sum = 0.0;
    double max = 0.0;
    for (std::size_t k = 1; k < count; ++k) {
      for (std::size_t j = 0; j < k; ++j) {
        const double distance = vectorDistance(rows[k], rows[j]);
        sum += distance;
        max = std::max(max, distance);
      }
    }
    std::vector<std::uint32_t> all(count);
    std::iota(all.begin(), all.end(), 0U);
    const Distances distances = pairwiseDistances(table_of(rows), all);
    const double mean = sum / static_cast<double>(count * (count - 1) / 2);
    // Infinite and undefined means are told alike.
    EXPECT_TRUE(std::abs(distances.mean - mean) <= 1e-12 * mean ||
                std::to_string(std::abs(distances.mean)) == std::to_string(std::abs(mean)))
        << distances.mean << " instead of " << mean << ", " << count << " " << width;
    EXPECT_TRUE(distances.max == max || std::abs(distances.max - max) < 1e-14) << count;
  };
  for (std::size_t count = 2; count < 150; count += count < 20 ? 1 : 60) {
    for (const std::size_t width : {1U, 3U, 36U}) {
      check(count, width, count, 0.0);
      check(count, width, (count + 1) / 2, 0.0);
      check(count, width, 1, 0.0);
      check(count, width, (count + 4) / 5, std::numeric_limits<double>::infinity());
    }
  }
}

TEST(ChartAnalysis, DistinctValuesAscendWithTheirCounts) {
  const DistinctValues distinct = collectDistinctValues(
      table_of({{50, 9}, {0.5, 9}, {-0.0, 9}, {0.50000001, 9}, {50, 9}, {0, 9}, {kNan, 9}}), 0);
  EXPECT_EQ(distinct.values, (std::vector<double>{0, 0.5, 0.50000001, 50}));
  EXPECT_EQ(distinct.counts, (std::vector<std::int32_t>{2, 1, 1, 2}));
  Rows rows;  // more than the first table of values holds
  for (int i = 0; i < 1000; ++i) rows.push_back({i % 300 * 0.25});
  const DistinctValues many = collectDistinctValues(table_of(rows), 0);
  ASSERT_EQ(many.values.size(), 300U);
  EXPECT_EQ(many.values[299], 74.75);
  EXPECT_EQ(many.counts[99], 4);
  EXPECT_EQ(many.counts[100], 3);
  rows = {{kNan}, {-0.0}, {0}};  // more than are counted without sorting
  for (int i = 0; i < 21000; ++i) rows.push_back({i % 10500 * -0.25});
  const DistinctValues sorted = collectDistinctValues(table_of(rows), 0);
  ASSERT_EQ(sorted.values.size(), 10500U);
  EXPECT_EQ(sorted.values[0], -0.25 * 10499);
  EXPECT_TRUE(std::signbit(sorted.values[10499]));  // as the first zero
  EXPECT_EQ(sorted.counts[10498], 2);
  EXPECT_EQ(sorted.counts[10499], 4);
}

}  // namespace
