// The path of a line in SVG, written compactly in steps of a tenth of a unit.
#ifndef MEASDATA_TOOLS_REPORT_SVG_PATH_H
#define MEASDATA_TOOLS_REPORT_SVG_PATH_H

#include <string>

namespace tools::report {

/// A coordinate in tenths of a unit.
std::string coordinate(double value);

class SvgPath {
 public:
  /// Draws a line to a point.
  void add(double x, double y);
  /// Makes the next point start a new line.
  void lift() { is_down_ = false; }
  /// The value of the attribute d.
  const std::string& data() const { return data_; }

 private:
  std::string data_;
  long x_ = 0, y_ = 0;  // where the pen is, tenths
  bool is_down_ = false;
};

}  // namespace tools::report

#endif  // MEASDATA_TOOLS_REPORT_SVG_PATH_H
