// Colour space conversions: pure functions on triples of doubles.
#ifndef MEASDATA_COLORTYPES_CONVERSIONS_H
#define MEASDATA_COLORTYPES_CONVERSIONS_H

#include "colortypes/tristimulus.h"

namespace vantor::ColorTypes {

/// CIELAB of a colour against a white point (CIE 15).
Lab xyzToLab(const Tristimulus& xyz, const Tristimulus& white);

/// The inverse of xyzToLab.
Tristimulus labToXyz(const Lab& lab, const Tristimulus& white);

/// Display sRGB, each channel clipped to 0..1 and encoded, of a D50 colour.
Rgb xyzD50ToSrgb(const Tristimulus& xyz);

/// Display sRGB, 0 to 255 and not rounded, of a Lab colour against kD50White.
Rgb labToSrgb255(const Lab& lab);

}  // namespace vantor::ColorTypes

#endif  // MEASDATA_COLORTYPES_CONVERSIONS_H
