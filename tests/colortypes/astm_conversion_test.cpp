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

constexpr Illuminant kLastCie = Illuminant::F11;

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

Tristimulus xyz_of(const ASTMSpectralConversion& converter, const std::vector<double>& spectrum) {
  Tristimulus xyz = {};
  converter.spectralToXYZ(spectrum.data(), xyz.x, xyz.y, xyz.z);
  return xyz;
}

// X, Y and Z of a spectrum that is 1 at sample `at` and 0 elsewhere: the weights of that sample.
Tristimulus weights_at(const ASTMSpectralConversion& converter, std::size_t at, std::size_t count) {
  std::vector<double> spectrum(count, 0.0);
  spectrum[at] = 1.0;
  return xyz_of(converter, spectrum);
}

TEST(WeightTables, ColumnSumsMeetTheWhitePoints) {
  int tables = 0;
  for (const int interval : {10, 20}) {
    for (const TableType type : {TableType::Table5, TableType::Table6}) {
      for (const Observer observer : {Observer::Cie1931_2deg, Observer::Cie1964_10deg}) {
        for (int code = 0; code < kIlluminantCount; ++code) {
          const auto illuminant = static_cast<Illuminant>(code);
          const WeightTable table = findWeightTable(interval, type, observer, illuminant);
          if (table.empty()) {
            EXPECT_GT(illuminant, kLastCie);  // the CIE lights have every table
            continue;
          }
          ++tables;
          Tristimulus sum = {0, 0, 0};
          for (const WeightRow& row : table) {
            sum = {sum.x + row.x, sum.y + row.y, sum.z + row.z};
          }
          const Tristimulus white = tableWhitePoint(illuminant, observer, type);
          // Each weight is rounded to 0.001; two printed tables miss by more than that explains.
          const bool is_wide = illuminant == Illuminant::F11 || illuminant == Illuminant::F2;
          const double tolerance = is_wide ? 0.024 : 0.007;
          EXPECT_NEAR(sum.x, white.x, tolerance) << interval << " nm, light " << code;
          EXPECT_NEAR(sum.y, white.y, tolerance) << interval << " nm, light " << code;
          EXPECT_NEAR(sum.z, white.z, tolerance) << interval << " nm, light " << code;
        }
      }
    }
  }
  EXPECT_EQ(tables, 90);
}

TEST(WeightTables, KnownRowsOfTheLightsOutsideTheStandard) {
  const struct {
    Illuminant illuminant;
    TableType type;
    double at460[3], at600[3];
  } cases[] = {
      {Illuminant::UL35, TableType::Table5, {0.782, 0.329, 4.514}, {4.841, 2.946, 0.0}},
      {Illuminant::UL35, TableType::Table6, {0.749, 0.312, 4.320}, {3.616, 2.306, 0.0}},
      {Illuminant::UL30, TableType::Table6, {0.415, 0.174, 2.392}, {3.319, 2.227, 0.0}},
      {Illuminant::LedT8G, TableType::Table6, {2.477, 1.022, 14.273}, {10.262, 5.989, 0.0}},
      {Illuminant::LedU35T, TableType::Table6, {0.808, 0.338, 4.657}, {2.156, 1.471, 0.0}},
  };
  for (const auto& c : cases) {
    const WeightTable table = findWeightTable(10, c.type, Observer::Cie1964_10deg, c.illuminant);
    const WeightRow& at460 = table[10];
    const WeightRow& at600 = table[24];
    EXPECT_TRUE(at460.x == c.at460[0] && at460.y == c.at460[1] && at460.z == c.at460[2]);
    EXPECT_TRUE(at600.x == c.at600[0] && at600.y == c.at600[1] && at600.z == c.at600[2]);
  }
}

