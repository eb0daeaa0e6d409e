// The triples of doubles that colours are made of.
#ifndef MEASDATA_COLORTYPES_TRISTIMULUS_H
#define MEASDATA_COLORTYPES_TRISTIMULUS_H

namespace vantor::ColorTypes {

/// CIE XYZ on the scale where the white's Y is 100.
struct Tristimulus {
  double x, y, z;
};

/// CIELAB: L* from 0 to 100, a* and b* unbounded.
struct Lab {
  double l, a, b;
};

/// sRGB components; the scale (0 to 1 or 0 to 255) is told where it is used.
struct Rgb {
  double r, g, b;
};

/// D50 for the 2 degree observer: the reference white of every Lab value of the library.
inline constexpr Tristimulus kD50White = {96.422, 100.0, 82.521};

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_TRISTIMULUS_H
