// A plot in SVG: a neutral background with grid, ticks and titles.
#ifndef MEASDATA_TOOLS_REPORT_PLOT_H
#define MEASDATA_TOOLS_REPORT_PLOT_H

#include "tools/report/axis.h"

#include <string>
#include <string_view>

namespace tools::report {

/// In SVG units, each about one screen pixel.
struct PlotSize {
  double width, height;
  double right_margin = 16.0;
  double left_margin = 44.0, top_margin = 30.0, bottom_margin = 46.0;  ///< for ticks and titles
};

/// An axis and its title, which may contain SVG markup.
struct TitledAxis {
  Axis scale;
  std::string_view title;
};

class Plot {
 public:
  /// `description` is the text for screen readers, as escaped HTML.
  Plot(const PlotSize& size, const TitledAxis& x, const TitledAxis& y,
       std::string_view description);

  double x(double value) const;
  double y(double value) const;
  double left() const;
  double right() const;
  double top() const;
  double bottom() const;

  /// Appends markup.
  void draw(std::string_view markup) { svg_ += markup; }
  /// Adds a dot with a label as tooltip. Colour and label must be escaped.
  void draw_dot(double x_value, double y_value, double radius, std::string_view colour,
                std::string_view label);

  /// Completes and returns the picture.
  std::string finish() &&;

 private:
  void draw_frame(const TitledAxis& x, const TitledAxis& y);

  PlotSize size_;
  Axis x_axis_, y_axis_;
  std::string svg_;
};

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_PLOT_H