TEST(AstmConversion, APerfectWhiteIsExactOnEveryGrid) {
  for (const int step : {10, 20}) {
    for (int start = 300; start <= 460; start += step) {
      for (int end = 680; end <= 840; end += step) {
        const int count = (end - start) / step + 1;
        ASTMSpectralConversion converter;
        ASSERT_TRUE(converter.configure(grid(start, step, count)));
        const std::vector<double> white(static_cast<std::size_t>(count), 1.0);
        const Tristimulus xyz = xyz_of(converter, white);
        double l = 0, a = 1, b = 1;
        converter.spectralToLab(white.data(), l, a, b);
        EXPECT_TRUE(xyz.x == 96.422 && xyz.y == 100.0 && xyz.z == 82.521);
        EXPECT_TRUE(l == 100.0 && a == 0.0 && b == 0.0) << start << ' ' << step << ' ' << end;
        const std::vector<double> black(static_cast<std::size_t>(count), 0.0);
        converter.spectralToLab(black.data(), l, a, b);
        EXPECT_TRUE(l == 0.0 && a == 0.0 && b == 0.0);
      }
    }
  }
}

TEST(AstmConversion, GridsThatNoTableFitsAreRefusedAndChangeNothing) {
  ASTMSpectralConversion converter;
  ASSERT_TRUE(converter.configure(grid(380, 10, 36)));
  const Tristimulus before = weights_at(converter, 20, 36);
  for (const AstmParameters& refused :
       {grid(380, 5, 71), grid(380, 1, 351), grid(385, 10, 36), grid(390, 20, 18),
        grid(470, 10, 30), grid(380, 10, 30), grid(380, 10, 0), grid(380, 10, -1), grid(380, 0, 36),
        grid(730, -10, 36), grid(INT_MIN, 10, INT_MAX), grid(380, INT_MIN, 2),
        grid(INT_MAX, INT_MAX, INT_MAX), grid(INT_MIN, 1, INT_MIN),
        light(Illuminant::UL35, 20, true, Observer::Cie1931_2deg)}) {
    EXPECT_FALSE(converter.configure(refused)) << refused.startNm << ' ' << refused.stepNm;
  }
  EXPECT_THROW(converter.configure(light(Illuminant::UL30, 10, true, Observer::Cie1931_2deg)),
               std::invalid_argument);
  EXPECT_EQ(weights_at(converter, 20, 36).x, before.x);
  EXPECT_TRUE(converter.configure(grid(460, 10, 23)));  // 460 to 680 nm is just enough
}

TEST(AstmConversion, UnmeasuredEndsAreFoldedOrDropped) {
  AstmParameters parameters = grid(400, 10, 31);
  parameters.normaliseToWhite = false;
  ASTMSpectralConversion converter;
  ASSERT_TRUE(converter.configure(parameters));
  // Table 5, D50, 2 degrees: the Z weights of 360 to 400 nm and the X weights of 700 to 780 nm.
  EXPECT_NEAR(weights_at(converter, 0, 31).z, 0.001 + 0.005 + 0.013 + 0.057 + 0.285, 1e-12);
  EXPECT_NEAR(weights_at(converter, 30, 31).x,
              0.097 + 0.050 + 0.022 + 0.012 + 0.006 + 0.002 + 0.001 + 0.001, 1e-12);
  EXPECT_EQ(weights_at(converter, 10, 31).y, 2.948);
  parameters.foldEnds = false;
  ASSERT_TRUE(converter.configure(parameters));
  EXPECT_NEAR(weights_at(converter, 0, 31).z, 0.285, 1e-12);
  // Samples beyond the tables weigh nothing.
  ASSERT_TRUE(converter.configure(grid(340, 10, 50)));
  EXPECT_EQ(weights_at(converter, 1, 50).z, 0.0);
  EXPECT_EQ(weights_at(converter, 45, 50).x, 0.0);
  EXPECT_NE(weights_at(converter, 2, 50).z, 0.0);
}

