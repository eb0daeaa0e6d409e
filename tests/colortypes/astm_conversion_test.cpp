#include "colortypes/spectral/astm_conversion.h"

#include "colortypes/spectral/table_registry.h"
#include "colortypes/spectral/weight_tables.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace vantor::ColorTypes;
using namespace vantor::ColorTypes::Spectral;
using enum Illuminant;

constexpr Observer kTwo = Observer::Cie1931_2deg;
constexpr Observer kTen = Observer::Cie1964_10deg;

AstmParameters grid(int start, int step, int count) {
  AstmParameters parameters;
  parameters.startNm = start;
  parameters.stepNm = step;
  parameters.sampleCount = count;
  return parameters;
}

AstmParameters light(Illuminant illuminant, int step, bool use_table5, Observer observer) {
  AstmParameters parameters = grid(360, step, step == 10 ? 43 : 22);
  parameters.illuminant = static_cast<int>(illuminant);
  parameters.useTable5 = use_table5;
  parameters.observer = static_cast<int>(observer);
  return parameters;
}

Tristimulus xyz_of(const AstmParameters& parameters, const std::vector<double>& spectrum) {
  ASTMSpectralConversion converter;
  EXPECT_TRUE(converter.configure(parameters));
  Tristimulus xyz = {};
  converter.spectralToXYZ(spectrum.data(), xyz.x, xyz.y, xyz.z);
  return xyz;
}

// X, Y and Z of a spectrum that is 1 at sample `at` and 0 elsewhere: the weights of that sample.
Tristimulus weights_at(const AstmParameters& parameters, std::size_t at) {
  std::vector<double> spectrum(static_cast<std::size_t>(parameters.sampleCount), 0.0);
  spectrum[at] = 1.0;
  return xyz_of(parameters, spectrum);
}

Lab lab_of(const AstmParameters& parameters, double value) {
  ASTMSpectralConversion converter;
  EXPECT_TRUE(converter.configure(parameters));
  const std::vector<double> flat(static_cast<std::size_t>(parameters.sampleCount), value);
  Lab lab = {1, 1, 1};
  converter.spectralToLab(flat.data(), lab.l, lab.a, lab.b);
  return lab;
}

TEST(WeightTables, ColumnSumsMeetTheWhitePoints) {
  int tables = 0;
  for (int i = 0; i < 8 * kIlluminantCount; ++i) {
    const auto illuminant = static_cast<Illuminant>(i / 8);
    const TableType type = i % 2 == 0 ? TableType::Table5 : TableType::Table6;
    const Observer observer = i / 2 % 2 == 0 ? kTwo : kTen;
    const WeightTable table = findWeightTable(i / 4 % 2 == 0 ? 10 : 20, type, observer, illuminant);
    if (table.empty()) {
      EXPECT_GT(illuminant, F11);  // the CIE lights have every table
      continue;
    }
    ++tables;
    Tristimulus sum = {0, 0, 0};
    for (const WeightRow& row : table) sum = {sum.x + row.x, sum.y + row.y, sum.z + row.z};
    const Tristimulus white = tableWhitePoint(illuminant, observer, type);
    // Each weight is rounded to 0.001; two printed tables miss by more than that explains.
    const double tolerance = illuminant == F11 || illuminant == F2 ? 0.024 : 0.007;
    EXPECT_NEAR(sum.x, white.x, tolerance) << i;
    EXPECT_NEAR(sum.y, white.y, tolerance) << i;
    EXPECT_NEAR(sum.z, white.z, tolerance) << i;
  }
  EXPECT_EQ(tables, 90);
}

TEST(WeightTables, KnownRowsOfTheLightsOutsideTheStandard) {
  const struct {
    Illuminant illuminant;
    TableType type;
    Tristimulus at460, at600;
  } cases[] = {
      {UL35, TableType::Table5, {0.782, 0.329, 4.514}, {4.841, 2.946, 0.0}},
      {UL35, TableType::Table6, {0.749, 0.312, 4.320}, {3.616, 2.306, 0.0}},
      {UL30, TableType::Table6, {0.415, 0.174, 2.392}, {3.319, 2.227, 0.0}},
      {LedT8G, TableType::Table6, {2.477, 1.022, 14.273}, {10.262, 5.989, 0.0}},
      {LedU35T, TableType::Table6, {0.808, 0.338, 4.657}, {2.156, 1.471, 0.0}},
  };
  for (const auto& c : cases) {
    const WeightTable table = findWeightTable(10, c.type, kTen, c.illuminant);
    for (const auto& [row, known] : {std::pair{table[10], c.at460}, {table[24], c.at600}}) {
      EXPECT_TRUE(row.x == known.x && row.y == known.y && row.z == known.z);
    }
  }
}

TEST(AstmConversion, WhiteAndBlackAreExactOnEveryGrid) {
  for (const int step : {10, 20}) {
    for (const int start : {300, 360, 380, 460}) {
      for (const int end : {680, 720, 780, 840}) {
        const AstmParameters parameters = grid(start, step, (end - start) / step + 1);
        const Lab white = lab_of(parameters, 1.0);
        EXPECT_TRUE(white.l == 100.0 && white.a == 0.0 && white.b == 0.0) << start << ' ' << end;
        const Lab black = lab_of(parameters, 0.0);
        EXPECT_TRUE(black.l == 0.0 && black.a == 0.0 && black.b == 0.0);
      }
    }
  }
}

