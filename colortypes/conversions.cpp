#include "colortypes/conversions.h"

#include "colortypes/lab_curve.h"

#include <cmath>

namespace vantor::ColorTypes {
namespace {

double expand(double f) {
  const double cube = f * f * f;
  return cube > labEpsilon ? cube : (f - labOffset) / labKappaSlope;
}

double clip(double linear) {
  if (!(linear > 0.0)) return 0.0;  // also what is no number
  return linear > 1.0 ? 1.0 : linear;
}

// The sRGB transfer curve with a threshold of its own, 0.00304 instead of 0.0031308.
double encode(double linear) {
  if (linear <= 0.00304) return 12.92 * linear;
  return 1.055 * std::pow(linear, 0.4166666666666667) - 0.055;
}

}  // namespace

Lab xyzToLab(const Tristimulus& xyz, const Tristimulus& white) {
  return ratiosToLab({xyz.x / white.x, xyz.y / white.y, xyz.z / white.z});
}

Tristimulus labToXyz(const Lab& lab, const Tristimulus& white) {
  const double fy = (lab.l + 16.0) / 116.0;
  const double fx = fy + lab.a / 500.0;
  const double fz = fy - lab.b / 200.0;
  return {expand(fx) * white.x, expand(fy) * white.y, expand(fz) * white.z};
}

// A Bradford cone transform with fixed gains and a power law on the blue cone takes D50 to D65;
// then the sRGB matrix, in three digits and for XYZ up to 100, and the transfer curve.
Rgb xyzD50ToSrgb(const Tristimulus& xyz) {
  const double x = xyz.x / 100.0;
  const double y = xyz.y / 100.0;
  const double z = xyz.z / 100.0;

  const double red_cone = (0.8951 * x + 0.2664 * y - 0.1614 * z) * 0.94;
  const double green_cone = (-0.7502 * x + 1.7135 * y + 0.0367 * z) * 1.02;
  const double blue_cone = 0.0389 * x - 0.0685 * y + 1.0296 * z;
  const double blue_adapted =
      blue_cone > 0.0 ? 1.33 * std::pow(blue_cone, 0.98) : -1.33 * std::pow(-blue_cone, 0.98);

  const double x65 = (0.98699 * red_cone - 0.14705 * green_cone + 0.15996 * blue_adapted) * 100.0;
  const double y65 = (0.43231 * red_cone + 0.51836 * green_cone + 0.04929 * blue_adapted) * 100.0;
  const double z65 = (-0.00853 * red_cone + 0.04004 * green_cone + 0.96849 * blue_adapted) * 100.0;

  const double r = 0.0324 * x65 - 0.0154 * y65 - 0.00499 * z65;
  const double g = -0.00969 * x65 + 0.0188 * y65 + 0.000416 * z65;
  const double b = 0.000556 * x65 - 0.00204 * y65 + 0.0106 * z65;
  return {encode(clip(r)), encode(clip(g)), encode(clip(b))};
}

Rgb labToSrgb255(const Lab& lab) {
  const Rgb rgb = xyzD50ToSrgb(labToXyz(lab, kD50White));
  return {rgb.r * 255.0, rgb.g * 255.0, rgb.b * 255.0};
}

}  // namespace vantor::ColorTypes
