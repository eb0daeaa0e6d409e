#include "colortypes/conversions.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace vantor::ColorTypes;

TEST(Conversions, WhiteAndBlackAreExact) {
  const Lab white = xyzToLab(kD50White, kD50White);
  EXPECT_EQ(white.l, 100.0);
  EXPECT_EQ(white.a, 0.0);
  EXPECT_EQ(white.b, 0.0);
  const Lab black = xyzToLab({0, 0, 0}, kD50White);
  EXPECT_EQ(black.l, 0.0);
  EXPECT_EQ(black.a, 0.0);
  EXPECT_EQ(black.b, 0.0);
  const Tristimulus nothing = labToXyz({0, 0, 0}, kD50White);
  EXPECT_EQ(nothing.x, 0.0);
  EXPECT_EQ(nothing.y, 0.0);
  EXPECT_EQ(nothing.z, 0.0);
  EXPECT_EQ(labToXyz({100, 0, 0}, kD50White).x, kD50White.x);
}

TEST(Conversions, XyzToLabOnBothSidesOfTheThreshold) {
  // f(1/8) = 1/2 in every channel.
  const Lab grey = xyzToLab({kD50White.x / 8, 12.5, kD50White.z / 8}, kD50White);
  EXPECT_NEAR(grey.l, 42.0, 1e-12);
  EXPECT_NEAR(grey.a, 0.0, 1e-12);
  // The linear part: L* = 903.2963 Y / Yn.
  const Lab dark = xyzToLab({0, 0.5, 0}, kD50White);
  EXPECT_NEAR(dark.l, 4.516481, 1e-6);
  EXPECT_NEAR(dark.a, -500 * 7.787037037 * 0.005, 1e-6);
  EXPECT_NEAR(dark.b, 200 * 7.787037037 * 0.005, 1e-6);
}

TEST(Conversions, LabToXyzUndoesXyzToLab) {
  for (const double l : {0.5, 7.9, 8.1, 50.0, 99.0}) {
    for (const double a : {-80.0, 0.0, 60.0}) {
      for (const double b : {-60.0, 0.0, 90.0}) {
        const Lab lab = xyzToLab(labToXyz({l, a, b}, kD50White), kD50White);
        EXPECT_NEAR(lab.l, l, 1e-9);
        EXPECT_NEAR(lab.a, a, 1e-9);
        EXPECT_NEAR(lab.b, b, 1e-9);
      }
    }
  }
}

TEST(Conversions, SrgbIsClippedAndNeverNotANumber) {
  const Rgb black = labToSrgb255({0, 0, 0});
  EXPECT_EQ(black.r, 0.0);
  EXPECT_EQ(black.g, 0.0);
  EXPECT_EQ(black.b, 0.0);
  const Rgb white = labToSrgb255({100, 0, 0});
  EXPECT_NEAR(white.r, 253.09, 0.01);  // the constants of the transform are this far from neutral
  EXPECT_DOUBLE_EQ(white.g, 255.0);
  EXPECT_DOUBLE_EQ(white.b, 255.0);
  const Rgb green = labToSrgb255({60, -150, 100});
  EXPECT_EQ(green.r, 0.0);
  EXPECT_EQ(green.b, 0.0);
  EXPECT_GT(green.g, 100.0);
  const Rgb blue = labToSrgb255({30, 60, -200});
  EXPECT_DOUBLE_EQ(blue.b, 255.0);
  const Rgb yellow = labToSrgb255({90, 0, 250});  // a negative blue cone
  EXPECT_EQ(yellow.b, 0.0);
  EXPECT_FALSE(std::isnan(yellow.r));
}

// Expected values from the same formulas in 30-digit decimal arithmetic.
TEST(Conversions, SrgbOfColoursInsideTheGamut) {
  const struct {
    Lab lab;
    Rgb rgb;
  } cases[] = {
      {{50, 0, 0}, {117.88170359081936, 119.16573516188706, 121.40006799286077}},
      {{70, 30, -20}, {210.35733593057486, 151.92483448350546, 209.93931213832656}},
      {{3, 0, 0}, {10.686512080222139, 10.94653512333705, 12.344172081964784}},
  };
  for (const auto& c : cases) {
    const Rgb rgb = labToSrgb255(c.lab);
    EXPECT_NEAR(rgb.r, c.rgb.r, 1e-9);
    EXPECT_NEAR(rgb.g, c.rgb.g, 1e-9);
    EXPECT_NEAR(rgb.b, c.rgb.b, 1e-9);
  }
}

}  // namespace
