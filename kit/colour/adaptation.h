// Chromatic adaptation.
#ifndef MEASDATA_KIT_COLOUR_ADAPTATION_H
#define MEASDATA_KIT_COLOUR_ADAPTATION_H

#include "colortypes/tristimulus.h"

namespace measkit {

using vantor::ColorTypes::Tristimulus;

/// A colour seen under a light with white point `from` as it is seen under `to`, by the linear
/// Bradford transform (the one of ISO 15076-1, annex E).
Tristimulus adapt_bradford(const Tristimulus& xyz, const Tristimulus& from, const Tristimulus& to);

}  // namespace measkit

#endif  // MEASDATA_KIT_COLOUR_ADAPTATION_H
