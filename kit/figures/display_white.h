// The white of a display: its correlated colour temperature and luminance.
#ifndef MEASDATA_KIT_FIGURES_DISPLAY_WHITE_H
#define MEASDATA_KIT_FIGURES_DISPLAY_WHITE_H

#include "colortypes/tristimulus.h"
#include "kit/chart/chart.h"

#include <optional>

namespace measkit {

/// Kelvin. The temperature of the black body that is nearest in the CIE 1960 (u, v) diagram; none
/// farther than 0.05 from all black bodies of 1,000 to 25,000 K, where the CIE defines none.
std::optional<double> correlated_colour_temperature(const vantor::ColorTypes::Tristimulus& xyz);

struct DisplayWhite {
  vantor::ColorTypes::Tristimulus xyz;  ///< as it stands in the plain text
  std::optional<double> kelvin;
  std::optional<double> luminance;  ///< cd/m2, where the file tells it
};

/// None for charts that are not of a display and those without XYZ of their white.
std::optional<DisplayWhite> display_white_of(const Chart& chart);

}  // namespace measkit

#endif  // MEASDATA_KIT_FIGURES_DISPLAY_WHITE_H
