#include "kit/colour/colour_difference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#ifdef MEASDATA_TEST_LCMS2
#include <lcms2.h>
#endif

namespace {

using namespace measkit;

struct Pair {
  Lab first, second;
  double difference;
};

// Sharma, Wu and Dalal, "The CIEDE2000 color-difference formula: Implementation notes,
// supplementary test data, and mathematical observations" (2005), table 1.
constexpr Pair kPublished[] = {
    {{50, 2.6772, -79.7751}, {50, 0, -82.7485}, 2.0425},
    {{50, 3.1571, -77.2803}, {50, 0, -82.7485}, 2.8615},
    {{50, 2.8361, -74.0200}, {50, 0, -82.7485}, 3.4412},
    {{50, -1.3802, -84.2814}, {50, 0, -82.7485}, 1.0000},
    {{50, -1.1848, -84.8006}, {50, 0, -82.7485}, 1.0000},
    {{50, -0.9009, -85.5211}, {50, 0, -82.7485}, 1.0000},
    {{50, 0, 0}, {50, -1, 2}, 2.3669},
    {{50, -1, 2}, {50, 0, 0}, 2.3669},
    {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0009}, 7.1792},
    {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0010}, 7.1792},
    {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0011}, 7.2195},
    {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0012}, 7.2195},
    {{50, -0.0010, 2.4900}, {50, 0.0009, -2.4900}, 4.8045},
    {{50, -0.0010, 2.4900}, {50, 0.0010, -2.4900}, 4.8045},
    {{50, -0.0010, 2.4900}, {50, 0.0011, -2.4900}, 4.7461},
    {{50, 2.5, 0}, {50, 0, -2.5}, 4.3065},
    {{50, 2.5, 0}, {73, 25, -18}, 27.1492},
    {{50, 2.5, 0}, {61, -5, 29}, 22.8977},
    {{50, 2.5, 0}, {56, -27, -3}, 31.9030},
    {{50, 2.5, 0}, {58, 24, 15}, 19.4535},
    {{50, 2.5, 0}, {50, 3.1736, 0.5854}, 1.0000},
    {{50, 2.5, 0}, {50, 3.2972, 0}, 1.0000},
    {{50, 2.5, 0}, {50, 1.8634, 0.5757}, 1.0000},
    {{50, 2.5, 0}, {50, 3.2592, 0.3350}, 1.0000},
    {{60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}, 1.2644},
    {{63.0109, -31.0961, -5.8663}, {62.8187, -29.7946, -4.0864}, 1.2630},
    {{61.2901, 3.7196, -5.3901}, {61.4292, 2.2480, -4.9620}, 1.8731},
    {{35.0831, -44.1164, 3.7933}, {35.0232, -40.0716, 1.5901}, 1.8645},
    {{22.7233, 20.0904, -46.6940}, {23.0331, 14.9730, -42.5619}, 2.0373},
    {{36.4612, 47.8580, 18.3852}, {36.2715, 50.5065, 21.2231}, 1.4146},
    {{90.8027, -2.0831, 1.4410}, {91.1528, -1.6435, 0.0447}, 1.4441},
    {{90.9257, -0.5406, -0.9208}, {88.6381, -0.8985, -0.7239}, 1.5381},
    {{6.7747, -0.2908, -2.4247}, {5.8714, -0.0985, -2.2286}, 0.6377},
    {{2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}, 0.9082},
};

TEST(ColourDifference, Ciede2000GivesThePublishedPairs) {
  for (const Pair& pair : kPublished) {
    EXPECT_NEAR(delta_e_2000(pair.first, pair.second), pair.difference, 1e-4);
    EXPECT_NEAR(delta_e_2000(pair.second, pair.first), pair.difference, 1e-4);
  }
}

// C* is 5 and 10 at the same hue: dL = 3, dC = 5, dH = 0. The reference's chroma decides.
TEST(ColourDifference, AsymmetricFormulasWeighByTheReference) {
  const Lab dull = {50, 3, 4}, vivid = {53, 6, 8};
  EXPECT_NEAR(delta_e_94(dull, vivid), std::sqrt(9 + 25 / (1.225 * 1.225)), 1e-12);
  EXPECT_NEAR(delta_e_94(vivid, dull), std::sqrt(9 + 25 / (1.45 * 1.45)), 1e-12);
  const double lightness = 0.040975 * 50 / 1.8825, chroma = 0.0638 * 5 / 1.0655 + 0.638;
  EXPECT_NEAR(delta_e_cmc(dull, vivid), std::hypot(3 / (2 * lightness), 5 / chroma), 1e-12);
  EXPECT_NEAR(delta_e_cmc(dull, vivid, 1, 2), std::hypot(3 / lightness, 5 / (2 * chroma)), 1e-12);
  // A turn by a right angle at C* = 5: dC = 0, dH = 5 sqrt 2.
  const Lab turned = {50, -4, 3};
  EXPECT_NEAR(component_differences(dull, turned).hue, 5 * std::sqrt(2.0), 1e-12);
  EXPECT_NEAR(component_differences(turned, dull).hue, -5 * std::sqrt(2.0), 1e-12);
  EXPECT_NEAR(delta_e_94(dull, turned), 5 * std::sqrt(2.0) / 1.075, 1e-12);
}

#ifdef MEASDATA_TEST_LCMS2
TEST(ColourDifference, AgreesWithAnotherLibraryOnRandomPairs) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> lightness(0, 100), opponent(-120, 120), step(-10, 10);
  for (int i = 0; i < 20000; ++i) {
    const Lab a = {lightness(random), opponent(random), opponent(random)};
    const Lab b = i % 2 == 0 ? Lab{lightness(random), opponent(random), opponent(random)}
                             : Lab{a.l + step(random), a.a + step(random), a.b + step(random)};
    const cmsCIELab first = {a.l, a.a, a.b}, second = {b.l, b.a, b.b};
    ASSERT_NEAR(delta_e_76(a, b), cmsDeltaE(&first, &second), 1e-9);
    ASSERT_NEAR(delta_e_2000(a, b), cmsCIE2000DeltaE(&first, &second, 1, 1, 1), 1e-6);
    ASSERT_NEAR(delta_e_cmc(a, b), cmsCMCdeltaE(&first, &second, 2, 1), 1e-6);
  }
}
#endif

}  // namespace
