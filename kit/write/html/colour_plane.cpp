#include "kit/write/html/colour_plane.h"

#include "kit/write/html/svg_path.h"

#include <cmath>

namespace measkit::html {

ColourAxes colour_axes_over(std::span<const Triple> colours, double width) {
  Extent opponents;
  Extent chromas;
  Extent lightnesses;
  opponents.add(20.0);
  chromas.add(0.0);
  lightnesses.add(0.0);
  lightnesses.add(100.0);
  for (const Triple& lab : colours) {
    opponents.add(std::abs(lab[1]));
    opponents.add(std::abs(lab[2]));
    chromas.add(std::hypot(lab[1], lab[2]));
    lightnesses.add(lab[0]);
  }
  const int steps = width < 450.0 ? 6 : 12;
  return {axis_over(-opponents.high(), opponents.high(), steps), axis_over(0.0, chromas.high(), 7),
          axis_over(lightnesses.low(), lightnesses.high(), 10)};
}

double dot_radius(std::size_t dots) {
  if (dots <= 100) return 5.0;
  if (dots <= 600) return 3.6;
  return dots <= 2000 ? 2.6 : 2.0;
}

void draw_opponent_lines(Plot& plot, const Axis& axis) {
  SvgPath cross;
  cross.add(plot.left(), plot.y(0.0));
  cross.add(plot.right(), plot.y(0.0));
  cross.lift();
  cross.add(plot.x(0.0), plot.top());
  cross.add(plot.x(0.0), plot.bottom());
  plot.draw("<path class=\"zero\" d=\"" + cross.data() + "\"/>\n");
  const double ring = axis.last / axis.step > 4.0 ? 2.0 * axis.step : axis.step;
  for (int i = 1; i * ring <= axis.last; ++i) {
    plot.draw("<circle class=\"zero\" cx=\"" + coordinate(plot.x(0.0)) + "\" cy=\"" +
              coordinate(plot.y(0.0)) + "\" r=\"" + coordinate(plot.x(i * ring) - plot.x(0.0)) +
              "\"/>\n");
  }
}

}  // namespace measkit::html