TEST(AstmConversion, GridsThatNoTableFitsAreRefusedAndChangeNothing) {
  ASTMSpectralConversion converter;
  ASSERT_TRUE(converter.configure(grid(460, 10, 23)));  // 460 to 680 nm is just enough
  for (const AstmParameters& refused :
       {grid(380, 5, 71), grid(385, 10, 36), grid(390, 20, 18), grid(470, 10, 30),
        grid(380, 10, 30), grid(380, 10, 0), grid(380, 0, 36), grid(730, -10, 36),
        grid(INT_MIN, 10, INT_MAX), grid(INT_MAX, INT_MAX, INT_MAX), grid(INT_MIN, 1, INT_MIN),
        light(UL35, 20, true, kTwo)}) {
    EXPECT_FALSE(converter.configure(refused)) << refused.startNm << ' ' << refused.stepNm;
  }
  EXPECT_THROW(converter.configure(light(UL30, 10, true, kTwo)), std::invalid_argument);
  Tristimulus xyz = {};
  converter.spectralToXYZ(std::vector<double>(23, 1.0).data(), xyz.x, xyz.y, xyz.z);
  EXPECT_TRUE(xyz.x == 96.422 && xyz.y == 100.0 && xyz.z == 82.521);
  ASTMSpectralConversion().spectralToXYZ(nullptr, xyz.x, xyz.y, xyz.z);  // a fresh one
  EXPECT_TRUE(xyz.x == 0.0 && xyz.y == 0.0 && xyz.z == 0.0);
}

TEST(AstmConversion, UnmeasuredEndsAreFoldedOrDropped) {
  AstmParameters parameters = grid(400, 10, 31);
  parameters.normaliseToWhite = false;
  // Table 5, D50, 2 degrees: the Z weights of 360 to 400 nm and the X weights of 700 to 780 nm.
  EXPECT_NEAR(weights_at(parameters, 0).z, 0.001 + 0.005 + 0.013 + 0.057 + 0.285, 1e-12);
  EXPECT_NEAR(weights_at(parameters, 30).x,
              0.097 + 0.050 + 0.022 + 0.012 + 0.006 + 0.002 + 0.001 + 0.001, 1e-12);
  EXPECT_EQ(weights_at(parameters, 10).y, 2.948);
  parameters.foldEnds = false;
  EXPECT_NEAR(weights_at(parameters, 0).z, 0.285, 1e-12);
  // Samples beyond the tables weigh nothing.
  EXPECT_EQ(weights_at(grid(340, 10, 50), 1).z, 0.0);
  EXPECT_EQ(weights_at(grid(340, 10, 50), 45).x, 0.0);
  EXPECT_NE(weights_at(grid(340, 10, 50), 2).z, 0.0);
}

TEST(AstmConversion, WhitePointAndScaleFollowTheParameters) {
  AstmParameters parameters = light(D65, 10, true, kTen);
  parameters.whiteValue = 100.0;
  parameters.useCustomWhite = false;
  const std::vector<double> white(43, 100.0);
  EXPECT_EQ(xyz_of(parameters, white).x, 94.811);  // the table's white point, not its sum
  EXPECT_EQ(xyz_of(parameters, white).z, 107.304);
  parameters.normaliseToWhite = false;
  EXPECT_NEAR(xyz_of(parameters, white).x, 94.809, 1e-9);  // the plain sum
  EXPECT_NE(lab_of(parameters, 100.0).a, 0.0);
  // Without keeping the white point Lab refers to the sums against the white value of 100.
  parameters.keepWhitePoint = false;
  EXPECT_NEAR(lab_of(parameters, 100.0).l, 116.0 * std::cbrt(0.01) - 16.0, 1e-9);
  parameters = light(UL35, 10, false, kTen);
  parameters.useCustomWhite = false;
  EXPECT_EQ(xyz_of(parameters, std::vector<double>(43, 1.0)).x, 107.346);
}

TEST(AstmConversion, EveryCombinationWithoutATableSaysSo) {
  const std::string none = "unsupported: no ASTM data ";
  const struct {
    AstmParameters parameters;
    std::string outcome;
  } cases[] = {
      {light(UL30, 10, true, kTwo), none + "UL30 2deg table5"},
      {light(UL30, 20, false, kTwo), none + "UL30 2deg table6"},
      {light(UL30, 10, false, kTwo), "configured"},
      {light(LedB1, 20, true, kTwo), none + "LED B1-B5 2deg table5"},
      {light(LedB5, 10, false, kTen), none + "LED B1-B5 10deg table6"},
      {light(LedT8G, 10, false, kTwo), "unsupported table"},
      {light(static_cast<Illuminant>(18), 10, true, kTwo), "unsupported table"},
      {light(static_cast<Illuminant>(-1), 10, true, kTwo), "unsupported table"},
      {light(D50, 10, true, static_cast<Observer>(2)), "unsupported table"},
  };
  for (const auto& c : cases) {
    std::string outcome;
    try {
      outcome = ASTMSpectralConversion().configure(c.parameters) ? "configured" : "refused";
    } catch (const std::invalid_argument& error) {
      outcome = error.what();
    }
    EXPECT_EQ(outcome, c.outcome);
  }
}

TEST(TableRegistry, NamesEveryTableOnce) {
  EXPECT_EQ(AstmTableRegistry::entries().size(), 66U);
  EXPECT_EQ(AstmTableRegistry::find("LEDU35T_Target_10_Table6"), 65);
  EXPECT_EQ(AstmTableRegistry::find("LEDB3_10_Table6"), 55);  // the first of three
  EXPECT_EQ(AstmTableRegistry::find("LEDB4_10_Table6"), -1);
}

}  // namespace
