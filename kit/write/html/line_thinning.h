// Leaves out the points of a line that nobody can see on a screen.
#ifndef MEASDATA_KIT_WRITE_HTML_LINE_THINNING_H
#define MEASDATA_KIT_WRITE_HTML_LINE_THINNING_H

#include <span>
#include <vector>

namespace measkit::html {

struct Point {
  double x, y;
};

/// The line through fewer points that passes each point that was left out within `tolerance`,
/// measured along y. The abscissas must ascend. Ends are kept.
std::vector<Point> thinned_line(std::span<const Point> line, double tolerance);

}  // namespace measkit::html

#endif  // MEASDATA_KIT_WRITE_HTML_LINE_THINNING_H
