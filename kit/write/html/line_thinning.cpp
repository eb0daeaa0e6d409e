#include "kit/write/html/line_thinning.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace measkit::html {

// From each point kept, the slopes that pass all points since within the tolerance form a wedge.
// The point before the wedge closes is kept, too.
std::vector<Point> thinned_line(std::span<const Point> line, double tolerance) {
  if (line.size() < 3) return {line.begin(), line.end()};
  std::vector<Point> kept = {line.front()};
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double least = -kInfinity, most = kInfinity;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const Point& start = kept.back();
    const double run = line[i].x - start.x;
    const double slope = (line[i].y - start.y) / run;
    if (slope < least || slope > most) {
      kept.push_back(line[i - 1]);
      const double step = line[i].x - line[i - 1].x;
      least = (line[i].y - tolerance - line[i - 1].y) / step;
      most = (line[i].y + tolerance - line[i - 1].y) / step;
      continue;
    }
    least = std::max(least, (line[i].y - tolerance - start.y) / run);
    most = std::min(most, (line[i].y + tolerance - start.y) / run);
  }
  kept.push_back(line.back());
  return kept;
}

}  // namespace measkit::html
