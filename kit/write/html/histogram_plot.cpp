#include "kit/write/html/histogram_plot.h"

#include "kit/write/html/histogram.h"
#include "kit/write/html/numbers.h"
#include "kit/write/html/plot.h"
#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <cmath>

namespace measkit::html {
namespace {

constexpr int kMostClasses = 24;

std::vector<std::size_t> counts_of(std::span<const double> differences, const HistogramAxes& axes) {
  const double classes = (axes.difference.last - axes.difference.first) / axes.class_width;
  return histogram_of(differences, axes.class_width,
                      static_cast<std::size_t>(std::lround(classes)));
}

}  // namespace

HistogramAxes histogram_axes(std::span<const std::span<const double>> samples, double most) {
  Extent differences;
  differences.add(0.0);
  for (const auto& sample : samples) {
    for (const double difference : sample) differences.add(std::min(difference, most));
  }
  const double high = differences.high() > 0.0 ? differences.high() : 1.0;
  const Axis classes = axis_over(0.0, high, kMostClasses);
  HistogramAxes axes = {axis_over(0.0, high, 6), classes.step, {}};
  axes.difference.last = classes.last;
  Extent counts;
  counts.add(4.0);  // ticks at whole patches
  for (const auto& sample : samples) {
    for (const std::size_t count : counts_of(sample, axes)) counts.add(static_cast<double>(count));
  }
  axes.count = axis_over(0.0, counts.high(), 5);
  return axes;
}

std::string histogram_plot(std::span<const double> differences, const HistogramAxes& axes,
                           double width, const HistogramTexts& texts) {
  Plot plot({width, 320.0}, {axes.difference, texts.difference}, {axes.count, texts.count},
            texts.description);
  plot.draw("<g class=\"bars\">\n");
  double low = 0.0;
  for (const std::size_t count : counts_of(differences, axes)) {
    const double high = low + axes.class_width;
    if (count > 0) {
      const double top = plot.y(static_cast<double>(count));
      plot.draw("<rect x=\"" + coordinate(plot.x(low) + 0.5) + "\" y=\"" + coordinate(top) +
                "\" width=\"" + coordinate(plot.x(high) - plot.x(low) - 1.0) + "\" height=\"" +
                coordinate(plot.bottom() - top) + "\"><title>" + shortest(low) + " to " +
                shortest(high) + ": " + grouped(count) + "</title></rect>\n");
    }
    low = high;
  }
  plot.draw("</g>\n");
  return std::move(plot).finish();
}

}  // namespace measkit::html
