#include "colortypes/spectral/illuminants.h"

#include <array>
#include <cstddef>

namespace vantor::ColorTypes::Spectral {
namespace {

struct WhiteXZ {
  double x, z;
};
struct WhitePoints {
  WhiteXZ two_degrees, ten_degrees;
};

// In the order of the codes. The retail LED lights exist for the 10 degree observer only.
constexpr std::array<WhitePoints, kIlluminantCount> kWhitePoints = {{
    {{109.850, 35.585}, {111.144, 35.200}},  // A
    {{98.074, 118.232}, {97.285, 116.145}},  // C
    {{96.422, 82.521}, {96.720, 81.427}},    // D50
    {{95.682, 92.149}, {95.799, 90.926}},    // D55
    {{95.047, 108.883}, {94.811, 107.304}},  // D65
    {{94.972, 122.638}, {94.416, 120.641}},  // D75
    {{99.186, 67.393}, {103.279, 69.027}},   // F2
    {{95.041, 108.747}, {95.792, 107.686}},  // F7
    {{100.962, 64.350}, {103.863, 65.607}},  // F11
    {{104.753, 46.927}, {107.698, 47.740}},  // UL35
    {{106.305, 36.627}, {111.261, 36.305}},  // UL30
    {{111.811, 33.405}, {114.757, 33.356}},  // LED-B1
    {{108.597, 40.671}, {111.470, 40.657}},  // LED-B2
    {{100.888, 67.718}, {103.345, 68.014}},  // LED-B3
    {{97.718, 87.865}, {100.953, 88.844}},   // LED-B4
    {{96.342, 112.641}, {98.401, 112.097}},  // LED-B5
    {{0.0, 0.0}, {101.419, 62.785}},         // LEDT8G
    {{0.0, 0.0}, {107.698, 47.740}},         // LEDU35T: the pair of UL35, Table 5, 10 degrees
}};

// UL35 alone has a white point for each table type, and that for 10 degrees only.
constexpr WhiteXZ kUL35Table6TenDegrees = {107.346, 43.568};

}  // namespace

Tristimulus tableWhitePoint(Illuminant illuminant, Observer observer, TableType type) {
  const WhitePoints& points = kWhitePoints[static_cast<std::size_t>(illuminant)];
  WhiteXZ white = observer == Observer::Cie1931_2deg ? points.two_degrees : points.ten_degrees;
  if (illuminant == Illuminant::UL35 && observer == Observer::Cie1964_10deg &&
      type == TableType::Table6) {
    white = kUL35Table6TenDegrees;
  }
  return {white.x, 100.0, white.z};
}

}  // namespace vantor::ColorTypes::Spectral