TEST(AstmConversion, WhitePointAndScaleFollowTheParameters) {
  AstmParameters parameters = light(Illuminant::D65, 10, true, Observer::Cie1964_10deg);
  parameters.whiteValue = 100.0;
  parameters.useCustomWhite = false;
  const std::vector<double> white(43, 100.0);
  ASTMSpectralConversion converter;
  ASSERT_TRUE(converter.configure(parameters));
  EXPECT_EQ(xyz_of(converter, white).x, 94.811);  // the table's white point, not its sum
  EXPECT_EQ(xyz_of(converter, white).z, 107.304);

  parameters.normaliseToWhite = false;
  ASSERT_TRUE(converter.configure(parameters));
  EXPECT_NEAR(xyz_of(converter, white).x, 94.809, 1e-9);  // the plain sum
  double l = 0, a = 0, b = 0;
  converter.spectralToLab(white.data(), l, a, b);
  EXPECT_NE(a, 0.0);

  // Without keeping the white point Lab refers to the sums against the white value of 100.
  parameters.keepWhitePoint = false;
  ASSERT_TRUE(converter.configure(parameters));
  converter.spectralToLab(white.data(), l, a, b);
  EXPECT_NEAR(l, 116.0 * std::cbrt(0.01) - 16.0, 1e-9);

  parameters = light(Illuminant::UL35, 10, false, Observer::Cie1964_10deg);
  parameters.useCustomWhite = false;
  ASSERT_TRUE(converter.configure(parameters));
  EXPECT_EQ(xyz_of(converter, std::vector<double>(43, 1.0)).x, 107.346);
}

TEST(AstmConversion, EveryCombinationWithoutATableSaysSo) {
  const auto text = [](const AstmParameters& parameters) -> std::string {
    try {
      return ASTMSpectralConversion().configure(parameters) ? "configured" : "refused";
    } catch (const std::invalid_argument& error) {
      return error.what();
    }
  };
  using enum Illuminant;
  const Observer two = Observer::Cie1931_2deg;
  const Observer ten = Observer::Cie1964_10deg;
  const std::string none = "unsupported: no ASTM data ";
  EXPECT_EQ(text(light(UL30, 10, true, two)), none + "UL30 2deg table5");
  EXPECT_EQ(text(light(UL30, 20, true, ten)), none + "UL30 10deg table5");
  EXPECT_EQ(text(light(UL30, 20, false, two)), none + "UL30 2deg table6");
  EXPECT_EQ(text(light(UL30, 10, false, two)), "configured");
  EXPECT_EQ(text(light(LedB1, 20, true, two)), none + "LED B1-B5 2deg table5");
  EXPECT_EQ(text(light(LedB5, 10, false, ten)), none + "LED B1-B5 10deg table6");
  EXPECT_EQ(text(light(LedB3, 10, true, ten)), "configured");
  EXPECT_EQ(text(light(LedT8G, 10, false, ten)), "configured");
  EXPECT_EQ(text(light(LedT8G, 10, false, two)), "unsupported table");
  EXPECT_EQ(text(light(LedU35T, 10, true, ten)), "unsupported table");
  EXPECT_EQ(text(light(LedU35T, 20, false, ten)), "unsupported table");
  EXPECT_EQ(text(light(static_cast<Illuminant>(18), 10, true, two)), "unsupported table");
  EXPECT_EQ(text(light(static_cast<Illuminant>(-1), 10, true, two)), "unsupported table");
  EXPECT_EQ(text(light(D50, 10, true, static_cast<Observer>(2))), "unsupported table");
}

TEST(AstmConversion, AFreshConverterGivesNothing) {
  double x = 1, y = 1, z = 1;
  ASTMSpectralConversion().spectralToXYZ(nullptr, x, y, z);
  EXPECT_TRUE(x == 0.0 && y == 0.0 && z == 0.0);
}

TEST(TableRegistry, NamesEveryTableOnce) {
  ASSERT_EQ(AstmTableRegistry::entries().size(), 66U);
  EXPECT_EQ(AstmTableRegistry::find("D50_2_Table5"), 4);
  EXPECT_EQ(AstmTableRegistry::find("UL30_10_Table6"), 43);
  EXPECT_EQ(AstmTableRegistry::find("LEDB5_2_Table6"), 62);
  EXPECT_EQ(AstmTableRegistry::find("LEDU35T_Target_10_Table6"), 65);
  EXPECT_EQ(AstmTableRegistry::find("LEDB3_10_Table6"), 55);  // the first of three
  EXPECT_EQ(AstmTableRegistry::find("LEDB4_10_Table6"), -1);
}

}  // namespace
