// A plot in SVG: a neutral ground with grid, ticks and titles, to draw on.
#ifndef MEASDATA_KIT_WRITE_HTML_PLOT_H
#define MEASDATA_KIT_WRITE_HTML_PLOT_H

#include "kit/write/html/axis.h"

#include <string>
#include <string_view>

namespace measkit::html {

/// In units of the picture, which are about a pixel of the screen.
struct PlotSize {
  double width, height;
  double right_margin = 16.0;
  double left_margin = 52.0, top_margin = 30.0, bottom_margin = 46.0;  ///< for ticks and titles
};

/// The size of a plot whose ground is a square.
inline PlotSize square_plot(double width) {
  PlotSize size = {width, 0.0};
  size.height = width - size.left_margin - size.right_margin + size.top_margin + size.bottom_margin;
  return size;
}

/// An axis and its title, which may hold markup of SVG.
struct TitledAxis {
  Axis scale;
  std::string_view title;
};

class Plot {
 public:
  /// `description` is what a screen reader says of the plot; safe to stand in HTML.
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
  /// Markup of which only what lies on the ground is shown.
  std::string clipped(std::string_view markup) const;
  /// The markup of a dot that tells a label when pointed at. Colour and label must be safe; no
  /// label makes it a silent dot.
  std::string dot(double x_value, double y_value, std::string_view colour,
                  std::string_view label) const;
  /// Draws dots, which share their size.
  void draw_dots(double radius, std::string_view dots);

  /// The picture, which is complete then.
  std::string finish() &&;

 private:
  void draw_frame(const TitledAxis& x, const TitledAxis& y);

  PlotSize size_;
  Axis x_axis_, y_axis_;
  std::string svg_;
};

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_PLOT_H
