#include "colortypes/conversions.h"

#include "api/measdata.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace vantor::ColorTypes;

void expect_near(const Lab& actual, const Lab& expected, double tolerance) {
  EXPECT_NEAR(actual.l, expected.l, tolerance);
  EXPECT_NEAR(actual.a, expected.a, tolerance);
  EXPECT_NEAR(actual.b, expected.b, tolerance);
}

TEST(Conversions, XyzToLabAndBack) {
  expect_near(xyzToLab(kD50White, kD50White), {100, 0, 0}, 0.0);
  expect_near(xyzToLab({0, 0, 0}, kD50White), {0, 0, 0}, 0.0);
  EXPECT_EQ(labToXyz({0, 0, 0}, kD50White).y, 0.0);
  // f(1/8) is 1/2; the linear part is L* = 903.2963 Y / Yn.
  expect_near(xyzToLab({kD50White.x, 12.5, kD50White.z / 8}, kD50White), {42, 250, 0}, 1e-12);
  const double f = 7.787037037037037 * 0.005;
  expect_near(xyzToLab({0, 0.5, 0}, kD50White), {116 * f, -500 * f, 200 * f}, 1e-12);
  for (const double l : {0.5, 7.9, 8.1, 50.0, 99.0}) {
    for (const double a : {-80.0, 60.0}) {
      const Lab lab = {l, a, 90.0};
      expect_near(xyzToLab(labToXyz(lab, kD50White), kD50White), lab, 1e-9);
    }
  }
}

// Expected values from the same formulas in 40-digit decimal arithmetic.
TEST(Conversions, Srgb) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    Lab lab;
    Rgb rgb;
  } cases[] = {
      {{50, 0, 0}, {117.88170359081936, 119.16573516188704, 121.40006799286077}},
      {{70, 30, -20}, {210.35733593057486, 151.92483448350544, 209.93931213832656}},
      // Dark: both sides of the curve's threshold, in each channel.
      {{1, 2, -1}, {7.790667857546726, 2.1096485937916682, 7.152611603590481}},
      {{2.85, 0, 0}, {10.163445822544338, 10.418219347849009, 11.798721169509978}},
      {{5, 0, 0}, {16.5545152409429, 16.873100418060588, 18.446257693130704}},
      {{0, 0, 0}, {0, 0, 0}},
      {{-5, 0, 0}, {0, 0, 0}},
      // Outside the gamut; with a negative blue cone.
      {{60, -150, 100}, {0, 187.20046709081632, 0}},
      {{60, 100, 0}, {255, 0, 152.30155995387096}},
      {{90, -90, 90}, {0, 255, 0}},
      {{30, 60, -200}, {0, 72.81571676573148, 255}},
      {{90, 0, 250}, {255, 223.88488033183344, 0}},
      // What is no number makes no light in the channels that it reaches, which are all.
      {{kNan, 0, 0}, {0, 0, 0}},
      {{50, kNan, 0}, {0, 0, 0}},
      {{50, 0, kNan}, {0, 0, 0}},
  };
  for (const auto& c : cases) {
    const double lab[3] = {c.lab.l, c.lab.a, c.lab.b};
    double rgb[3] = {};
    lab_to_srgb(lab, rgb);
    expect_near({rgb[0], rgb[1], rgb[2]}, {c.rgb.r, c.rgb.g, c.rgb.b}, 1e-9);
  }
}

}  // namespace
