#include "colortypes/repeats.h"

#include "colortypes/chart_analysis.h"
#include "colortypes/pair_distances.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

namespace {

using namespace vantor::ColorTypes;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

ValueTable table_of(const std::vector<std::vector<double>>& rows) {
  ValueTable table;
  double* next = table.reset(rows.empty() ? 0 : rows.front().size(), rows.size());
  for (const auto& row : rows) next = std::ranges::copy(row, next).out;
  return table;
}

std::vector<std::vector<std::uint32_t>> members_of(const ValueTable& table) {
  const RepeatGroups groups(table);
  std::vector<std::vector<std::uint32_t>> members;
  for (std::size_t entry = 0; entry < groups.size(); ++entry) {
    if (groups.hasRepeats()) {
      members.emplace_back(groups.members(entry).begin(), groups.members(entry).end());
    } else {
      members.push_back({static_cast<std::uint32_t>(entry)});
    }
  }
  return members;
}

Distances distances_of(const ValueTable& table) {
  std::vector<std::uint32_t> rows(table.rows());
  std::iota(rows.begin(), rows.end(), 0U);
  return pairwiseDistances(table, rows);
}

std::vector<std::int32_t> paper_white_of(const ValueTable& table) {
  return findPaperWhite(table, rowsOfOneInk(table));
}

std::vector<std::int32_t> wedge_of(const ValueTable& table, std::size_t channel, ZeroSteps zeros) {
  return collectWedge(table, rowsOfOneInk(table), channel, zeros);
}

using Members = std::vector<std::vector<std::uint32_t>>;

TEST(Repeats, RowsAreEqualAsDoubles) {
  EXPECT_EQ(members_of(table_of({{1, 2}, {2, 1}, {1, 2}, {1, 2.0000000001}, {2, 1}, {1, 2}})),
            (Members{{0, 2, 5}, {1, 4}, {3}}));
  EXPECT_EQ(members_of(table_of({{0.0}, {-0.0}})), (Members{{0, 1}}));
  EXPECT_EQ(members_of(table_of({{kNan}, {kNan}, {1}, {kNan}})), (Members{{0}, {1}, {2}, {3}}));
  EXPECT_EQ(members_of(table_of({})), Members{});
  EXPECT_FALSE(RepeatGroups(table_of({{1}, {2}})).hasRepeats());
  EXPECT_TRUE(RepeatGroups(table_of({{1}, {1}})).hasRepeats());
}

// Against the definition: the first entry of equal values wins.
TEST(Repeats, HashingFindsWhatASearchFinds) {
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::vector<double>> rows;
    for (int i = 0; i < 60; ++i) {
      const double odd[] = {0.0, -0.0, 1.0, kNan, 50.0, 1e-300, 100.0, 25.5};
      rows.push_back({odd[random() % 8], odd[random() % 3], odd[random() % 2]});
    }
    Members expected;
    for (std::uint32_t row = 0; row < rows.size(); ++row) {
      const auto entry = std::ranges::find_if(
          expected, [&](const auto& members) { return rows[members.front()] == rows[row]; });
      if (entry == expected.end()) {
        expected.push_back({row});
      } else {
        entry->push_back(row);
      }
    }
    ASSERT_EQ(members_of(table_of(rows)), expected);
  }
}

TEST(Repeats, DistancesOfAllPairs) {
  const Distances two = distances_of(table_of({{50, 0, 0}, {50, 3, 4}}));
  EXPECT_EQ(two.mean, 5.0);
  EXPECT_EQ(two.max, 5.0);
  const Distances three = distances_of(table_of({{0}, {1}, {5}}));  // 1, 5, 4
  EXPECT_NEAR(three.mean, 10.0 / 3.0, 1e-15);
  EXPECT_EQ(three.max, 5.0);
  const Distances same = distances_of(table_of({{7, 7}, {7, 7}}));
  EXPECT_EQ(same.mean, 0.0);
  EXPECT_EQ(same.max, 0.0);
  const Distances single = distances_of(table_of({{7, 7}}));
  EXPECT_EQ(single.mean, 0.0);
  EXPECT_EQ(single.max, -1.7976931348623157e308);
}

// Against the definition, pair by pair, for counts that fill tiles of four and counts that do not.
TEST(Repeats, DistancesOfManyPairs) {
  std::mt19937 random(4);
  for (std::size_t count = 2; count < 20; ++count) {
    for (const std::size_t width : {1, 3, 36}) {
      std::vector<std::vector<double>> rows(count, std::vector<double>(width));
      for (auto& row : rows) {
        for (double& value : row) value = static_cast<double>(random() % 1000) / 1000.0;
      }
      double sum = 0.0;
      double max = 0.0;
      for (std::size_t k = 1; k < count; ++k) {
        for (std::size_t j = 0; j < k; ++j) {
          double squares = 0.0;
          for (std::size_t i = 0; i < width; ++i) squares += std::pow(rows[k][i] - rows[j][i], 2);
          sum += std::sqrt(squares);
          max = std::max(max, std::sqrt(squares));
        }
      }
      const Distances distances = distances_of(table_of(rows));
      const auto pairs = static_cast<double>(count * (count - 1)) / 2.0;
      EXPECT_NEAR(distances.mean, sum / pairs, 1e-13) << count << " " << width;
      EXPECT_NEAR(distances.max, max, 1e-14) << count << " " << width;
    }
  }
}

using Indices = std::vector<std::int32_t>;

TEST(ChartAnalysis, DistinctValuesAscendWithTheirCounts) {
  const DistinctValues distinct = collectDistinctValues(
      table_of({{50, 9}, {0.5, 9}, {-0.0, 9}, {0.50000001, 9}, {50, 9}, {0, 9}, {kNan, 9}}), 0);
  EXPECT_EQ(distinct.values, (std::vector<double>{0, 0.5, 0.50000001, 50}));
  EXPECT_EQ(distinct.counts, (Indices{2, 1, 1, 2}));
}

TEST(ChartAnalysis, PaperWhiteIsExactlyZeroEverywhere) {
  EXPECT_EQ(paper_white_of(table_of({{0, 1}, {0, 0}, {-0.0, 0}, {kNan, 0}, {0, 1e-300}})),
            (Indices{1, 2}));
}

TEST(ChartAnalysis, AWedgeIsPrintedWithOneInkAlone) {
  const ValueTable chart = table_of({{0, 0, 0},      // paper
                                     {100, 0, 0},    //
                                     {0, 100, 0},    // another ink
                                     {25, 0, 0},     //
                                     {50, 0, 1e-9},  // a trace of another ink
                                     {40, 0, -1},    // a negative value does not print
                                     {25, 0, 0}});   //
  EXPECT_EQ(wedge_of(chart, 0, ZeroSteps::skip), (Indices{3, 6, 5, 1}));
  EXPECT_EQ(wedge_of(chart, 0, ZeroSteps::keep), (Indices{0, 3, 6, 5, 1}));
  EXPECT_EQ(wedge_of(chart, 1, ZeroSteps::skip), (Indices{2}));
  EXPECT_EQ(wedge_of(chart, 2, ZeroSteps::skip), Indices{});
  EXPECT_EQ(wedge_of(table_of({{100}, {kNan}, {50}, {kNan}}), 0, ZeroSteps::skip),
            (Indices{1, 3, 2, 0}));
}

}  // namespace
