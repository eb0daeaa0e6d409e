// Histograms of differences that stand side by side, on the same scales.
#ifndef MEASDATA_KIT_WRITE_HTML_HISTOGRAM_PLOT_H
#define MEASDATA_KIT_WRITE_HTML_HISTOGRAM_PLOT_H

#include "kit/write/html/axis.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace measkit::html {

struct HistogramAxes {
  Axis difference;
  double class_width;
  Axis count;
};

/// From 0 to the largest difference, but not beyond `most` by more than a class.
HistogramAxes histogram_axes(std::span<const std::span<const double>> samples, double most);

/// Markup: safe to stand in HTML.
struct HistogramTexts {
  std::string_view difference, count;  ///< titles of the axes
  std::string description;             ///< what a screen reader says
};

std::string histogram_plot(std::span<const double> differences, const HistogramAxes& axes,
                           double width, const HistogramTexts& texts);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_HISTOGRAM_PLOT_H
