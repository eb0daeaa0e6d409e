// Colour differences of pairs of Lab.
#ifndef MEASDATA_KIT_COLOUR_COLOUR_DIFFERENCE_H
#define MEASDATA_KIT_COLOUR_COLOUR_DIFFERENCE_H

#include "colortypes/tristimulus.h"

namespace measkit {

using vantor::ColorTypes::Lab;

/// CIE 1976: the Euclidean distance.
double delta_e_76(const Lab& reference, const Lab& sample);

/// CIE 1994 with the weights of graphic arts: kL = 1, K1 = 0.045, K2 = 0.015. Asymmetric: the
/// weights follow from the chroma of the reference.
double delta_e_94(const Lab& reference, const Lab& sample);

/// CIEDE2000 with all parametric factors 1 (ISO/CIE 11664-6).
double delta_e_2000(const Lab& reference, const Lab& sample);

/// CMC(l:c) (ISO 105-J03): 2:1 for acceptability, 1:1 for perceptibility. Asymmetric: the weights
/// follow from the reference.
double delta_e_cmc(const Lab& reference, const Lab& sample, double lightness = 2.0,
                   double chroma = 1.0);

/// C*: the distance from the neutral axis.
double chroma_of(const Lab& lab);

/// The sample minus the reference.
struct ComponentDifferences {
  double lightness, a, b, chroma;
  double hue;  ///< Delta H*ab, positive for a hue angle that grew
};
ComponentDifferences component_differences(const Lab& reference, const Lab& sample);

}  // namespace measkit

#endif  // MEASDATA_KIT_COLOUR_COLOUR_DIFFERENCE_H
