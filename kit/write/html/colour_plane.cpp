#include "kit/write/html/colour_plane.h"

#include "kit/write/html/svg_path.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace measkit::html {

namespace {

// As many steps as another axis has, about the middle of the values.
Axis extended(Axis axis, const Axis& other) {
  const double missing = (other.last - other.first) - (axis.last - axis.first);
  const double below = std::floor(missing / other.step / 2.0 + 0.25) * other.step;
  return {axis.first - below, axis.last + missing - below, other.step};
}

Axis in_steps(const Extent& values, double step) {
  return {std::floor(values.low() / step) * step, std::ceil(values.high() / step) * step, step};
}

}  // namespace

ColourAxes colour_axes_over(std::span<const Triple> colours, double width) {
  constexpr double kLeastSpan = 5.0;  // to either side: a grey chart shows how grey it is
  Extent a, b, chromas, lightnesses;
  for (Extent* opponent : {&a, &b}) {
    opponent->add(-kLeastSpan);
    opponent->add(kLeastSpan);
  }
  chromas.add(0.0);
  chromas.add(kLeastSpan);
  lightnesses.add(0.0);
  lightnesses.add(100.0);
  for (const Triple& lab : colours) {
    a.add(lab[1]);
    b.add(lab[2]);
    chromas.add(std::hypot(lab[1], lab[2]));
    lightnesses.add(lab[0]);
  }
  const int steps = width < 450.0 ? 6 : 12;
  const bool is_a_wider = a.high() - a.low() > b.high() - b.low();
  const Extent& wider = is_a_wider ? a : b;
  const double step = axis_over(wider.low(), wider.high(), steps).step;
  Axis a_axis = in_steps(a, step), b_axis = in_steps(b, step);
  const bool is_a_longer = a_axis.last - a_axis.first > b_axis.last - b_axis.first;
  (is_a_longer ? b_axis : a_axis) =
      is_a_longer ? extended(b_axis, a_axis) : extended(a_axis, b_axis);
  return {a_axis, b_axis, axis_over(0.0, chromas.high(), 7),
          axis_over(lightnesses.low(), lightnesses.high(), 10)};
}

double dot_radius(std::size_t dots) {
  if (dots <= 100) return 5.0;
  if (dots <= 600) return 3.6;
  return dots <= 2000 ? 2.6 : 2.0;
}

void draw_opponent_lines(Plot& plot, const ColourAxes& axes) {
  SvgPath cross;
  cross.add(plot.left(), plot.y(0.0));
  cross.add(plot.right(), plot.y(0.0));
  cross.lift();
  cross.add(plot.x(0.0), plot.top());
  cross.add(plot.x(0.0), plot.bottom());
  std::string rings = "<path class=\"zero\" d=\"" + cross.data() + "\"/>\n";
  const double farthest = std::max({axes.a.last, -axes.a.first, axes.b.last, -axes.b.first});
  const double ring = farthest / axes.a.step > 4.0 ? 2.0 * axes.a.step : axes.a.step;
  for (int i = 1; i * ring <= farthest; ++i) {
    rings += "<circle class=\"zero\" cx=\"" + coordinate(plot.x(0.0)) + "\" cy=\"" +
             coordinate(plot.y(0.0)) + "\" r=\"" + coordinate(plot.x(i * ring) - plot.x(0.0)) +
             "\"/>\n";
  }
  plot.draw(plot.clipped(rings));
}

}  // namespace measkit::html
