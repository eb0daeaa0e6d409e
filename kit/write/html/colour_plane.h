// The planes of CIELAB that pages draw colours in.
#ifndef MEASDATA_KIT_WRITE_HTML_COLOUR_PLANE_H
#define MEASDATA_KIT_WRITE_HTML_COLOUR_PLANE_H

#include "kit/chart/chart.h"
#include "kit/write/html/axis.h"
#include "kit/write/html/plot.h"

#include <cstddef>
#include <span>

namespace measkit::html {

struct ColourAxes {
  Axis a, b;  ///< of the same length
  Axis chroma, lightness;
};

/// Axes that contain all colours, for a plot of the width.
ColourAxes colour_axes_over(std::span<const Triple> colours, double width);

/// A dot's radius that suits so many dots.
double dot_radius(std::size_t dots);

/// The axes of the hues that oppose each other, and rings of equal chroma.
void draw_opponent_lines(Plot& plot, const ColourAxes& axes);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_COLOUR_PLANE_H
